//! Replies in the module's own layout.

use crate::error::{Error, Result};
use crate::owner::free;
use std::alloc::{alloc_zeroed, Layout};
use std::os::raw::c_void;
use std::{ptr, slice};

/// Entries of so many bytes each, in the module's layout, in a buffer of the caller's.
#[derive(Clone, Copy, Debug)]
pub struct Entries<'a, const SIZE: usize> {
    bytes: &'a [u8],
    reported: usize,
}

impl<'a, const SIZE: usize> Entries<'a, SIZE> {
    /// As many entries as are reported, but no more than there is room for.
    pub(crate) fn new(buffer: &'a [u8], reported: usize) -> Self {
        let count = reported.min(buffer.len() / SIZE);
        Self { bytes: &buffer[..count * SIZE], reported }
    }

    /// How many entries are here.
    pub fn len(&self) -> usize {
        self.bytes.len() / SIZE
    }

    /// Whether none is here.
    pub fn is_empty(&self) -> bool {
        self.bytes.is_empty()
    }

    /// How many there are, as the module says.
    pub fn reported(&self) -> usize {
        self.reported
    }

    /// Whether the module says that there are more than are here.
    pub fn truncated(&self) -> bool {
        self.reported > self.len()
    }

    /// The entries.
    pub fn iter(&self) -> slice::ChunksExact<'a, u8> {
        self.bytes.chunks_exact(SIZE)
    }
}

impl<'a, const SIZE: usize> IntoIterator for Entries<'a, SIZE> {
    type Item = &'a [u8];
    type IntoIter = slice::ChunksExact<'a, u8>;
    fn into_iter(self) -> Self::IntoIter {
        self.iter()
    }
}

/// A block of entries, which is freed with its owner.
///
/// The block has room for 8000 or for 30000 entries, and the library does not tell which. [`EntryBlock::entries`] are
/// those that are sure to lie in it.
#[derive(Debug)]
pub struct EntryBlock<const SIZE: usize> {
    block: ptr::NonNull<c_void>,
    reported: usize,
}

// Memory of the C library's, which any thread may read and free.
unsafe impl<const SIZE: usize> Send for EntryBlock<SIZE> {}
unsafe impl<const SIZE: usize> Sync for EntryBlock<SIZE> {}

/// The smaller room, and the one where there are more entries than that.
const SURE_ROOM: usize = 8000;
const LARGEST_ROOM: usize = 30000;

impl<const SIZE: usize> EntryBlock<SIZE> {
    pub(crate) unsafe fn from_raw(block: *mut c_void, reported: usize) -> Self {
        Self { block: ptr::NonNull::new_unchecked(block), reported }
    }

    /// The entries that are sure to lie in the block.
    pub fn entries(&self) -> Entries<'_, SIZE> {
        unsafe { self.within(SURE_ROOM) }
    }

    /// All entries that the module reports.
    ///
    /// # Safety
    ///
    /// The module must be well behaved: it reports no more entries than it was given room for.
    pub unsafe fn all(&self) -> Entries<'_, SIZE> {
        self.within(LARGEST_ROOM)
    }

    /// How many there are, as the module says.
    pub fn reported(&self) -> usize {
        self.reported
    }

    unsafe fn within(&self, room: usize) -> Entries<'_, SIZE> {
        let count = self.reported.min(room);
        Entries::new(slice::from_raw_parts(self.block.as_ptr().cast(), count * SIZE), self.reported)
    }
}

impl<const SIZE: usize> Drop for EntryBlock<SIZE> {
    fn drop(&mut self) {
        unsafe { free(self.block.as_ptr()) }
    }
}

/// Zeros for a large reply.
pub(crate) fn zeroed<const SIZE: usize>(operation: &'static str) -> Result<Box<[u8; SIZE]>> {
    let bytes = unsafe { alloc_zeroed(Layout::new::<[u8; SIZE]>()) };
    if bytes.is_null() {
        return Err(Error::out_of_memory(operation));
    }
    Ok(unsafe { Box::from_raw(bytes.cast()) })
}
