//! Multicast domain and receivers.
//!
//! Receivers are kept under a 32-bit value of their instance.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// An instance's multicast domain as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct McastDomainInfo(sys::LumoMcastDomainInfo);

impl McastDomainInfo {
    /// `text1` as the module reports it.
    #[inline]
    pub fn text1(&self) -> Text<'_> {
        Name::of_field(&self.0.text1)
    }
    /// `text2` as the module reports it.
    #[inline]
    pub fn text2(&self) -> Text<'_> {
        Name::of_field(&self.0.text2)
    }
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u64 {
        self.0.value1
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u64 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u64 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u64 {
        self.0.value4
    }
    /// `value5` as the module reports it.
    #[inline]
    pub fn value5(&self) -> u32 {
        self.0.value5
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoMcastDomainInfo {
        &self.0
    }
}

impl From<sys::LumoMcastDomainInfo> for McastDomainInfo {
    fn from(raw: sys::LumoMcastDomainInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for McastDomainInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("McastDomainInfo")
            .field("text1", &self.text1())
            .field("text2", &self.text2())
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .finish()
    }
}

unsafe impl Record for McastDomainInfo {
    type Raw = sys::LumoMcastDomainInfo;
}

unsafe impl Single for McastDomainInfo {
    unsafe fn release(record: *mut sys::LumoMcastDomainInfo) {
        sys::LUMOZEPH_ReleaseMRoutingDomainData(record);
    }
}

/// One local receiver as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct LocalRcvrInfo(sys::LumoLocalRcvrInfo);

impl LocalRcvrInfo {
    /// `text1` as the module reports it.
    #[inline]
    pub fn text1(&self) -> Text<'_> {
        Name::of_field(&self.0.text1)
    }
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
    pub fn value3(&self) -> u64 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u64 {
        self.0.value4
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoLocalRcvrInfo {
        &self.0
    }
}

impl From<sys::LumoLocalRcvrInfo> for LocalRcvrInfo {
    fn from(raw: sys::LumoLocalRcvrInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for LocalRcvrInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("LocalRcvrInfo")
            .field("text1", &self.text1())
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .finish()
    }
}

unsafe impl Record for LocalRcvrInfo {
    type Raw = sys::LumoLocalRcvrInfo;
}

unsafe impl Listed for LocalRcvrInfo {
    type List = sys::LumoLocalRcvrList;
    unsafe fn contents(list: *mut sys::LumoLocalRcvrList) -> (*mut sys::LumoLocalRcvrInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoLocalRcvrList) {
        sys::LUMOZEPH_ReleaseMRoutingLocalRcvrs(list);
    }
}

impl Capped for LocalRcvrInfo {
    const CAP: usize = sys::LUMOZEPH_LOCAL_RCVRS_MAX;
}

/// One tunnel endpoint, as the module lays it out.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct VtepEntry(sys::LumoVtepEntry);

impl VtepEntry {
    /// `bytes` as the module reports it.
    #[inline]
    pub fn bytes(&self) -> &[u8; 68] {
        &self.0.bytes
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoVtepEntry {
        &self.0
    }
}

impl From<sys::LumoVtepEntry> for VtepEntry {
    fn from(raw: sys::LumoVtepEntry) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for VtepEntry {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter.debug_struct("VtepEntry").field("bytes", &self.bytes()).finish()
    }
}

unsafe impl Record for VtepEntry {
    type Raw = sys::LumoVtepEntry;
}

unsafe impl Listed for VtepEntry {
    type List = sys::LumoVtepTable;
    unsafe fn contents(list: *mut sys::LumoVtepTable) -> (*mut sys::LumoVtepEntry, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoVtepTable) {
        // The array of a table without entries is not freed with it.
        if (*list).count == 0 {
            free((*list).records.cast());
        }
        sys::LUMOZEPH_ReleaseVTEPTable(list);
    }
}

/// Reads an instance's multicast domain.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the record.
pub fn get_mrouting_domain<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<Owned<McastDomainInfo>> {
    const OPERATION: &str = "get_mrouting_domain";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetMRoutingDomain(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { Owned::from_raw(out) })
}

/// Reads an instance's local receivers under a value.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `instance`: its key, at most 63 bytes
/// - `value`: the value
///
/// Returns the list.
pub fn get_mrouting_local_rcvrs<'a>(instance: impl Into<InstanceKey<'a>>, value: u32) -> Result<List<LocalRcvrInfo>> {
    const OPERATION: &str = "get_mrouting_local_rcvrs";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetMRoutingLocalRcvrs(instance.as_ptr(), value, &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Adds a local receiver.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `value`: the value that the receiver is under
/// - `text`: at most 63 bytes; left out: none
pub fn add_mrouting_local_rcvrs<'a>(
    instance: impl Into<InstanceKey<'a>>,
    value: u32,
    text: Option<Text<'a>>,
) -> Result<()> {
    const OPERATION: &str = "add_mrouting_local_rcvrs";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let text = Terminated::<64>::of_maybe(text, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_AddMRoutingLocalRcvrs(instance.as_ptr(), value, text.as_ptr()) }, OPERATION)
}

/// Deletes a local receiver.
///
/// - `instance`: the instance's key, at most 63 bytes
/// - `value`: the value that the receiver is under
/// - `text`: at most 63 bytes; left out: none
pub fn del_mrouting_local_rcvrs<'a>(
    instance: impl Into<InstanceKey<'a>>,
    value: u32,
    text: Option<Text<'a>>,
) -> Result<()> {
    const OPERATION: &str = "del_mrouting_local_rcvrs";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let text = Terminated::<64>::of_maybe(text, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelMRoutingLocalRcvrs(instance.as_ptr(), value, text.as_ptr()) }, OPERATION)
}

/// Reads an instance's remote receivers under a value.
///
/// - `instance`: its key, at most 63 bytes
/// - `value`: the value
///
/// Returns the table.
///
/// # Errors
///
/// - EBADMSG: the reply has no count, or is shorter than its count and the entries that this announces: a length
///   that is computed in 32 bits and compared as signed, so that of 2 GiB or more not every reply that is too short
///   is found
/// - EOVERFLOW: the entries that the count announces are 2 GiB or more, and neither EBADMSG nor ENOMEM has come
///   first
pub fn get_mrouting_remote_rcvrs<'a>(instance: impl Into<InstanceKey<'a>>, value: u32) -> Result<List<VtepEntry>> {
    const OPERATION: &str = "get_mrouting_remote_rcvrs";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    clear_errno();
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetMRoutingRemoteRcvrs(instance.as_ptr(), value, &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// The arguments of [`add_mrouting_remote_rcvrs`].
#[derive(Clone, Copy, Debug)]
pub struct AddMroutingRemoteRcvrs<'a> {
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// The value that the receiver is under.
    pub value: u32,
    /// The receiver's key.
    pub key: u32,
    /// The MAC address.
    pub hw_addr: Mac,
    /// Passed on as it stands.
    pub value1: u32,
    /// Passed on as it stands.
    pub value2: u32,
}

impl<'a> AddMroutingRemoteRcvrs<'a> {
    /// With what must be given; all else is left out.
    pub fn new(instance: impl Into<InstanceKey<'a>>, hw_addr: Mac) -> Self {
        Self { instance: instance.into(), value: 0, key: 0, hw_addr, value1: 0, value2: 0 }
    }
    /// Sets [`value`](Self#structfield.value).
    #[must_use]
    pub fn value(mut self, value: u32) -> Self {
        self.value = value;
        self
    }
    /// Sets [`key`](Self#structfield.key).
    #[must_use]
    pub fn key(mut self, key: u32) -> Self {
        self.key = key;
        self
    }
    /// Sets [`value1`](Self#structfield.value1).
    #[must_use]
    pub fn value1(mut self, value1: u32) -> Self {
        self.value1 = value1;
        self
    }
    /// Sets [`value2`](Self#structfield.value2).
    #[must_use]
    pub fn value2(mut self, value2: u32) -> Self {
        self.value2 = value2;
        self
    }
}

/// Adds a remote receiver.
pub fn add_mrouting_remote_rcvrs(with: &AddMroutingRemoteRcvrs<'_>) -> Result<()> {
    const OPERATION: &str = "add_mrouting_remote_rcvrs";
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_AddMRoutingRemoteRcvrs(
                instance.as_ptr(),
                with.value,
                with.key,
                with.hw_addr.as_bytes().as_ptr(),
                with.value1,
                with.value2,
            )
        },
        OPERATION,
    )
}

/// The arguments of [`del_mrouting_remote_rcvrs`].
#[derive(Clone, Copy, Debug)]
pub struct DelMroutingRemoteRcvrs<'a> {
    /// The instance's key, at most 63 bytes.
    pub instance: InstanceKey<'a>,
    /// The value that the receiver is under.
    pub value: u32,
    /// The receiver's key.
    pub key: u32,
}

impl<'a> DelMroutingRemoteRcvrs<'a> {
    /// With what must be given; all else is left out.
    pub fn new(instance: impl Into<InstanceKey<'a>>) -> Self {
        Self { instance: instance.into(), value: 0, key: 0 }
    }
    /// Sets [`value`](Self#structfield.value).
    #[must_use]
    pub fn value(mut self, value: u32) -> Self {
        self.value = value;
        self
    }
    /// Sets [`key`](Self#structfield.key).
    #[must_use]
    pub fn key(mut self, key: u32) -> Self {
        self.key = key;
        self
    }
}

/// Deletes a remote receiver.
///
/// Of the request, 704 bytes are sent as the stack held them.
pub fn del_mrouting_remote_rcvrs(with: &DelMroutingRemoteRcvrs<'_>) -> Result<()> {
    const OPERATION: &str = "del_mrouting_remote_rcvrs";
    let instance = Terminated::<64>::of(with.instance, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelMRoutingRemoteRcvrs(instance.as_ptr(), with.value, with.key) }, OPERATION)
}
