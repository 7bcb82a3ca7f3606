//! Statistics.
//!
//! All reads give one record, whose counters its first word chooses.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// Counters.
///
/// Which of them arrive depends on statsKind; all others are zero. By statsKind, as indices into counters:
///
/// - `0`: 0 to 27, but not 8
/// - `1`: 0 to 99, but not 71 and 77; 84 repeats 83
/// - `3`: 1 to 19
/// - `other`: none
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct Stats(sys::LumoStats);

impl Stats {
    /// Chooses the counters.
    #[inline]
    pub fn stats_kind(&self) -> u32 {
        self.0.statsKind
    }
    /// `counters` as the module reports it.
    #[inline]
    pub fn counters(&self) -> [u64; 100] {
        self.0.counters
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoStats {
        &self.0
    }
}

impl From<sys::LumoStats> for Stats {
    fn from(raw: sys::LumoStats) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for Stats {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("Stats")
            .field("stats_kind", &self.stats_kind())
            .field("counters", &self.counters())
            .finish()
    }
}

unsafe impl Record for Stats {
    type Raw = sys::LumoStats;
}

unsafe impl Single for Stats {
    unsafe fn release(record: *mut sys::LumoStats) {
        sys::LUMOZEPH_ReleaseStats(record.cast());
    }
}

/// Reads the counters of an instance's control-plane traffic.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the record.
pub fn get_lumo_instance_cp_stats<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<Owned<Stats>> {
    const OPERATION: &str = "get_lumo_instance_cp_stats";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLumoInstanceCPStats(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Resets the counters of an instance's control-plane traffic.
///
/// - `instance`: its key, at most 63 bytes
pub fn reset_lumo_instance_cp_stats<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<()> {
    const OPERATION: &str = "reset_lumo_instance_cp_stats";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_ResetLumoInstanceCPStats(instance.as_ptr()) }, OPERATION)
}

/// Reads a LIF's counters.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
///
/// Returns the record.
pub fn get_lif_stats<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<Owned<Stats>> {
    const OPERATION: &str = "get_lif_stats";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLifStats(instance.as_ptr(), lif.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Reads a LIF's counters as the module has cached them.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
///
/// Returns the record.
pub fn get_lif_stats_cached<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
) -> Result<Owned<Stats>> {
    const OPERATION: &str = "get_lif_stats_cached";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLifStatsCached(instance.as_ptr(), lif.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Resets a LIF's counters.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
pub fn reset_lif_stats<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<()> {
    const OPERATION: &str = "reset_lif_stats";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_ResetLifStats(instance.as_ptr(), lif.as_ptr()) }, OPERATION)
}

/// Reads the counters of distributed interfaces, of the module as a whole.
///
/// Returns the record.
pub fn get_lumo_di_stats() -> Result<Owned<Stats>> {
    const OPERATION: &str = "get_lumo_di_stats";
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLumoDiStats(&mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Resets the counters of distributed interfaces, of the module as a whole.
pub fn reset_lumo_di_stats() -> Result<()> {
    const OPERATION: &str = "reset_lumo_di_stats";
    check(unsafe { sys::LUMOZEPH_ResetLumoDiStats() }, OPERATION)
}
