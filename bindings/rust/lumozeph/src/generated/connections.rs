//! Port connections.
//!
//! A connection is named by a text of at most 63 bytes. None of these functions names an instance.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// Reads all connections.
///
/// Returns `LUMOZEPH_CONNECTIONS_SIZE` bytes.
pub fn get_connections() -> Result<Box<[u8; sys::LUMOZEPH_CONNECTIONS_SIZE]>> {
    let mut buffer = zeroed("get_connections")?;
    get_connections_into(&mut buffer)?;
    Ok(buffer)
}

/// [`get_connections`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn get_connections_into(buffer: &mut [u8; sys::LUMOZEPH_CONNECTIONS_SIZE]) -> Result<()> {
    const OPERATION: &str = "get_connections";
    check(unsafe { sys::LUMOZEPH_GetConnections(buffer.as_mut_ptr().cast()) }, OPERATION)
}

/// Reads one connection.
///
/// - `name`: its name, at most 63 bytes
///
/// Returns `LUMOZEPH_CONNECTION_SIZE` bytes.
pub fn get_connection<'a>(name: impl Into<ConnectionName<'a>>) -> Result<[u8; sys::LUMOZEPH_CONNECTION_SIZE]> {
    const OPERATION: &str = "get_connection";
    let name = Terminated::<64>::of(name.into(), OPERATION)?;
    let mut buffer = [0; sys::LUMOZEPH_CONNECTION_SIZE];
    check(unsafe { sys::LUMOZEPH_GetConnection(name.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)?;
    Ok(buffer)
}

/// Reads the virtual MAC address that goes with a name.
///
/// - `name`: the name, at most 63 bytes
///
/// Returns the address.
pub fn get_vmac<'a>(name: impl Into<Text<'a>>) -> Result<Mac> {
    const OPERATION: &str = "get_vmac";
    let name = Terminated::<64>::of(name.into(), OPERATION)?;
    let mut buffer = [0; sys::LUMOZEPH_MAC_SIZE];
    check(unsafe { sys::LUMOZEPH_GetVMAC(name.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)?;
    Ok(Mac::new(buffer))
}

/// The arguments of [`plumb_lumo_connection`].
#[derive(Clone, Copy, Debug)]
pub struct PlumbLumoConnection<'a> {
    /// Its name, at most 63 bytes.
    pub name: ConnectionName<'a>,
    /// At most 15 bytes.
    pub text1: Text<'a>,
    /// At most 17 bytes; left out: none.
    pub text2: Option<Text<'a>>,
    /// At most 31 bytes; left out: none.
    pub text3: Option<Text<'a>>,
    /// At most 255 bytes; left out: none.
    pub text4: Option<Text<'a>>,
}

impl<'a> PlumbLumoConnection<'a> {
    /// With what must be given; all else is left out.
    pub fn new(name: impl Into<ConnectionName<'a>>, text1: impl Into<Text<'a>>) -> Self {
        Self { name: name.into(), text1: text1.into(), text2: None, text3: None, text4: None }
    }
    /// Sets [`text2`](Self#structfield.text2).
    #[must_use]
    pub fn text2(mut self, text2: impl Into<Text<'a>>) -> Self {
        self.text2 = Some(text2.into());
        self
    }
    /// Sets [`text3`](Self#structfield.text3).
    #[must_use]
    pub fn text3(mut self, text3: impl Into<Text<'a>>) -> Self {
        self.text3 = Some(text3.into());
        self
    }
    /// Sets [`text4`](Self#structfield.text4).
    #[must_use]
    pub fn text4(mut self, text4: impl Into<Text<'a>>) -> Self {
        self.text4 = Some(text4.into());
        self
    }
}

/// Plumbs a connection.
pub fn plumb_lumo_connection(with: &PlumbLumoConnection<'_>) -> Result<()> {
    const OPERATION: &str = "plumb_lumo_connection";
    let name = Terminated::<64>::of(with.name, OPERATION)?;
    let text1 = Terminated::<16>::of(with.text1, OPERATION)?;
    let text2 = Terminated::<18>::of_maybe(with.text2, OPERATION)?;
    let text3 = Terminated::<32>::of_maybe(with.text3, OPERATION)?;
    let text4 = Terminated::<256>::of_maybe(with.text4, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_PlumbLumoConnection(
                name.as_ptr(),
                text1.as_ptr(),
                0,
                text2.as_ptr(),
                text3.as_ptr(),
                text4.as_ptr(),
            )
        },
        OPERATION,
    )
}

/// Unplumbs a connection.
///
/// - `name`: its name, at most 63 bytes
pub fn unplumb_lumo_connection<'a>(name: impl Into<ConnectionName<'a>>) -> Result<()> {
    const OPERATION: &str = "unplumb_lumo_connection";
    let name = Terminated::<64>::of(name.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_UnPlumbLumoConnection(name.as_ptr()) }, OPERATION)
}

/// Reads the value of the module's connection-deletion check.
///
/// The length that the module reports is not looked at: if it answers with fewer than four bytes, the rest of the
/// value is undefined.
///
/// Returns the value.
pub fn lumo_dev_check_conn_deletion() -> Result<u32> {
    const OPERATION: &str = "lumo_dev_check_conn_deletion";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_LUMODevCheckConnDeletion(&mut out) }, OPERATION)?;
    Ok(out)
}
