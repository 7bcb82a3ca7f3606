//! Control-plane attachment.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One entry of a synchronisation state.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct CpSyncStateEntry(sys::LumoCPSyncStateEntry);

impl CpSyncStateEntry {
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
    pub fn value3(&self) -> u32 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u32 {
        self.0.value4
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
    /// `values7` as the module reports it.
    #[inline]
    pub fn values7(&self) -> [u64; 8] {
        self.0.values7
    }
    /// `values8` as the module reports it.
    #[inline]
    pub fn values8(&self) -> [u64; 23] {
        self.0.values8
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoCPSyncStateEntry {
        &self.0
    }
}

impl From<sys::LumoCPSyncStateEntry> for CpSyncStateEntry {
    fn from(raw: sys::LumoCPSyncStateEntry) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for CpSyncStateEntry {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("CpSyncStateEntry")
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .field("values7", &self.values7())
            .field("values8", &self.values8())
            .finish()
    }
}

unsafe impl Record for CpSyncStateEntry {
    type Raw = sys::LumoCPSyncStateEntry;
}

/// The state of an instance's synchronisation with its control plane.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct CpSyncState(sys::LumoCPSyncState);

impl CpSyncState {
    /// `entries` as the module reports it.
    #[inline]
    pub fn entries(&self) -> &[CpSyncStateEntry; 5] {
        all_records(&self.0.entries)
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoCPSyncState {
        &self.0
    }
}

impl From<sys::LumoCPSyncState> for CpSyncState {
    fn from(raw: sys::LumoCPSyncState) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for CpSyncState {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter.debug_struct("CpSyncState").field("entries", &self.entries()).finish()
    }
}

unsafe impl Record for CpSyncState {
    type Raw = sys::LumoCPSyncState;
}

unsafe impl Single for CpSyncState {
    unsafe fn release(record: *mut sys::LumoCPSyncState) {
        sys::LUMOZEPH_ReleaseStats(record.cast());
    }
}

/// Activates the module's control-plane connection.
///
/// - `value`: passed on as it stands
pub fn cp_activate(value: u32) -> Result<()> {
    const OPERATION: &str = "cp_activate";
    check(unsafe { sys::LUMOZEPH_CPActivate(value) }, OPERATION)
}

/// Sets an instance's control-plane address.
///
/// - `instance`: its key, at most 63 bytes
/// - `address`: IPv4
pub fn set_cp_ip<'a>(instance: impl Into<InstanceKey<'a>>, address: Ipv4Addr) -> Result<()> {
    const OPERATION: &str = "set_cp_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetCPIp(instance.as_ptr(), raw_ipv4(address)) }, OPERATION)
}

/// Reads an instance's synchronisation state.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the record.
pub fn get_lumo_instance_cp_sync_state<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<Owned<CpSyncState>> {
    const OPERATION: &str = "get_lumo_instance_cp_sync_state";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLumoInstanceCPSyncState(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Sets an instance's synchronisation state.
///
/// - `instance`: its key, at most 63 bytes
/// - `state`: passed on as it stands
pub fn set_lumo_instance_cp_sync_state<'a>(instance: impl Into<InstanceKey<'a>>, state: u32) -> Result<()> {
    const OPERATION: &str = "set_lumo_instance_cp_sync_state";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetLumoInstanceCPSyncState(instance.as_ptr(), state) }, OPERATION)
}
