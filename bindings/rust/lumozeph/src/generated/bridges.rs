//! Bridges.
//!
//! Layer-2 bridges, named by an instance key as router instances are.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One bridge as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeInstanceInfo(sys::LumoBridgeInstanceInfo);

impl BridgeInstanceInfo {
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
    /// The bridge's name.
    #[inline]
    pub fn name(&self) -> BridgeKey<'_> {
        Name::of_field(&self.0.name)
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
    /// `text1` as the module reports it.
    #[inline]
    pub fn text1(&self) -> Text<'_> {
        Name::of_field(&self.0.text1)
    }
    /// `text2` as the module reports it.
    #[inline]
    pub fn text2(&self) -> Text<'_> {
        Name::of_field(&self.0.text2)
    }
    /// `value5` as the module reports it.
    #[inline]
    pub fn value5(&self) -> u32 {
        self.0.value5
    }
    /// `value6` as the module reports it.
    #[inline]
    pub fn value6(&self) -> u32 {
        self.0.value6
    }
    /// `data` as the module reports it.
    #[inline]
    pub fn data(&self) -> [u64; 10] {
        self.0.data
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeInstanceInfo {
        &self.0
    }
}

impl From<sys::LumoBridgeInstanceInfo> for BridgeInstanceInfo {
    fn from(raw: sys::LumoBridgeInstanceInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeInstanceInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeInstanceInfo")
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("name", &self.name())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("text1", &self.text1())
            .field("text2", &self.text2())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .field("data", &self.data())
            .finish()
    }
}

unsafe impl Record for BridgeInstanceInfo {
    type Raw = sys::LumoBridgeInstanceInfo;
}

unsafe impl Single for BridgeInstanceInfo {
    unsafe fn release(record: *mut sys::LumoBridgeInstanceInfo) {
        sys::LUMOZEPH_ReleaseBridgeInstance(record);
    }
}

unsafe impl Listed for BridgeInstanceInfo {
    type List = sys::LumoBridgeInstanceList;
    unsafe fn contents(list: *mut sys::LumoBridgeInstanceList) -> (*mut sys::LumoBridgeInstanceInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeInstanceList) {
        sys::LUMOZEPH_ReleaseBridgeInstances(list);
    }
}

impl Capped for BridgeInstanceInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGES_MAX;
}

/// Reads one bridge.
///
/// - `key`: its key, at most 63 bytes
///
/// Returns the record.
pub fn get_bridge_instance<'a>(key: impl Into<BridgeKey<'a>>) -> Result<Owned<BridgeInstanceInfo>> {
    const OPERATION: &str = "get_bridge_instance";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeInstance(key.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Reads all bridges.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// Returns the list.
pub fn get_bridge_instances() -> Result<List<BridgeInstanceInfo>> {
    const OPERATION: &str = "get_bridge_instances";
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeInstances(&mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Creates a bridge.
///
/// - `key`: its key, at most 63 bytes
/// - `value`: passed on as it stands
pub fn bridge_add<'a>(key: impl Into<BridgeKey<'a>>, value: u32) -> Result<()> {
    const OPERATION: &str = "bridge_add";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeAdd(key.as_ptr(), value) }, OPERATION)
}

/// Removes a bridge.
///
/// - `key`: its key, at most 63 bytes
/// - `value`: passed on as it stands
pub fn bridge_del<'a>(key: impl Into<BridgeKey<'a>>, value: u32) -> Result<()> {
    const OPERATION: &str = "bridge_del";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeDel(key.as_ptr(), value) }, OPERATION)
}

/// Switches a bridge on.
///
/// - `key`: its key, at most 63 bytes
/// - `value`: one byte, passed on as it stands; it does not choose between on and off
pub fn bridge_enable<'a>(key: impl Into<BridgeKey<'a>>, value: u8) -> Result<()> {
    const OPERATION: &str = "bridge_enable";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeEnable(key.as_ptr(), value) }, OPERATION)
}

/// Switches a bridge off.
///
/// - `key`: its key, at most 63 bytes
/// - `value`: one byte, passed on as it stands; it does not choose between on and off
pub fn bridge_disable<'a>(key: impl Into<BridgeKey<'a>>, value: u8) -> Result<()> {
    const OPERATION: &str = "bridge_disable";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeDisable(key.as_ptr(), value) }, OPERATION)
}

/// Sets a bridge's high-availability administrative state.
///
/// - `key`: its key, at most 63 bytes
/// - `state`: passed on as it stands
pub fn bridge_set_ha_admin_state<'a>(key: impl Into<BridgeKey<'a>>, state: u32) -> Result<()> {
    const OPERATION: &str = "bridge_set_ha_admin_state";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeSetHAAdminState(key.as_ptr(), state) }, OPERATION)
}

/// Sets a bridge's replication mode.
///
/// - `key`: its key, at most 63 bytes
/// - `mode`: passed on as it stands
pub fn set_bridge_rep_mode<'a>(key: impl Into<BridgeKey<'a>>, mode: u32) -> Result<()> {
    const OPERATION: &str = "set_bridge_rep_mode";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetBridgeRepMode(key.as_ptr(), mode) }, OPERATION)
}

/// The arguments of [`bridge_set_config`].
#[derive(Clone, Copy, Debug)]
pub struct BridgeSetConfig<'a> {
    /// The bridge's key, at most 63 bytes.
    pub key: BridgeKey<'a>,
    /// The number that is sent, sign-extended.
    pub command: i32,
    /// Passed on as it stands.
    pub value: u32,
}

impl<'a> BridgeSetConfig<'a> {
    /// With what must be given; all else is left out.
    pub fn new(key: impl Into<BridgeKey<'a>>) -> Self {
        Self { key: key.into(), command: 0, value: 0 }
    }
    /// Sets [`command`](Self#structfield.command).
    #[must_use]
    pub fn command(mut self, command: i32) -> Self {
        self.command = command;
        self
    }
    /// Sets [`value`](Self#structfield.value).
    #[must_use]
    pub fn value(mut self, value: u32) -> Self {
        self.value = value;
        self
    }
}

/// Sets one numeric setting of a bridge, which the command number chooses.
///
/// The number is sent unchecked, also that of a command of another chapter. No room is offered for a reply.
pub fn bridge_set_config(with: &BridgeSetConfig<'_>) -> Result<()> {
    const OPERATION: &str = "bridge_set_config";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeSetConfig(key.as_ptr(), with.command, with.value) }, OPERATION)
}
