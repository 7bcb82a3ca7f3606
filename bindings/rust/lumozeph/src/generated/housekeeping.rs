//! Flush, full-sync save and preparation for unloading.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// The arguments of [`generic_flush`].
#[derive(Clone, Copy, Debug, Default)]
pub struct GenericFlush<'a> {
    /// Passed on as it stands.
    pub value1: u32,
    /// Passed on as it stands.
    pub value2: u8,
    /// Passed on as it stands.
    pub value3: u8,
    /// Passed on as it stands.
    pub value4: u8,
    /// At most 63 bytes; left out: none.
    pub text: Option<Text<'a>>,
    /// Passed on as it stands.
    pub value5: u32,
}

impl<'a> GenericFlush<'a> {
    /// All zero.
    pub fn new() -> Self {
        Self::default()
    }
    /// Sets [`value1`](Self#structfield.value1).
    #[must_use]
    pub fn value1(mut self, value1: u32) -> Self {
        self.value1 = value1;
        self
    }
    /// Sets [`value2`](Self#structfield.value2).
    #[must_use]
    pub fn value2(mut self, value2: u8) -> Self {
        self.value2 = value2;
        self
    }
    /// Sets [`value3`](Self#structfield.value3).
    #[must_use]
    pub fn value3(mut self, value3: u8) -> Self {
        self.value3 = value3;
        self
    }
    /// Sets [`value4`](Self#structfield.value4).
    #[must_use]
    pub fn value4(mut self, value4: u8) -> Self {
        self.value4 = value4;
        self
    }
    /// Sets [`text`](Self#structfield.text).
    #[must_use]
    pub fn text(mut self, text: impl Into<Text<'a>>) -> Self {
        self.text = Some(text.into());
        self
    }
    /// Sets [`value5`](Self#structfield.value5).
    #[must_use]
    pub fn value5(mut self, value5: u32) -> Self {
        self.value5 = value5;
        self
    }
}

/// Sends the module's generic flush.
///
/// What is flushed, and what the values and the text have to do with it, is the module's.
pub fn generic_flush(with: &GenericFlush<'_>) -> Result<()> {
    const OPERATION: &str = "generic_flush";
    let text = Terminated::<64>::of_maybe(with.text, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_GenericFlush(with.value1, with.value2, with.value3, with.value4, text.as_ptr(), with.value5)
        },
        OPERATION,
    )
}

/// Prepares the module for being unloaded.
pub fn pre_unload() -> Result<()> {
    const OPERATION: &str = "pre_unload";
    check(unsafe { sys::LUMOZEPH_PreUnload() }, OPERATION)
}

/// Starts a full-sync save of the whole module.
///
/// - `value`: passed on as it stands
///
/// Returns what the module writes.
pub fn perform_full_sync_save(value: u8) -> Result<u32> {
    const OPERATION: &str = "perform_full_sync_save";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_PerformFullSyncSave(value, &mut out) }, OPERATION)?;
    Ok(out)
}

/// Reads the status of the full-sync save.
///
/// Returns what the module writes.
pub fn get_full_sync_save_status() -> Result<u32> {
    const OPERATION: &str = "get_full_sync_save_status";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetFullSyncSaveStatus(&mut out) }, OPERATION)?;
    Ok(out)
}
