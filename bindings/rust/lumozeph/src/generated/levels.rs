//! Runtime levels and queue tunables.
//!
//! Four module-wide 32-bit settings. The library checks no range; the module owns the values. The length that the
//! module reports is not looked at: if it answers a read with fewer than four bytes, the rest of the value is
//! undefined.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// Reads the log level.
///
/// Returns the level.
pub fn get_log_level() -> Result<u32> {
    const OPERATION: &str = "get_log_level";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetLogLevel(&mut out) }, OPERATION)?;
    Ok(out)
}

/// Sets the log level.
///
/// - `level`: the level; what levels there are is the module's
pub fn set_log_level(level: u32) -> Result<()> {
    const OPERATION: &str = "set_log_level";
    check(unsafe { sys::LUMOZEPH_SetLogLevel(level) }, OPERATION)
}

/// Reads the extended log level.
///
/// Returns the level.
pub fn get_extended_log_level() -> Result<u32> {
    const OPERATION: &str = "get_extended_log_level";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetExtendedLogLevel(&mut out) }, OPERATION)?;
    Ok(out)
}

/// Sets the extended log level.
///
/// - `level`: the level; what levels there are is the module's
pub fn set_extended_log_level(level: u32) -> Result<()> {
    const OPERATION: &str = "set_extended_log_level";
    check(unsafe { sys::LUMOZEPH_SetExtendedLogLevel(level) }, OPERATION)
}

/// Reads the statistics level.
///
/// Returns the level.
pub fn get_stats_level() -> Result<u32> {
    const OPERATION: &str = "get_stats_level";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetStatsLevel(&mut out) }, OPERATION)?;
    Ok(out)
}

/// Sets the statistics level.
///
/// - `level`: the level; what levels there are is the module's
pub fn set_stats_level(level: u32) -> Result<()> {
    const OPERATION: &str = "set_stats_level";
    check(unsafe { sys::LUMOZEPH_SetStatsLevel(level) }, OPERATION)
}

/// Reads the size of the transmit dispatch queue.
///
/// Returns the size, in the module's unit.
pub fn get_tx_disp_queue_size() -> Result<u32> {
    const OPERATION: &str = "get_tx_disp_queue_size";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetTxDispQueueSize(&mut out) }, OPERATION)?;
    Ok(out)
}

/// Sets the size of the transmit dispatch queue.
///
/// - `size`: the size, in the module's unit
pub fn set_tx_disp_queue_size(size: u32) -> Result<()> {
    const OPERATION: &str = "set_tx_disp_queue_size";
    check(unsafe { sys::LUMOZEPH_SetTxDispQueueSize(size) }, OPERATION)
}
