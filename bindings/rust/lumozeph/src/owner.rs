//! What operations hand out: memory that frees itself.

use crate::record::Record;
use std::ops::{Deref, DerefMut};
use std::os::raw::c_void;
use std::{fmt, ptr, slice};

extern "C" {
    /// That of C, for what the library has no function of its own for.
    pub(crate) fn free(block: *mut c_void);
}

/// A record that is read by itself.
///
/// # Safety
///
/// What is released is what the library hands out for such a record.
pub unsafe trait Single: Record {
    /// Frees one.
    ///
    /// # Safety
    ///
    /// The library has handed it out, and nothing uses it any more.
    unsafe fn release(record: *mut Self::Raw);
}

/// A record of which there are lists.
///
/// # Safety
///
/// The contents are those of the list, for as long as it is not released.
pub unsafe trait Listed: Record {
    /// The list of C.
    type List;

    /// The records of a list, and how many they are.
    ///
    /// # Safety
    ///
    /// The list is one that the library has filled.
    unsafe fn contents(list: *mut Self::List) -> (*mut Self::Raw, usize);

    /// Frees a list with its records.
    ///
    /// # Safety
    ///
    /// The library has handed it out, and nothing uses it any more.
    unsafe fn release(list: *mut Self::List);
}

/// A record of which a list holds so many at most.
pub trait Capped: Listed {
    /// The number of records.
    const CAP: usize;
}

/// A record, which is freed with its owner.
pub struct Owned<R: Single>(ptr::NonNull<R::Raw>);

// Memory of the C library's, which any thread may read and free.
unsafe impl<R: Single + Send> Send for Owned<R> {}
unsafe impl<R: Single + Sync> Sync for Owned<R> {}

impl<R: Single> Owned<R> {
    /// Takes over what a function of the library has handed out.
    ///
    /// # Safety
    ///
    /// It was handed out by a function whose results `R` releases, and nothing else frees it.
    pub unsafe fn from_raw(record: *mut R::Raw) -> Self {
        Self(ptr::NonNull::new_unchecked(record))
    }

    /// Gives the record to the caller, who frees it.
    pub fn into_raw(self) -> *mut R::Raw {
        let record = self.0.as_ptr();
        std::mem::forget(self);
        record
    }
}

impl<R: Single> Drop for Owned<R> {
    fn drop(&mut self) {
        unsafe { R::release(self.0.as_ptr()) }
    }
}

impl<R: Single> Deref for Owned<R> {
    type Target = R;
    fn deref(&self) -> &R {
        unsafe { self.0.cast().as_ref() }
    }
}

impl<R: Single> DerefMut for Owned<R> {
    fn deref_mut(&mut self) -> &mut R {
        unsafe { self.0.cast().as_mut() }
    }
}

impl<R: Single> AsRef<R> for Owned<R> {
    fn as_ref(&self) -> &R {
        self
    }
}

impl<R: Single + fmt::Debug> fmt::Debug for Owned<R> {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        (**self).fmt(formatter)
    }
}

/// A list, which is freed with its owner: a slice of its records as they lie.
pub struct List<R: Listed>(ptr::NonNull<R::List>);

// As above.
unsafe impl<R: Listed + Send> Send for List<R> {}
unsafe impl<R: Listed + Sync> Sync for List<R> {}

impl<R: Listed> List<R> {
    /// Takes over what a function of the library has handed out.
    ///
    /// # Safety
    ///
    /// It was handed out by a function whose results `R` releases, and nothing else frees it.
    pub unsafe fn from_raw(list: *mut R::List) -> Self {
        Self(ptr::NonNull::new_unchecked(list))
    }

    /// Gives the list to the caller, who frees it.
    pub fn into_raw(self) -> *mut R::List {
        let list = self.0.as_ptr();
        std::mem::forget(self);
        list
    }

    /// Whether the list is at its cap: there may be more than it holds.
    pub fn truncated(&self) -> bool
    where
        R: Capped,
    {
        self.len() >= R::CAP
    }
}

impl<R: Listed> Drop for List<R> {
    fn drop(&mut self) {
        unsafe { R::release(self.0.as_ptr()) }
    }
}

impl<R: Listed> Deref for List<R> {
    type Target = [R];
    fn deref(&self) -> &[R] {
        match unsafe { R::contents(self.0.as_ptr()) } {
            (_, 0) => &[],
            (records, count) => unsafe { slice::from_raw_parts(records.cast(), count) },
        }
    }
}

impl<R: Listed> DerefMut for List<R> {
    fn deref_mut(&mut self) -> &mut [R] {
        match unsafe { R::contents(self.0.as_ptr()) } {
            (_, 0) => &mut [],
            (records, count) => unsafe { slice::from_raw_parts_mut(records.cast(), count) },
        }
    }
}

impl<R: Listed> AsRef<[R]> for List<R> {
    fn as_ref(&self) -> &[R] {
        self
    }
}

impl<'a, R: Listed> IntoIterator for &'a List<R> {
    type Item = &'a R;
    type IntoIter = slice::Iter<'a, R>;
    fn into_iter(self) -> Self::IntoIter {
        self.iter()
    }
}

impl<'a, R: Listed> IntoIterator for &'a mut List<R> {
    type Item = &'a mut R;
    type IntoIter = slice::IterMut<'a, R>;
    fn into_iter(self) -> Self::IntoIter {
        self.iter_mut()
    }
}

impl<R: Listed + fmt::Debug> fmt::Debug for List<R> {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        (**self).fmt(formatter)
    }
}
