//! Multicast groups, replication and router addresses.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One multicast group as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct McastGroupInfo(sys::LumoMcastGroupInfo);

impl McastGroupInfo {
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
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoMcastGroupInfo {
        &self.0
    }
}

impl From<sys::LumoMcastGroupInfo> for McastGroupInfo {
    fn from(raw: sys::LumoMcastGroupInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for McastGroupInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("McastGroupInfo")
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .finish()
    }
}

unsafe impl Record for McastGroupInfo {
    type Raw = sys::LumoMcastGroupInfo;
}

unsafe impl Listed for McastGroupInfo {
    type List = sys::LumoMcastGroupList;
    unsafe fn contents(list: *mut sys::LumoMcastGroupList) -> (*mut sys::LumoMcastGroupInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoMcastGroupList) {
        sys::LUMOZEPH_ReleaseMRoutingMcastGroups(list);
    }
}

impl Capped for McastGroupInfo {
    const CAP: usize = sys::LUMOZEPH_MCAST_GROUPS_MAX;
}

/// Reads an instance's multicast groups.
///
/// A fragment at the end of the module's reply is no error: it counts as a group, whose missing bytes are
/// undefined. If the device call fails, 16 bytes stay allocated. EBADMSG can only be the module's own answer.
///
/// - `instance`: its key, at most 63 bytes
///
/// Returns the list.
pub fn get_mrouting_all_mcast_groups<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<List<McastGroupInfo>> {
    const OPERATION: &str = "get_mrouting_all_mcast_groups";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetMRoutingAllMcastGroups(instance.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Reads an instance's replication address under a value.
///
/// - `instance`: its key, at most 63 bytes
/// - `value`: the value
///
/// Returns the address.
pub fn get_mrouting_replication_ip<'a>(instance: impl Into<InstanceKey<'a>>, value: u32) -> Result<Ipv4Addr> {
    const OPERATION: &str = "get_mrouting_replication_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetMRoutingReplicationIP(instance.as_ptr(), value, &mut out) }, OPERATION)?;
    Ok(ipv4_from_raw(out))
}

/// Reads the address of an instance's multicast router under a value.
///
/// - `instance`: its key, at most 63 bytes
/// - `value`: the value
///
/// Returns the address.
pub fn get_mrouting_mrouter_ip<'a>(instance: impl Into<InstanceKey<'a>>, value: u32) -> Result<Ipv4Addr> {
    const OPERATION: &str = "get_mrouting_mrouter_ip";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    let mut out = 0;
    check(unsafe { sys::LUMOZEPH_GetMRoutingMRouterIP(instance.as_ptr(), value, &mut out) }, OPERATION)?;
    Ok(ipv4_from_raw(out))
}

/// Adds a multicast router to an instance.
///
/// - `instance`: its key, at most 63 bytes
/// - `value`: passed on as it stands
pub fn add_mrouting_mrouter<'a>(instance: impl Into<InstanceKey<'a>>, value: u32) -> Result<()> {
    const OPERATION: &str = "add_mrouting_mrouter";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_AddMRoutingMRouter(instance.as_ptr(), value) }, OPERATION)
}

/// Removes an instance's multicast router.
///
/// - `instance`: its key, at most 63 bytes
pub fn del_mrouting_mrouter<'a>(instance: impl Into<InstanceKey<'a>>) -> Result<()> {
    const OPERATION: &str = "del_mrouting_mrouter";
    let instance = Terminated::<64>::of(instance.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_DelMRoutingMRouter(instance.as_ptr()) }, OPERATION)
}
