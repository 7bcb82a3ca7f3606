//! Forwarding table, FL table and PMACs.
//!
//! Read, set and clear of a forwarding table have two selectors, whose meaning is the module's. The first one has
//! 16 bits in the read and 32 in the set and the clear; all send it as 32.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One entry of a bridge's forwarding table as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeFdbEntry(sys::LumoBridgeFdbEntry);

impl BridgeFdbEntry {
    /// `mac` as the module reports it.
    #[inline]
    pub fn mac(&self) -> Mac {
        Mac::new(self.0.mac)
    }
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u16 {
        self.0.value1
    }
    /// The low 24 bits of the 32-bit word there.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.0.value2()
    }
    /// Its top byte.
    #[inline]
    pub fn value3(&self) -> u32 {
        self.0.value3()
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
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeFdbEntry {
        &self.0
    }
}

impl From<sys::LumoBridgeFdbEntry> for BridgeFdbEntry {
    fn from(raw: sys::LumoBridgeFdbEntry) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeFdbEntry {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeFdbEntry")
            .field("mac", &self.mac())
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .finish()
    }
}

unsafe impl Record for BridgeFdbEntry {
    type Raw = sys::LumoBridgeFdbEntry;
}

unsafe impl Listed for BridgeFdbEntry {
    type List = sys::LumoBridgeFdbList;
    unsafe fn contents(list: *mut sys::LumoBridgeFdbList) -> (*mut sys::LumoBridgeFdbEntry, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeFdbList) {
        sys::LUMOZEPH_ReleaseBridgeFdbEntries(list);
    }
}

impl Capped for BridgeFdbEntry {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX;
}

/// The arguments of [`get_bridge_fdb_entries`].
#[derive(Clone, Copy, Debug)]
pub struct GetBridgeFdbEntries<'a> {
    /// The bridge's key, at most 63 bytes.
    pub key: BridgeKey<'a>,
    /// First selector.
    pub value16: u16,
    /// Second selector.
    pub value32: u32,
}

impl<'a> GetBridgeFdbEntries<'a> {
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

/// Reads entries of a bridge's forwarding table.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// Returns the list.
pub fn get_bridge_fdb_entries(with: &GetBridgeFdbEntries<'_>) -> Result<List<BridgeFdbEntry>> {
    const OPERATION: &str = "get_bridge_fdb_entries";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeFdbEntries(key.as_ptr(), with.value16, with.value32, &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// The arguments of [`bridge_set_fdb_entry`].
#[derive(Clone, Copy, Debug)]
pub struct BridgeSetFdbEntry<'a> {
    /// The bridge's key, at most 63 bytes.
    pub key: BridgeKey<'a>,
    /// The MAC address as text, at most 17 bytes; left out: none.
    pub mac: Option<MacText<'a>>,
    /// First selector.
    pub selector1: u32,
    /// Second selector.
    pub selector2: u32,
    /// Passed on as it stands.
    pub value: u32,
    /// Passed on as they stand.
    pub flags: u8,
}

impl<'a> BridgeSetFdbEntry<'a> {
    /// With what must be given; all else is left out.
    pub fn new(key: impl Into<BridgeKey<'a>>) -> Self {
        Self { key: key.into(), mac: None, selector1: 0, selector2: 0, value: 0, flags: 0 }
    }
    /// Sets [`mac`](Self#structfield.mac).
    #[must_use]
    pub fn mac(mut self, mac: impl Into<MacText<'a>>) -> Self {
        self.mac = Some(mac.into());
        self
    }
    /// Sets [`selector1`](Self#structfield.selector1).
    #[must_use]
    pub fn selector1(mut self, selector1: u32) -> Self {
        self.selector1 = selector1;
        self
    }
    /// Sets [`selector2`](Self#structfield.selector2).
    #[must_use]
    pub fn selector2(mut self, selector2: u32) -> Self {
        self.selector2 = selector2;
        self
    }
    /// Sets [`value`](Self#structfield.value).
    #[must_use]
    pub fn value(mut self, value: u32) -> Self {
        self.value = value;
        self
    }
    /// Sets [`flags`](Self#structfield.flags).
    #[must_use]
    pub fn flags(mut self, flags: u8) -> Self {
        self.flags = flags;
        self
    }
}

/// Sets an entry of a bridge's forwarding table.
pub fn bridge_set_fdb_entry(with: &BridgeSetFdbEntry<'_>) -> Result<()> {
    const OPERATION: &str = "bridge_set_fdb_entry";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    let mac = Terminated::<18>::of_maybe(with.mac, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_BridgeSetFdbEntry(
                key.as_ptr(),
                mac.as_ptr(),
                with.selector1,
                with.selector2,
                with.value,
                with.flags,
            )
        },
        OPERATION,
    )
}

/// The arguments of [`bridge_clear_fdb_table`].
#[derive(Clone, Copy, Debug)]
pub struct BridgeClearFdbTable<'a> {
    /// The bridge's key, at most 63 bytes.
    pub key: BridgeKey<'a>,
    /// First selector.
    pub selector1: u32,
    /// Second selector.
    pub selector2: u32,
}

impl<'a> BridgeClearFdbTable<'a> {
    /// With what must be given; all else is left out.
    pub fn new(key: impl Into<BridgeKey<'a>>) -> Self {
        Self { key: key.into(), selector1: 0, selector2: 0 }
    }
    /// Sets [`selector1`](Self#structfield.selector1).
    #[must_use]
    pub fn selector1(mut self, selector1: u32) -> Self {
        self.selector1 = selector1;
        self
    }
    /// Sets [`selector2`](Self#structfield.selector2).
    #[must_use]
    pub fn selector2(mut self, selector2: u32) -> Self {
        self.selector2 = selector2;
        self
    }
}

/// Clears a bridge's forwarding table.
pub fn bridge_clear_fdb_table(with: &BridgeClearFdbTable<'_>) -> Result<()> {
    const OPERATION: &str = "bridge_clear_fdb_table";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeClearFdbTable(key.as_ptr(), with.selector1, with.selector2) }, OPERATION)
}

/// Reads the module's FL table.
///
/// - `selector`: passed on as it stands
///
/// Returns `LUMOZEPH_FL_TABLE_SIZE` bytes.
pub fn dump_fl_table(selector: u16) -> Result<Box<[u8; sys::LUMOZEPH_FL_TABLE_SIZE]>> {
    let mut buffer = zeroed("dump_fl_table")?;
    dump_fl_table_into(selector, &mut buffer)?;
    Ok(buffer)
}

/// [`dump_fl_table`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn dump_fl_table_into(selector: u16, buffer: &mut [u8; sys::LUMOZEPH_FL_TABLE_SIZE]) -> Result<()> {
    const OPERATION: &str = "dump_fl_table";
    check(unsafe { sys::LUMOZEPH_DumpFLTable(selector, buffer.as_mut_ptr().cast()) }, OPERATION)
}

/// Reads the PMAC table.
///
/// Returns `LUMOZEPH_PMAC_TABLE_SIZE` bytes.
pub fn get_pmac() -> Result<Box<[u8; sys::LUMOZEPH_PMAC_TABLE_SIZE]>> {
    let mut buffer = zeroed("get_pmac")?;
    get_pmac_into(&mut buffer)?;
    Ok(buffer)
}

/// [`get_pmac`], into memory of the caller's: what the module does not write of it stays as it was.
pub fn get_pmac_into(buffer: &mut [u8; sys::LUMOZEPH_PMAC_TABLE_SIZE]) -> Result<()> {
    const OPERATION: &str = "get_pmac";
    check(unsafe { sys::LUMOZEPH_GetPmac(buffer.as_mut_ptr().cast()) }, OPERATION)
}

/// Adds a PMAC.
///
/// - `value`: passed on as it stands
/// - `mac`: the MAC address; left out: none, which sends six zero bytes
pub fn add_pmac(value: u32, mac: Option<Mac>) -> Result<()> {
    const OPERATION: &str = "add_pmac";
    check(
        unsafe { sys::LUMOZEPH_AddPmac(value, mac.as_ref().map_or(ptr::null(), |mac| mac.as_bytes().as_ptr())) },
        OPERATION,
    )
}

/// Deletes a PMAC.
///
/// - `mac`: the MAC address; left out: none, which sends six zero bytes
pub fn del_pmac(mac: Option<Mac>) -> Result<()> {
    const OPERATION: &str = "del_pmac";
    check(unsafe { sys::LUMOZEPH_DelPmac(mac.as_ref().map_or(ptr::null(), |mac| mac.as_bytes().as_ptr())) }, OPERATION)
}
