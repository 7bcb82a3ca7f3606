//! Policy tables, and the references from interfaces to them.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One policy table as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct PolicyTableInfo(sys::LumoPolicyTableInfo);

impl PolicyTableInfo {
    /// The table's number.
    #[inline]
    pub fn policy_table_id(&self) -> u32 {
        self.0.policyTableId
    }
    /// `policyTableName` as the module reports it.
    #[inline]
    pub fn policy_table_name(&self) -> PolicyTableName<'_> {
        Name::of_field(&self.0.policyTableName)
    }
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u32 {
        self.0.value1
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoPolicyTableInfo {
        &self.0
    }
}

impl From<sys::LumoPolicyTableInfo> for PolicyTableInfo {
    fn from(raw: sys::LumoPolicyTableInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for PolicyTableInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("PolicyTableInfo")
            .field("policy_table_id", &self.policy_table_id())
            .field("policy_table_name", &self.policy_table_name())
            .field("value1", &self.value1())
            .finish()
    }
}

unsafe impl Record for PolicyTableInfo {
    type Raw = sys::LumoPolicyTableInfo;
}

unsafe impl Listed for PolicyTableInfo {
    type List = sys::LumoPolicyTableList;
    unsafe fn contents(list: *mut sys::LumoPolicyTableList) -> (*mut sys::LumoPolicyTableInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoPolicyTableList) {
        sys::LUMOZEPH_ReleaseAllPolicyTable(list);
    }
}

impl Capped for PolicyTableInfo {
    const CAP: usize = sys::LUMOZEPH_POLICY_TABLES_MAX;
}

/// One reference to a policy table, as the module lays it out.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct PolicyTableRefEntry(sys::LumoPolicyTableRefEntry);

impl PolicyTableRefEntry {
    /// `bytes` as the module reports it.
    #[inline]
    pub fn bytes(&self) -> &[u8; 24] {
        &self.0.bytes
    }
    /// Sets [`bytes`](Self::bytes).
    pub fn set_bytes(&mut self, bytes: [u8; 24]) -> &mut Self {
        self.0.bytes = bytes;
        self
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoPolicyTableRefEntry {
        &self.0
    }
}

impl From<sys::LumoPolicyTableRefEntry> for PolicyTableRefEntry {
    fn from(raw: sys::LumoPolicyTableRefEntry) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for PolicyTableRefEntry {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter.debug_struct("PolicyTableRefEntry").field("bytes", &self.bytes()).finish()
    }
}

unsafe impl Record for PolicyTableRefEntry {
    type Raw = sys::LumoPolicyTableRefEntry;
}

/// The references from one LIF to policy tables.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct LifPolicyTableRef(sys::LumoLifPolicyTableRef);

impl LifPolicyTableRef {
    /// `text1` as the module reports it.
    #[inline]
    pub fn text1(&self) -> Text<'_> {
        Name::of_field(&self.0.text1)
    }
    /// As reported.
    #[inline]
    pub fn ref_count(&self) -> u16 {
        self.0.refCount
    }
    /// As many as `ref_count` says, but no more than there is room for.
    #[inline]
    pub fn refs(&self) -> &[PolicyTableRefEntry] {
        records(&self.0.refs, self.0.refCount as usize)
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoLifPolicyTableRef {
        &self.0
    }
}

impl From<sys::LumoLifPolicyTableRef> for LifPolicyTableRef {
    fn from(raw: sys::LumoLifPolicyTableRef) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for LifPolicyTableRef {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("LifPolicyTableRef")
            .field("text1", &self.text1())
            .field("ref_count", &self.ref_count())
            .field("refs", &self.refs())
            .finish()
    }
}

unsafe impl Record for LifPolicyTableRef {
    type Raw = sys::LumoLifPolicyTableRef;
}

unsafe impl Single for LifPolicyTableRef {
    unsafe fn release(record: *mut sys::LumoLifPolicyTableRef) {
        sys::LUMOZEPH_ReleaseLifPolicyTableRef(record);
    }
}

/// Reads the policy tables.
///
/// Returns the list.
pub fn get_policy_table() -> Result<List<PolicyTableInfo>> {
    const OPERATION: &str = "get_policy_table";
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetPolicyTable(&mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Creates a policy table.
///
/// - `table`: its number
/// - `name`: its name, at most 63 bytes
pub fn set_policy_table<'a>(table: u32, name: impl Into<PolicyTableName<'a>>) -> Result<()> {
    set_policy_table_to(table, name, ptr::null_mut())
}

/// [`set_policy_table`], with the module's own answer, which may be there after a failure, too.
pub fn set_policy_table_answered<'a>(
    table: u32,
    name: impl Into<PolicyTableName<'a>>,
    answer: &mut CmdResult,
) -> Result<()> {
    set_policy_table_to(table, name, as_raw_mut(answer))
}

fn set_policy_table_to<'a>(
    table: u32,
    name: impl Into<PolicyTableName<'a>>,
    answer: *mut sys::LumoCmdResult,
) -> Result<()> {
    const OPERATION: &str = "set_policy_table";
    let name = Terminated::<64>::of(name.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetPolicyTable(table, name.as_ptr(), answer) }, OPERATION)
}

/// Deletes a policy table.
///
/// - `table`: its number
pub fn del_policy_table(table: u32) -> Result<()> {
    del_policy_table_to(table, ptr::null_mut())
}

/// [`del_policy_table`], with the module's own answer, which may be there after a failure, too.
pub fn del_policy_table_answered(table: u32, answer: &mut CmdResult) -> Result<()> {
    del_policy_table_to(table, as_raw_mut(answer))
}

fn del_policy_table_to(table: u32, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "del_policy_table";
    check(unsafe { sys::LUMOZEPH_DelPolicyTable(table, answer) }, OPERATION)
}

/// Reads a LIF's references to policy tables.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
///
/// Returns the record.
pub fn get_lif_policy_table_ref<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
) -> Result<Owned<LifPolicyTableRef>> {
    const OPERATION: &str = "get_lif_policy_table_ref";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetLifPolicyTableRef(instance.as_ptr(), lif.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Sets a LIF's references to policy tables.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
/// - `entries`: at most `LUMOZEPH_POLICY_TABLE_REFS_MAX`. A larger number is itself sent, but of its entries only
///   what fits into the request
pub fn set_lif_policy_table_ref<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    entries: &[PolicyTableRefEntry],
) -> Result<()> {
    set_lif_policy_table_ref_to(instance, lif, entries, ptr::null_mut())
}

/// [`set_lif_policy_table_ref`], with the module's own answer, which may be there after a failure, too.
pub fn set_lif_policy_table_ref_answered<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    entries: &[PolicyTableRefEntry],
    answer: &mut CmdResult,
) -> Result<()> {
    set_lif_policy_table_ref_to(instance, lif, entries, as_raw_mut(answer))
}

fn set_lif_policy_table_ref_to<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    entries: &[PolicyTableRefEntry],
    answer: *mut sys::LumoCmdResult,
) -> Result<()> {
    const OPERATION: &str = "set_lif_policy_table_ref";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_SetLifPolicyTableRef(
                instance.as_ptr(),
                lif.as_ptr(),
                u16::try_from(entries.len()).unwrap_or(u16::MAX),
                entries.as_ptr().cast(),
                answer,
            )
        },
        OPERATION,
    )
}

/// Deletes a LIF's references to policy tables.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `lif`: the LIF's name, at most 63 bytes
pub fn del_lif_policy_table_ref<'a>(instance: impl Into<InstanceKey<'a>>, lif: impl Into<LifName<'a>>) -> Result<()> {
    del_lif_policy_table_ref_to(instance, lif, ptr::null_mut())
}

/// [`del_lif_policy_table_ref`], with the module's own answer, which may be there after a failure, too.
pub fn del_lif_policy_table_ref_answered<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    answer: &mut CmdResult,
) -> Result<()> {
    del_lif_policy_table_ref_to(instance, lif, as_raw_mut(answer))
}

fn del_lif_policy_table_ref_to<'a>(
    instance: impl Into<InstanceKey<'a>>,
    lif: impl Into<LifName<'a>>,
    answer: *mut sys::LumoCmdResult,
) -> Result<()> {
    const OPERATION: &str = "del_lif_policy_table_ref";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let lif = Terminated::<64>::of(lif.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelLifPolicyTableRef(instance.as_ptr(), lif.as_ptr(), answer) }, OPERATION)
}
