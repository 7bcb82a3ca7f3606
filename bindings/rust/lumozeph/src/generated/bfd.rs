//! BFD sessions and port connections.
//!

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One BFD session as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeBfdSessionInfo(sys::LumoBridgeBfdSessionInfo);

impl BridgeBfdSessionInfo {
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u16 {
        self.0.value1
    }
    /// An address of 6 bytes.
    #[inline]
    pub fn addr1(&self) -> &[u8; 6] {
        &self.0.addr1
    }
    /// An address of 6 bytes.
    #[inline]
    pub fn addr2(&self) -> &[u8; 6] {
        &self.0.addr2
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u8 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u32 {
        self.0.value4
    }
    /// `value5` as the module reports it.
    #[inline]
    pub fn value5(&self) -> u64 {
        self.0.value5
    }
    /// `value6` as the module reports it.
    #[inline]
    pub fn value6(&self) -> u64 {
        self.0.value6
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeBfdSessionInfo {
        &self.0
    }
}

impl From<sys::LumoBridgeBfdSessionInfo> for BridgeBfdSessionInfo {
    fn from(raw: sys::LumoBridgeBfdSessionInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeBfdSessionInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeBfdSessionInfo")
            .field("value1", &self.value1())
            .field("addr1", &self.addr1())
            .field("addr2", &self.addr2())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .finish()
    }
}

unsafe impl Record for BridgeBfdSessionInfo {
    type Raw = sys::LumoBridgeBfdSessionInfo;
}

unsafe impl Listed for BridgeBfdSessionInfo {
    type List = sys::LumoBridgeBfdSessionList;
    unsafe fn contents(list: *mut sys::LumoBridgeBfdSessionList) -> (*mut sys::LumoBridgeBfdSessionInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeBfdSessionList) {
        sys::LUMOZEPH_ReleaseBridgeBFDSessions(list);
    }
}

impl Capped for BridgeBfdSessionInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX;
}

/// Reads BFD sessions.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `key`: an instance key, at most 63 bytes; left out: no key is sent
///
/// Returns the list.
pub fn get_bridge_bfd_sessions(key: Option<AnyKey<'_>>) -> Result<List<BridgeBfdSessionInfo>> {
    const OPERATION: &str = "get_bridge_bfd_sessions";
    let key = Terminated::<64>::of_maybe(key, OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeBFDSessions(key.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Plumbs a port connection for BFD.
///
/// - `port`: the port's name, at most 63 bytes
/// - `text`: at most 15 bytes
/// - `mac`: the MAC address; left out: none, which sends six zero bytes
pub fn plumb_bfd_port_connection<'a>(
    port: impl Into<PortName<'a>>,
    text: impl Into<Text<'a>>,
    mac: Option<Mac>,
) -> Result<()> {
    const OPERATION: &str = "plumb_bfd_port_connection";
    let port = Terminated::<64>::of(port.into(), OPERATION)?;
    let text = Terminated::<16>::of(text.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_PlumbBFDPortConnection(
                port.as_ptr(),
                text.as_ptr(),
                mac.as_ref().map_or(ptr::null(), |mac| mac.as_bytes().as_ptr()),
            )
        },
        OPERATION,
    )
}

/// Unplumbs a port connection for BFD.
///
/// - `port`: the port's name, at most 63 bytes
pub fn unplumb_bfd_port_connection<'a>(port: impl Into<PortName<'a>>) -> Result<()> {
    const OPERATION: &str = "unplumb_bfd_port_connection";
    let port = Terminated::<64>::of(port.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_UnPlumbBFDPortConnection(port.as_ptr()) }, OPERATION)
}

/// Reads the port connections for BFD.
///
/// Returns `LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE` bytes.
pub fn get_bfd_port_connections() -> Result<Box<[u8; sys::LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE]>> {
    let mut buffer = zeroed("get_bfd_port_connections")?;
    get_bfd_port_connections_into(&mut buffer)?;
    Ok(buffer)
}

/// [`get_bfd_port_connections`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn get_bfd_port_connections_into(buffer: &mut [u8; sys::LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE]) -> Result<()> {
    const OPERATION: &str = "get_bfd_port_connections";
    check(unsafe { sys::LUMOZEPH_GetBFDPortConnections(buffer.as_mut_ptr().cast()) }, OPERATION)
}
