//! Bridge clusters, their nodes and the local transport node.
//!
//! Clusters are named by an instance key, as bridges are.

// Made from api/lumozeph.json by scripts/bindings: change that, or the templates.
use crate::prelude::*;

/// One cluster as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeClusterInfo(sys::LumoBridgeClusterInfo);

impl BridgeClusterInfo {
    /// As the module sent it, not necessarily terminated.
    #[inline]
    pub fn ident(&self) -> Text<'_> {
        Name::of_field(&self.0.ident)
    }
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u32 {
        self.0.value1
    }
    /// `block` as the module reports it.
    #[inline]
    pub fn block(&self) -> &[u8; 96] {
        &self.0.block
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u16 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u16 {
        self.0.value3
    }
    /// `value4` as the module reports it.
    #[inline]
    pub fn value4(&self) -> u16 {
        self.0.value4
    }
    /// `value5` as the module reports it.
    #[inline]
    pub fn value5(&self) -> u8 {
        self.0.value5
    }
    /// `value6` as the module reports it.
    #[inline]
    pub fn value6(&self) -> u32 {
        self.0.value6
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeClusterInfo {
        &self.0
    }
}

impl From<sys::LumoBridgeClusterInfo> for BridgeClusterInfo {
    fn from(raw: sys::LumoBridgeClusterInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeClusterInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeClusterInfo")
            .field("ident", &self.ident())
            .field("value1", &self.value1())
            .field("block", &self.block())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .field("value4", &self.value4())
            .field("value5", &self.value5())
            .field("value6", &self.value6())
            .finish()
    }
}

unsafe impl Record for BridgeClusterInfo {
    type Raw = sys::LumoBridgeClusterInfo;
}

unsafe impl Listed for BridgeClusterInfo {
    type List = sys::LumoBridgeClusterList;
    unsafe fn contents(list: *mut sys::LumoBridgeClusterList) -> (*mut sys::LumoBridgeClusterInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeClusterList) {
        sys::LUMOZEPH_ReleaseBridgeClusters(list);
    }
}

impl Capped for BridgeClusterInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_CLUSTERS_MAX;
}

/// One node of a cluster as the module reports it.
#[repr(transparent)]
#[derive(Clone, Copy, Default, PartialEq, Eq, Hash)]
pub struct BridgeClusterNodeInfo(sys::LumoBridgeClusterNodeInfo);

impl BridgeClusterNodeInfo {
    /// As the module sent it, not necessarily terminated.
    #[inline]
    pub fn ident(&self) -> Text<'_> {
        Name::of_field(&self.0.ident)
    }
    /// `value1` as the module reports it.
    #[inline]
    pub fn value1(&self) -> u32 {
        self.0.value1
    }
    /// `value2` as the module reports it.
    #[inline]
    pub fn value2(&self) -> u16 {
        self.0.value2
    }
    /// `value3` as the module reports it.
    #[inline]
    pub fn value3(&self) -> u8 {
        self.0.value3
    }
    /// The record as C has it.
    #[inline]
    pub fn as_raw(&self) -> &sys::LumoBridgeClusterNodeInfo {
        &self.0
    }
}

impl From<sys::LumoBridgeClusterNodeInfo> for BridgeClusterNodeInfo {
    fn from(raw: sys::LumoBridgeClusterNodeInfo) -> Self {
        Self(raw)
    }
}

impl fmt::Debug for BridgeClusterNodeInfo {
    fn fmt(&self, formatter: &mut fmt::Formatter<'_>) -> fmt::Result {
        formatter
            .debug_struct("BridgeClusterNodeInfo")
            .field("ident", &self.ident())
            .field("value1", &self.value1())
            .field("value2", &self.value2())
            .field("value3", &self.value3())
            .finish()
    }
}

unsafe impl Record for BridgeClusterNodeInfo {
    type Raw = sys::LumoBridgeClusterNodeInfo;
}

unsafe impl Listed for BridgeClusterNodeInfo {
    type List = sys::LumoBridgeClusterNodeList;
    unsafe fn contents(list: *mut sys::LumoBridgeClusterNodeList) -> (*mut sys::LumoBridgeClusterNodeInfo, usize) {
        ((*list).records, (*list).count as usize)
    }
    unsafe fn release(list: *mut sys::LumoBridgeClusterNodeList) {
        sys::LUMOZEPH_ReleaseBridgeClusterNodes(list);
    }
}

impl Capped for BridgeClusterNodeInfo {
    const CAP: usize = sys::LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX;
}

/// Reads the locale identifier.
///
/// Returns `LUMOZEPH_LOCALE_ID_SIZE` bytes.
pub fn get_locale_id() -> Result<[u8; sys::LUMOZEPH_LOCALE_ID_SIZE]> {
    const OPERATION: &str = "get_locale_id";
    let mut buffer = [0; sys::LUMOZEPH_LOCALE_ID_SIZE];
    check(unsafe { sys::LUMOZEPH_GetLocaleId(buffer.as_mut_ptr().cast()) }, OPERATION)?;
    Ok(buffer)
}

/// Reads clusters.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `key`: an instance key, at most 63 bytes; left out: no key is sent
///
/// Returns the list.
pub fn get_bridge_clusters(key: Option<AnyKey<'_>>) -> Result<List<BridgeClusterInfo>> {
    const OPERATION: &str = "get_bridge_clusters";
    let key = Terminated::<64>::of_maybe(key, OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeClusters(key.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// Sets a cluster, or removes it.
///
/// - `key`: its key, at most 63 bytes
/// - `on`: on: sets; off: removes
pub fn bridge_cluster_set<'a>(key: impl Into<ClusterKey<'a>>, on: Switched) -> Result<()> {
    const OPERATION: &str = "bridge_cluster_set";
    let key = Terminated::<64>::of(key.into(), OPERATION)?;
    check(unsafe { sys::LUMOZEPH_BridgeClusterSet(key.as_ptr(), on as i8) }, OPERATION)
}

/// Reads nodes of clusters.
///
/// If the device call fails, 16 bytes stay allocated.
///
/// - `key`: an instance key, at most 63 bytes; left out: no key is sent
///
/// Returns the list.
pub fn get_bridge_cluster_nodes(key: Option<AnyKey<'_>>) -> Result<List<BridgeClusterNodeInfo>> {
    const OPERATION: &str = "get_bridge_cluster_nodes";
    let key = Terminated::<64>::of_maybe(key, OPERATION)?;
    let mut out = ptr::null_mut();
    check(unsafe { sys::LUMOZEPH_GetBridgeClusterNodes(key.as_ptr(), &mut out) }, OPERATION)?;
    Ok(unsafe { List::from_raw(out) })
}

/// The arguments of [`bridge_cluster_node_set`].
#[derive(Clone, Copy, Debug)]
pub struct BridgeClusterNodeSet<'a> {
    /// The cluster's key, at most 63 bytes.
    pub key: ClusterKey<'a>,
    /// The node's name, at most 63 bytes.
    pub node: NodeName<'a>,
    /// The MAC address; left out, if `on` is off: it is neither read nor sent.
    pub mac: Option<Mac>,
    /// On: sets; off: removes.
    pub on: Switched,
}

impl<'a> BridgeClusterNodeSet<'a> {
    /// With what must be given; all else is left out.
    pub fn new(key: impl Into<ClusterKey<'a>>, node: impl Into<NodeName<'a>>, on: Switched) -> Self {
        Self { key: key.into(), node: node.into(), mac: None, on }
    }
    /// Sets [`mac`](Self#structfield.mac).
    #[must_use]
    pub fn mac(mut self, mac: Mac) -> Self {
        self.mac = Some(mac);
        self
    }
}

/// Sets a node of a cluster, or removes it.
///
/// # Errors
///
/// - EINVAL: `mac` is left out though `on` is not off
pub fn bridge_cluster_node_set(with: &BridgeClusterNodeSet<'_>) -> Result<()> {
    const OPERATION: &str = "bridge_cluster_node_set";
    if with.mac.is_none() && with.on != Switched::Off {
        return Err(Error::rejected(OPERATION));
    }
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    let node = Terminated::<64>::of(with.node, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_BridgeClusterNodeSet(
                key.as_ptr(),
                node.as_ptr(),
                with.mac.as_ref().map_or(ptr::null(), |mac| mac.as_bytes().as_ptr()),
                with.on as i8,
            )
        },
        OPERATION,
    )
}

/// The arguments of [`bridge_local_transport_node_set`].
#[derive(Clone, Copy, Debug)]
pub struct BridgeLocalTransportNodeSet<'a> {
    /// At most 63 bytes.
    pub text1: Text<'a>,
    /// At most 63 bytes.
    pub text2: Text<'a>,
    /// At most 15 bytes.
    pub text3: Text<'a>,
    /// Passed on as it stands.
    pub value: u32,
    /// Sent as they stand.
    pub block: &'a [u8; sys::LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE],
    /// Chooses between two commands of the module, which are sent the same values.
    pub on: Switched,
}

impl<'a> BridgeLocalTransportNodeSet<'a> {
    /// With what must be given; all else is left out.
    pub fn new(
        text1: impl Into<Text<'a>>,
        text2: impl Into<Text<'a>>,
        text3: impl Into<Text<'a>>,
        block: &'a [u8; sys::LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE],
        on: Switched,
    ) -> Self {
        Self { text1: text1.into(), text2: text2.into(), text3: text3.into(), value: 0, block, on }
    }
    /// Sets [`value`](Self#structfield.value).
    #[must_use]
    pub fn value(mut self, value: u32) -> Self {
        self.value = value;
        self
    }
}

/// Sets the local transport node.
pub fn bridge_local_transport_node_set(with: &BridgeLocalTransportNodeSet<'_>) -> Result<()> {
    const OPERATION: &str = "bridge_local_transport_node_set";
    let text1 = Terminated::<64>::of(with.text1, OPERATION)?;
    let text2 = Terminated::<64>::of(with.text2, OPERATION)?;
    let text3 = Terminated::<16>::of(with.text3, OPERATION)?;
    check(
        unsafe {
            sys::LUMOZEPH_BridgeLocalTransportNodeSet(
                text1.as_ptr(),
                text2.as_ptr(),
                text3.as_ptr(),
                with.value,
                with.block.as_ptr().cast(),
                with.on as i8,
            )
        },
        OPERATION,
    )
}

/// Reads the local transport node.
///
/// - `selector`: passed on as it stands
///
/// Returns `LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE` bytes.
pub fn bridge_get_local_transport_node(selector: u32) -> Result<[u8; sys::LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE]> {
    const OPERATION: &str = "bridge_get_local_transport_node";
    let mut buffer = [0; sys::LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE];
    check(unsafe { sys::LUMOZEPH_BridgeGetLocalTransportNode(buffer.as_mut_ptr().cast(), selector) }, OPERATION)?;
    Ok(buffer)
}

/// Flushes a cluster.
///
/// - `key`: its key, at most 63 bytes; left out: no key is sent
/// - `on`: chooses between two commands of the module
pub fn flush_bridge_cluster(key: Option<ClusterKey<'_>>, on: Switched) -> Result<()> {
    const OPERATION: &str = "flush_bridge_cluster";
    let key = Terminated::<64>::of_maybe(key, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_FlushBridgeCluster(key.as_ptr(), on as i8) }, OPERATION)
}

/// Sets the debug level of a cluster.
///
/// - `key`: its key, at most 63 bytes; left out: no key is sent
/// - `level`: passed on as it stands
pub fn set_bridge_cluster_debug(key: Option<ClusterKey<'_>>, level: u8) -> Result<()> {
    const OPERATION: &str = "set_bridge_cluster_debug";
    let key = Terminated::<64>::of_maybe(key, OPERATION)?;
    check(unsafe { sys::LUMOZEPH_SetBridgeClusterDebug(key.as_ptr(), level) }, OPERATION)
}

/// The arguments of [`bridge_cluster_bfd_ha_profile_set`].
#[derive(Clone, Copy, Debug)]
pub struct BridgeClusterBfdHaProfileSet<'a> {
    /// Its key, at most 63 bytes.
    pub key: ClusterKey<'a>,
    /// Passed on as it stands.
    pub flag: u8,
    /// Passed on as it stands.
    pub value1: u32,
    /// Passed on as it stands.
    pub value2: u32,
}

impl<'a> BridgeClusterBfdHaProfileSet<'a> {
    /// With what must be given; all else is left out.
    pub fn new(key: impl Into<ClusterKey<'a>>) -> Self {
        Self { key: key.into(), flag: 0, value1: 0, value2: 0 }
    }
    /// Sets [`flag`](Self#structfield.flag).
    #[must_use]
    pub fn flag(mut self, flag: u8) -> Self {
        self.flag = flag;
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

/// Sets the BFD high-availability profile of a cluster.
pub fn bridge_cluster_bfd_ha_profile_set(with: &BridgeClusterBfdHaProfileSet<'_>) -> Result<()> {
    const OPERATION: &str = "bridge_cluster_bfd_ha_profile_set";
    let key = Terminated::<64>::of(with.key, OPERATION)?;
    check(
        unsafe { sys::LUMOZEPH_BridgeClusterBfdHAProfileSet(key.as_ptr(), with.flag, with.value1, with.value2) },
        OPERATION,
    )
}
