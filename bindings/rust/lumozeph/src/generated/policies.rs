//! Policies.
//!
//! Policies lie in policy tables, which are numbered and belong to the module as a whole, not to an instance. A
//! policy is named by two numbers within its table.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One policy as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct PolicyInfo(sys::LumoPolicyInfo);

impl PolicyInfo {
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u32 {
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
    pub fn value6(&self) -> u64 {
        self.0.value6
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoPolicyInfo {
        &self.0
    }
}

impl From<sys::LumoPolicyInfo> for PolicyInfo {
    fn from(raw: sys::LumoPolicyInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for PolicyInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("PolicyInfo")
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .finish()
    }
}

unsafe impl Record for PolicyInfo {
    type Raw = sys::LumoPolicyInfo;
}

unsafe impl Listed for PolicyInfo {
    type List = sys::LumoPolicyList;
    unsafe fn contents(list: *mut sys::LumoPolicyList) -> (*mut sys::LumoPolicyInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoPolicyList) {
        sys::LUMOZEPH_ReleaseAllPolicy(list);
    }
}

impl Capped for PolicyInfo {
    const CAP: usize = sys::LUMOZEPH_POLICIES_MAX;
}

/// Reads the policies of one table.
///
/// - `table`: the table's number
///
/// Returns the list.
pub fn get_policy(table: u32) -> Result<List<PolicyInfo>> {
    const OPERATION: &str = "get_policy";
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetPolicy(table, &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Counts the policies of one table.
///
/// Of the request, 768 bytes are sent as the stack held them. If the module's reply is too short (EBADMSG), 4 bytes
/// stay allocated.
///
/// - `table`: the table's number
///
/// Returns the number of policies.
///
/// # Errors
///
/// - ENOMEM: the library could not allocate memory for the module's reply
/// - EBADMSG: the module's reply is shorter than 4 bytes
pub fn get_policy_count(table: u32) -> Result<u32> {
    const OPERATION: &str = "get_policy_count";
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetPolicyCount(table, &mut out) }, OPERATION)?;
    Ok(out)
}

/// The arguments of [`set_policy`].
#[derive(Clone, Copy, Debug, Default)]
pub struct SetPolicy {
    /// The table's number.
    pub table: u32,
    /// First of the two numbers that name the policy.
    pub key1: u32,
    /// Second of them.
    pub key2: u32,
    /// Stored with the policy.
    pub value: u32,
}

impl SetPolicy {
    /// All zero.
    pub fn new() -> Self {
        Self::default()
    }
    /// Sets [`table`](Self#structfield.table).
    #[must_use]
    pub fn table(mut self, table: u32) -> Self {
        self.table = table;
        self
    }
    /// Sets [`key1`](Self#structfield.key1).
    #[must_use]
    pub fn key1(mut self, key1: u32) -> Self {
        self.key1 = key1;
        self
    }
    /// Sets [`key2`](Self#structfield.key2).
    #[must_use]
    pub fn key2(mut self, key2: u32) -> Self {
        self.key2 = key2;
        self
    }
    /// Sets [`value`](Self#structfield.value).
    #[must_use]
    pub fn value(mut self, value: u32) -> Self {
        self.value = value;
        self
    }
}

/// Sets a policy.
pub fn set_policy(with: &SetPolicy) -> Result<()> {
    set_policy_to(with, ptr::null_mut())
}

/// [`set_policy`], with the module's own answer, which may be there after a failure, too.
pub fn set_policy_answered(with: &SetPolicy, answer: &mut CmdResult) -> Result<()> {
    set_policy_to(with, as_raw_mut(answer))
}

fn set_policy_to(with: &SetPolicy, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "set_policy";
    check(unsafe { sys::LUMOZEPH_SetPolicy(with.table, with.key1, with.key2, with.value, answer) }, OPERATION)
}

/// The arguments of [`del_policy`].
#[derive(Clone, Copy, Debug, Default)]
pub struct DelPolicy {
    /// The table's number.
    pub table: u32,
    /// First of the two numbers that name the policy.
    pub key1: u32,
    /// Second of them.
    pub key2: u32,
}

impl DelPolicy {
    /// All zero.
    pub fn new() -> Self {
        Self::default()
    }
    /// Sets [`table`](Self#structfield.table).
    #[must_use]
    pub fn table(mut self, table: u32) -> Self {
        self.table = table;
        self
    }
    /// Sets [`key1`](Self#structfield.key1).
    #[must_use]
    pub fn key1(mut self, key1: u32) -> Self {
        self.key1 = key1;
        self
    }
    /// Sets [`key2`](Self#structfield.key2).
    #[must_use]
    pub fn key2(mut self, key2: u32) -> Self {
        self.key2 = key2;
        self
    }
}

/// Deletes a policy.
pub fn del_policy(with: &DelPolicy) -> Result<()> {
    del_policy_to(with, ptr::null_mut())
}

/// [`del_policy`], with the module's own answer, which may be there after a failure, too.
pub fn del_policy_answered(with: &DelPolicy, answer: &mut CmdResult) -> Result<()> {
    del_policy_to(with, as_raw_mut(answer))
}

fn del_policy_to(with: &DelPolicy, answer: *mut sys::LumoCmdResult) -> Result<()> {
    const OPERATION: &str = "del_policy";
    check(unsafe { sys::LUMOZEPH_DelPolicy(with.table, with.key1, with.key2, answer) }, OPERATION)
}
