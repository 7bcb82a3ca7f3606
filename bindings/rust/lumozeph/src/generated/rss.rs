//! Software receive-side scaling.
//!
//! A target is named by a text of at most 63 bytes. The lengths that the module reports are not looked at: what it
//! does not write of a reply is undefined.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// Statistics of a target.
///
/// What is "not copied", and entries past rssEntryCount, are undefined here.
#[repr(transparent)]
#[derive(Clone, Copy, Default)]
pub struct RssStats(sys::LumoRssStats);

impl RssStats {
    /// As reported.
    #[inline]
    pub fn rss_entry_count(&self) -> u32 {
        self.0.rssEntryCount
    }
    /// As many as `rss_entry_count` says, but no more than there is room for.
    #[inline]
    pub fn rss_word(&self) -> impl ExactSizeIterator<Item = u32> {
        self.0.rssWord.into_iter().take(self.0.rssEntryCount as usize)
    }
    /// As many as `rss_entry_count` says, but no more than there is room for.
    #[inline]
    pub fn rss_counter1(&self) -> impl ExactSizeIterator<Item = u64> {
        self.0.rssCounter1.into_iter().take(self.0.rssEntryCount as usize)
    }
    /// As many as `rss_entry_count` says, but no more than there is room for.
    #[inline]
    pub fn rss_counter2(&self) -> impl ExactSizeIterator<Item = u64> {
        self.0.rssCounter2.into_iter().take(self.0.rssEntryCount as usize)
    }
    /// As many as `rss_entry_count` says, but no more than there is room for.
    #[inline]
    pub fn rss_counter3(&self) -> impl ExactSizeIterator<Item = u64> {
        self.0.rssCounter3.into_iter().take(self.0.rssEntryCount as usize)
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoRssStats {
        &self.0
    }
}

impl From<sys::LumoRssStats> for RssStats {
    fn from(raw: sys::LumoRssStats) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for RssStats {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("RssStats")
            .field("rss_entry_count", &self.rss_entry_count())
            .field("rss_word", &self.rss_word().collect::<Vec<_>>())
            .field("rss_counter1", &self.rss_counter1().collect::<Vec<_>>())
            .field("rss_counter2", &self.rss_counter2().collect::<Vec<_>>())
            .field("rss_counter3", &self.rss_counter3().collect::<Vec<_>>())
            .finish()
    }
}

unsafe impl Record for RssStats {
    type Raw = sys::LumoRssStats;
}

unsafe impl Single for RssStats {
    unsafe fn release(record: *mut sys::LumoRssStats) {
        free(record.cast());
    }
}

/// Tunables of a target.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct RssTunables(sys::LumoRssTunables);

impl RssTunables {
    /// Read and set.
    #[inline]
    pub fn value1(&self) -> u64 {
        self.0.value1
    }
    /// Only read.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.0.value2
    }
    /// Sets [`value1`](Self::value1).
    pub fn set_value1(&mut self, value1: u64) -> &mut Self {
        self.0.value1 = value1;
        self
    }
    /// Sets [`value2`](Self::value2).
    pub fn set_value2(&mut self, value2: u32) -> &mut Self {
        self.0.value2 = value2;
        self
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoRssTunables {
        &self.0
    }
}

impl From<sys::LumoRssTunables> for RssTunables {
    fn from(raw: sys::LumoRssTunables) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for RssTunables {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter.debug_struct("RssTunables").field("value1", &self.value1()).field("value2", &self.value2()).finish()
    }
}

unsafe impl Record for RssTunables {
    type Raw = sys::LumoRssTunables;
}

/// An indirection table that is to be set.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct RssIndTable(sys::LumoRssIndTable);

impl RssIndTable {
    /// `entries` as the module reports it.
    #[inline]
    pub fn entries(&self) -> &[u8; 128] {
        &self.0.entries
    }
    /// Entries to send, at most 128; none if it is 0 or negative.
    #[inline]
    pub fn size(&self) -> i32 {
        self.0.size
    }
    /// Sets [`entries`](Self::entries).
    pub fn set_entries(&mut self, entries: [u8; 128]) -> &mut Self {
        self.0.entries = entries;
        self
    }
    /// Sets [`size`](Self::size).
    pub fn set_size(&mut self, size: i32) -> &mut Self {
        self.0.size = size;
        self
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoRssIndTable {
        &self.0
    }
}

impl From<sys::LumoRssIndTable> for RssIndTable {
    fn from(raw: sys::LumoRssIndTable) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for RssIndTable {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter.debug_struct("RssIndTable").field("entries", &self.entries()).field("size", &self.size()).finish()
    }
}

unsafe impl Record for RssIndTable {
    type Raw = sys::LumoRssIndTable;
}

/// Reads a target's statistics.
///
/// A reply that is too short is no error. EBADMSG can only be the module's own answer.
///
/// - `target`: its name, at most 63 bytes
///
/// Returns the record.
pub fn soft_rss_get_stats<'a>(target: impl Into<TargetName<'a>>) -> Result<Owned<RssStats>> {
    const OPERATION: &str = "soft_rss_get_stats";
    let target = Terminated::<64>::of(target.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_SoftRSSGetStats(target.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Resets a target's statistics.
///
/// - `target`: its name, at most 63 bytes
pub fn soft_rss_stats_reset<'a>(target: impl Into<TargetName<'a>>) -> Result<()> {
    const OPERATION: &str = "soft_rss_stats_reset";
    let target = Terminated::<64>::of(target.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SoftRSSStatsReset(target.as_ptr()) }, OPERATION)
}

/// Reads a target's tunables.
///
/// - `target`: its name, at most 63 bytes
///
/// Returns the value.
///
/// # Errors
///
/// - ENOMEM: the library could not allocate memory for the module's reply
pub fn soft_rss_get_tunables<'a>(target: impl Into<TargetName<'a>>) -> Result<RssTunables> {
    const OPERATION: &str = "soft_rss_get_tunables";
    let target = Terminated::<64>::of(target.into(), OPERATION)?;
    let mut record = RssTunables::default();
    check(unsafe { sys::LUMOZEPH_SoftRSSGetTunables(target.as_ptr(), as_raw_mut(&mut record)) }, OPERATION)?;
    Ok(record)
}

/// Sets a target's tunables: value1 only.
///
/// - `target`: its name, at most 63 bytes
/// - `tunables`: value1 of which is sent
pub fn soft_rss_set_tunables<'a>(target: impl Into<TargetName<'a>>, tunables: &RssTunables) -> Result<()> {
    const OPERATION: &str = "soft_rss_set_tunables";
    let target = Terminated::<64>::of(target.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SoftRSSSetTunables(target.as_ptr(), tunables.as_raw()) }, OPERATION)
}

/// Reads a target's indirection table.
///
/// - `target`: its name, at most 63 bytes
///
/// Returns `LUMOZEPH_RSS_IND_TABLE_SIZE` bytes.
///
/// # Errors
///
/// - ENOMEM: the library could not allocate memory for the module's reply
pub fn soft_rss_get_ind_table<'a>(target: impl Into<TargetName<'a>>) -> Result<[u8; sys::LUMOZEPH_RSS_IND_TABLE_SIZE]> {
    const OPERATION: &str = "soft_rss_get_ind_table";
    let target = Terminated::<64>::of(target.into(), OPERATION)?;
    let mut buffer = [0; sys::LUMOZEPH_RSS_IND_TABLE_SIZE];
    check(unsafe { sys::LUMOZEPH_SoftRSSGetIndTable(target.as_ptr(), buffer.as_mut_ptr().cast()) }, OPERATION)?;
    Ok(buffer)
}

/// Sets a target's indirection table.
///
/// The size is sent as it stands, also a negative one.
///
/// - `target`: its name, at most 63 bytes
/// - `table`: the table; its size must not exceed 128, or the call reads and sends what lies behind its entries
///
/// # Errors
///
/// - EINVAL: the size of `table` is larger than 128
pub fn soft_rss_table_set<'a>(target: impl Into<TargetName<'a>>, table: &RssIndTable) -> Result<()> {
    const OPERATION: &str = "soft_rss_table_set";
    if table.size() > 128 {
        return Err(Error::rejected(OPERATION));
    }
    let target = Terminated::<64>::of(target.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SoftRSSTableSet(target.as_ptr(), table.as_raw()) }, OPERATION)
}
