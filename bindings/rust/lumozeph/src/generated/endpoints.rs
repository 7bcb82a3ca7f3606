//! Bridge endpoints.
//!

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One bridge endpoint as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeEndpointInfo(sys::LumoBridgeEndpointInfo);

impl BridgeEndpointInfo {
    /// As the module sent it, not necessarily terminated.
    #[inline]
    pub fn ident(&self) -> Text<'_> {
        Name::of_field(&self.0.ident)
    }
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u16 {
        self.0.value1
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u8 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u32 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u32 {
        self.0.value4
    }
    /// `block` as the module reports it.
    #[inline]
    pub fn block(&self) -> &[u8; 96] {
        &self.0.block
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeEndpointInfo {
        &self.0
    }
}

impl From<sys::LumoBridgeEndpointInfo> for BridgeEndpointInfo {
    fn from(raw: sys::LumoBridgeEndpointInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeEndpointInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeEndpointInfo")
            .field("ident", &self.ident())
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("block", &self.block())
            .finish()
    }
}

unsafe impl Record for BridgeEndpointInfo {
    type Raw = sys::LumoBridgeEndpointInfo;
}

unsafe impl Listed for BridgeEndpointInfo {
    type List = sys::LumoBridgeEndpointList;
    unsafe fn contents(list: *mut sys::LumoBridgeEndpointList) -> (*mut sys::LumoBridgeEndpointInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeEndpointList) {
        sys::LUMOZEPH_ReleaseBridgeEndpoints(list);
    }
}

impl Capped for BridgeEndpointInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_ENDPOINTS_MAX;
}

/// The arguments of [`add_bridge_endpoint`].
#[derive(Clone, Copy, Debug)]
pub struct AddBridgeEndpoint<'a> {
    /// Its key, at most 63 bytes.
    pub key: EndpointKey<'a>,
    /// At most 63 bytes.
    pub text1: Text<'a>,
    /// Its name, at most 63 bytes.
    pub name: EndpointName<'a>,
    /// Passed on as it stands.
    pub value1: u32,
    /// Passed on as it stands.
    pub value2: u32,
    /// At most 63 bytes.
    pub text2: Text<'a>,
    /// Passed on as it stands.
    pub value3: u16,
    /// Passed on as it stands.
    pub flag1: u8,
    /// At most 63 bytes.
    pub text3: Text<'a>,
    /// Passed on as it stands.
    pub flag2: u8,
}

impl<'a> AddBridgeEndpoint<'a> {
    /// With what must be given; all else is left out.
    pub fn new(
        key: impl Into<EndpointKey<'a>>,
        text1: impl Into<Text<'a>>,
        name: impl Into<EndpointName<'a>>,
        text2: impl Into<Text<'a>>,
        text3: impl Into<Text<'a>>,
    ) -> Self {
        Self {
            key: key.into(),
            text1: text1.into(),
            name: name.into(),
            value1: 0,
            value2: 0,
            text2: text2.into(),
            value3: 0,
            flag1: 0,
            text3: text3.into(),
            flag2: 0,
        }
    }
    /// Sets [`value1`](Self#structfield.value1).
    #[must_use]
    pub fn value1(mut self, value1: u32) -> Self {
        self.value1 = value1;
        self
    }
    /// Sets [`value2`](Self#structfield.value2).
    #[must_use]
    pub fn value2(mut self, value2: u32) -> Self {
        self.value2 = value2;
        self
    }
    /// Sets [`value3`](Self#structfield.value3).
    #[must_use]
    pub fn value3(mut self, value3: u16) -> Self {
        self.value3 = value3;
        self
    }
    /// Sets [`flag1`](Self#structfield.flag1).
    #[must_use]
    pub fn flag1(mut self, flag1: u8) -> Self {
        self.flag1 = flag1;
        self
    }
    /// Sets [`flag2`](Self#structfield.flag2).
    #[must_use]
    pub fn flag2(mut self, flag2: u8) -> Self {
        self.flag2 = flag2;
        self
    }
}

/// Adds a bridge endpoint.
pub fn add_bridge_endpoint(with: &AddBridgeEndpoint<'_>) -> Result<()> {
    const OPERATION: &str = "add_bridge_endpoint";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    let text1 = Terminated::<64>::of(with.text1, OPERATION)?;
    let name = Terminated::<64>::of(with.name, OPERATION)?;
    let text2 = Terminated::<64>::of(with.text2, OPERATION)?;
    let text3 = Terminated::<64>::of(with.text3, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_AddBridgeEndpoint(
                key.as_ptr(),
                text1.as_ptr(),
                name.as_ptr(),
                with.value1,
                with.value2,
                text2.as_ptr(),
                with.value3,
                with.flag1,
                text3.as_ptr(),
                with.flag2,
            )
        },
        OPERATION,
    )
}

/// Deletes a bridge endpoint.
///
/// - `key`: its key, at most 63 bytes
/// - `name`: its name, at most 63 bytes
pub fn del_bridge_endpoint<'a>(key: impl Into<EndpointKey<'a>>, name: impl Into<EndpointName<'a>>) -> Result<()> {
    const OPERATION: &str = "del_bridge_endpoint";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    let name = Terminated::<64>::of(name.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelBridgeEndpoint(key.as_ptr(), name.as_ptr()) }, OPERATION)
}

/// Flushes the bridge endpoints.
///
/// - `on`: chooses between two commands of the module
pub fn flush_bridge_endpoint(on: Switched) -> Result<()> {
    const OPERATION: &str = "flush_bridge_endpoint";
    check(unsafe { sys::LUMOZEPH_FlushBridgeEndpoint(on as i8) }, OPERATION)
}

/// Reads bridge endpoints.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `key`: an instance key, at most 63 bytes; left out: no key is sent
///
/// Returns the list.
pub fn get_bridge_endpoints(key: Option<AnyKey<'_>>) -> Result<List<BridgeEndpointInfo>> {
    const OPERATION: &str = "get_bridge_endpoints";
    let key = Terminated::<64>::of_maybe(key, OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeEndpoints(key.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Reads the statistics of a bridge endpoint.
///
/// - `key`: its key, at most 63 bytes
///
/// Returns `LUMOZEPH_BE_STATS_SIZE` bytes.
pub fn get_be_stats<'a>(key: impl Into<EndpointKey<'a>>) -> Result<[u8; sys::LUMOZEPH_BE_STATS_SIZE]> {
    const OPERATION: &str = "get_be_stats";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    let mut buffer = [0; sys::LUMOZEPH_BE_STATS_SIZE];
    check(unsafe { sys::LUMOZEPH_GetBeStats(key.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)?;
    Ok(buffer)
}

/// Reads the status of a bridge endpoint.
///
/// - `key`: its key, at most 63 bytes
///
/// Returns `LUMOZEPH_BE_STATUS_SIZE` bytes.
pub fn get_be_status<'a>(key: impl Into<EndpointKey<'a>>) -> Result<[u8; sys::LUMOZEPH_BE_STATUS_SIZE]> {
    const OPERATION: &str = "get_be_status";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    let mut buffer = [0; sys::LUMOZEPH_BE_STATUS_SIZE];
    check(unsafe { sys::LUMOZEPH_GetBeStatus(key.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)?;
    Ok(buffer)
}

/// Reads all bridge endpoints as the module lays them out.
///
/// - `buffer`: room for the entries
///
/// Returns the entries that lie in the buffer, and how many the module reports.
pub fn get_be_all(buffer: &mut [u8]) -> Result<Entries<'_, { sys::LUMOZEPH_BE_SIZE }>> {
    const OPERATION: &str = "get_be_all";
    let mut count = 0;
    let room = u32::try_from(buffer.len()).unwrap_or(u32::MAX);
    check(unsafe { sys::LUMOZEPH_GetBeAll(buffer.as_mut_ptr().cast(), room, &mut count) }, OPERATION)?;
    Ok(Entries::new(buffer, count as usize))
}
