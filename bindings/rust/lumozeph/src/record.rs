//! Records as they lie, and what goes with them.

/// A record of the library's: the same bytes as the record of C.
///
/// # Safety
///
/// It must be `repr(transparent)` over `Raw`, which must have neither padding nor alignment.
pub unsafe trait Record: Copy {
    /// The record of C.
    type Raw: Copy;
}

/// Which way an operation that can do two things does its own.
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub enum Switched {
    /// It undoes, or switches off.
    Off,
    /// It does, or switches on.
    On,
}

impl From<bool> for Switched {
    fn from(on: bool) -> Self {
        if on {
            Self::On
        } else {
            Self::Off
        }
    }
}

pub(crate) fn one_record<R: Record>(raw: &R::Raw) -> &R {
    unsafe { &*(raw as *const R::Raw).cast() }
}

pub(crate) fn all_records<R: Record, const SIZE: usize>(raw: &[R::Raw; SIZE]) -> &[R; SIZE] {
    unsafe { &*(raw as *const [R::Raw; SIZE]).cast() }
}

/// As many as are reported, but no more than there is room for.
pub(crate) fn records<R: Record, const SIZE: usize>(raw: &[R::Raw; SIZE], reported: usize) -> &[R] {
    &all_records(raw)[..reported.min(SIZE)]
}

pub(crate) fn as_raw_mut<R: Record>(record: &mut R) -> *mut R::Raw {
    (record as *mut R).cast()
}
