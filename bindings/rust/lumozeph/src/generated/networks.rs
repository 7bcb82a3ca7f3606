//! Bridge networks and ports.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One network of a bridge as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeNetworkInfo(sys::LumoBridgeNetworkInfo);

impl BridgeNetworkInfo {
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u64 {
        self.0.value1
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u16 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u32 {
        self.0.value4
    }
    /// `value5` as the module reports it.
    #[inline]
    pub fn value5(&self) -> u16 {
        self.0.value5
    }
    /// `value6` as the module reports it.
    #[inline]
    pub fn value6(&self) -> u32 {
        self.0.value6
    }
    /// `value7` as the module reports it.
    #[inline]
    pub fn value7(&self) -> u32 {
        self.0.value7
    }
    /// `value8` as the module reports it.
    #[inline]
    pub fn value8(&self) -> u8 {
        self.0.value8
    }
    /// `data` as the module reports it.
    #[inline]
    pub fn data(&self) -> [u64; 12] {
        self.0.data
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeNetworkInfo {
        &self.0
    }
}

impl From<sys::LumoBridgeNetworkInfo> for BridgeNetworkInfo {
    fn from(raw: sys::LumoBridgeNetworkInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeNetworkInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeNetworkInfo")
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .field("value7", &self.value7())
            .field("value8", &self.value8())
            .field("data", &self.data())
            .finish()
    }
}

unsafe impl Record for BridgeNetworkInfo {
    type Raw = sys::LumoBridgeNetworkInfo;
}

unsafe impl Listed for BridgeNetworkInfo {
    type List = sys::LumoBridgeNetworkList;
    unsafe fn contents(list: *mut sys::LumoBridgeNetworkList) -> (*mut sys::LumoBridgeNetworkInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeNetworkList) {
        sys::LUMOZEPH_ReleaseBridgeNetworks(list);
    }
}

impl Capped for BridgeNetworkInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_NETWORKS_MAX;
}

/// One port of a bridge as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgePortInfo(sys::LumoBridgePortInfo);

impl BridgePortInfo {
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u64 {
        self.0.value1
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u16 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u32 {
        self.0.value4
    }
    /// `data` as the module reports it.
    #[inline]
    pub fn data(&self) -> [u64; 16] {
        self.0.data
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgePortInfo {
        &self.0
    }
}

impl From<sys::LumoBridgePortInfo> for BridgePortInfo {
    fn from(raw: sys::LumoBridgePortInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgePortInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgePortInfo")
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("data", &self.data())
            .finish()
    }
}

unsafe impl Record for BridgePortInfo {
    type Raw = sys::LumoBridgePortInfo;
}

unsafe impl Listed for BridgePortInfo {
    type List = sys::LumoBridgePortList;
    unsafe fn contents(list: *mut sys::LumoBridgePortList) -> (*mut sys::LumoBridgePortInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgePortList) {
        sys::LUMOZEPH_ReleaseBridgePorts(list);
    }
}

impl Capped for BridgePortInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_PORTS_MAX;
}

/// Reads a bridge's networks.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `key`: the bridge's key, at most 63 bytes
///
/// Returns the list.
pub fn get_bridge_networks<'a>(key: impl Into<BridgeKey<'a>>) -> Result<List<BridgeNetworkInfo>> {
    const OPERATION: &str = "get_bridge_networks";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeNetworks(EMPTY.as_ptr(), key.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// The arguments of [`get_bridge_ports`].
#[derive(Clone, Copy, Debug)]
pub struct GetBridgePorts<'a> {
    /// The bridge's key, at most 63 bytes.
    pub key: BridgeKey<'a>,
    /// First of the two values that select the ports; sent as 32 bits.
    pub value16: u16,
    /// Second of them.
    pub value32: u32,
}

impl<'a> GetBridgePorts<'a> {
    /// With what must be given; all else is left out.
    pub fn new(key: impl Into<BridgeKey<'a>>) -> Self {
        Self { key: key.into(), value16: 0, value32: 0 }
    }
    /// Sets [`value16`](Self#structfield.value16).
    #[must_use]
    pub fn value16(mut self, value16: u16) -> Self {
        self.value16 = value16;
        self
    }
    /// Sets [`value32`](Self#structfield.value32).
    #[must_use]
    pub fn value32(mut self, value32: u32) -> Self {
        self.value32 = value32;
        self
    }
}

/// Reads a bridge's ports.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// Returns the list.
pub fn get_bridge_ports(with: &GetBridgePorts<'_>) -> Result<List<BridgePortInfo>> {
    const OPERATION: &str = "get_bridge_ports";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    let mut out = ptr::null_mut();
    check(
        unsafe { sys::LUMOZEPH_GetBridgePorts(EMPTY.as_ptr(), key.as_ptr(), with.value16, with.value32, &mut out) },
        OPERATION,
    )?;
    Ok(unsafe { List::from_raw(out) })
}
