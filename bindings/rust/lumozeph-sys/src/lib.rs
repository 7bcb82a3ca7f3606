//! The functions of liblumozeph as C has them: its records, lists, constants and all of its functions, under the names
//! of `lumozeph.h`. The crate `lumozeph` is what programs use.
//!
//! Made from `api/lumozeph.json` by `scripts/bindings`: change that, or the templates.
//!
//! What holds for all functions is said in `lumozeph.h`: they return 0, or -1 with the reason in errno.
#![allow(non_snake_case)]

use std::os::raw::{c_char, c_int, c_void};

/// The first number of the release that this header is of.
pub const LUMOZEPH_VERSION_MAJOR: i32 = 1;
/// Its second number.
pub const LUMOZEPH_VERSION_MINOR: i32 = 0;
/// Its third number.
pub const LUMOZEPH_VERSION_PATCH: i32 = 0;
/// All three as one number, for comparisons: 10203 is 1.2.3.
pub const LUMOZEPH_VERSION_NUMBER: i32 = 10000;
/// Size of a request record, in bytes.
pub const LUMOZEPH_REQUEST_SIZE: usize = 776;
/// Size of an instance key with its NUL, in bytes.
pub const LUMOZEPH_KEY_SIZE: usize = 64;
/// Size of a MAC address, in bytes.
pub const LUMOZEPH_MAC_SIZE: usize = 6;
/// Instances in a list at most.
pub const LUMOZEPH_INSTANCES_MAX: usize = 1000;
/// Counters in a record.
pub const LUMOZEPH_STATS_COUNTERS: usize = 100;
/// Entries of a synchronisation state.
pub const LUMOZEPH_CP_SYNC_STATE_ENTRIES: usize = 5;
/// Room for all connections, in bytes.
pub const LUMOZEPH_CONNECTIONS_SIZE: usize = 131072;
/// Room for one connection, in bytes.
pub const LUMOZEPH_CONNECTION_SIZE: usize = 152;
/// LIFs in a list at most.
pub const LUMOZEPH_LIFS_MAX: usize = 10000;
/// Room of `LumoLifInfo.ipv6Addrs`.
pub const LUMOZEPH_LIF_IPV6_ADDRS_MAX: usize = 10;
/// Room of `LumoDhcpRelay.servers`.
pub const LUMOZEPH_DHCP_RELAY_SERVERS_MAX: usize = 8;
/// Routes, or interface policies, in a list at most.
pub const LUMOZEPH_ROUTES_MAX: usize = 8000;
/// Room of `LumoRouteInfo.nextHops`.
pub const LUMOZEPH_NEXT_HOPS_MAX: usize = 8;
/// Size of the module's own answer to a set or a delete, in bytes.
pub const LUMOZEPH_CMD_RESULT_SIZE: usize = 88;
/// Size of an entry of `LUMOZEPH_GetRoutesv6`, in bytes.
pub const LUMOZEPH_ROUTE6_SIZE: usize = 776;
/// Room for a table of neighbours, in bytes.
pub const LUMOZEPH_ARP_TABLE_SIZE: usize = 7471104;
/// Policies in a list at most.
pub const LUMOZEPH_POLICIES_MAX: usize = 1000;
/// Policy tables in a list at most.
pub const LUMOZEPH_POLICY_TABLES_MAX: usize = 1000;
/// Room of `LumoLifPolicyTableRef.refs`, and references that can be set at most.
pub const LUMOZEPH_POLICY_TABLE_REFS_MAX: usize = 20;
/// Bridges in a list at most.
pub const LUMOZEPH_BRIDGES_MAX: usize = 4096;
/// Networks in a list at most.
pub const LUMOZEPH_BRIDGE_NETWORKS_MAX: usize = 32768;
/// Ports in a list at most.
pub const LUMOZEPH_BRIDGE_PORTS_MAX: usize = 32768;
/// Entries of a forwarding table in a list at most.
pub const LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX: usize = 4096;
/// Room for the FL table, in bytes.
pub const LUMOZEPH_FL_TABLE_SIZE: usize = 426080;
/// Room for the PMAC table, in bytes.
pub const LUMOZEPH_PMAC_TABLE_SIZE: usize = 131072;
/// Clusters in a list at most.
pub const LUMOZEPH_BRIDGE_CLUSTERS_MAX: usize = 10;
/// Nodes in a list at most.
pub const LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX: usize = 100;
/// Room for the locale identifier, in bytes.
pub const LUMOZEPH_LOCALE_ID_SIZE: usize = 16;
/// Room for the local transport node, in bytes.
pub const LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE: usize = 2048;
/// Size of the block that a local transport node is set with, in bytes.
pub const LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE: usize = 64;
/// Endpoints in a list at most.
pub const LUMOZEPH_BRIDGE_ENDPOINTS_MAX: usize = 28672;
/// Room for the statistics of an endpoint, in bytes: the size of `LumoBridgePortInfo`.
pub const LUMOZEPH_BE_STATS_SIZE: usize = 146;
/// Room for the status of an endpoint, in bytes.
pub const LUMOZEPH_BE_STATUS_SIZE: usize = 229;
/// The unit in which `LUMOZEPH_GetBeAll` counts, in bytes: the size of `LumoBridgeEndpointInfo`.
pub const LUMOZEPH_BE_SIZE: usize = 235;
/// BFD sessions in a list at most.
pub const LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX: usize = 2867200;
/// Room for the port connections for BFD, in bytes.
pub const LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE: usize = 131072;
/// Local receivers in a list at most.
pub const LUMOZEPH_LOCAL_RCVRS_MAX: usize = 512;
/// Tunnel endpoints in a table at most, if the module is well behaved.
pub const LUMOZEPH_VTEPS_MAX: usize = 2048;
/// Multicast groups in a list at most.
pub const LUMOZEPH_MCAST_GROUPS_MAX: usize = 4096;
/// Entries of each array of `LumoRssStats`.
pub const LUMOZEPH_RSS_ENTRIES_MAX: usize = 16;
/// Size of an indirection table, in bytes and in entries.
pub const LUMOZEPH_RSS_IND_TABLE_SIZE: usize = 128;

/// What one ioctl carries to the module and back.
#[repr(C, packed)]
#[derive(Clone, Copy)]
pub struct LumoEnvelope {
    /// bytes at inPtr; 776 for a request record
    pub inLen: u32,
    /// the command's input, or null
    pub inPtr: *const c_void,
    /// room at outPtr in bytes; the module stores the number of bytes it wrote
    pub outLen: u32,
    /// where the module writes its reply, or null
    pub outPtr: *mut c_void,
}

/// One router instance as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoInstanceInfo {
    /// the instance's key text
    pub instanceKey: [c_char; 64],
    /// value1 of `LUMOZEPH_SetLumoInstance`
    pub value1: u32,
    pub value2: u32,
    /// zeroed by `LUMOZEPH_ReleaseInstances`
    pub value3: u16,
    /// zeroed by `LUMOZEPH_ReleaseInstances`
    pub value4: u16,
    /// zeroed by `LUMOZEPH_ReleaseInstances`
    pub value5: u16,
    pub value6: u32,
    pub value7: u32,
    pub value8: u32,
    pub value9: u8,
    pub value10: u16,
    /// not copied
    pub uncopied: [u8; 2],
    pub value11: u8,
    pub value12: u8,
    pub bytes1: [u8; 13],
    pub words: [u32; 4],
    pub value13: u32,
    pub value14: u16,
    pub value15: u8,
    pub value16: u16,
    pub value17: u8,
    pub text2: [c_char; 64],
    pub value18: u16,
    pub bytes2: [u8; 32],
    pub value19: u64,
    pub value20: u32,
    pub value21: u8,
    pub value22: u32,
    pub value23: u32,
    pub value24: u8,
}

impl Default for LumoInstanceInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Router instances.
#[repr(C)]
#[derive(Debug)]
pub struct LumoInstanceList {
    /// instances in records
    pub count: i32,
    /// room for `LUMOZEPH_INSTANCES_MAX`
    pub records: *mut LumoInstanceInfo,
}

/// Counters.
///
/// Which of them arrive depends on statsKind; all others are zero. By statsKind, as indices into counters:
///
/// - `0`: 0 to 27, but not 8
/// - `1`: 0 to 99, but not 71 and 77; 84 repeats 83
/// - `3`: 1 to 19
/// - `other`: none
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoStats {
    /// chooses the counters
    pub statsKind: u32,
    pub counters: [u64; 100],
}

impl Default for LumoStats {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One entry of a synchronisation state.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoCPSyncStateEntry {
    pub value1: u64,
    pub value2: u32,
    pub value3: u32,
    pub value4: u32,
    pub value5: u32,
    pub value6: u32,
    pub values7: [u64; 8],
    /// not copied
    pub uncopied: [u8; 8],
    pub values8: [u64; 23],
}

impl Default for LumoCPSyncStateEntry {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// The state of an instance's synchronisation with its control plane.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoCPSyncState {
    pub entries: [LumoCPSyncStateEntry; 5],
}

impl Default for LumoCPSyncState {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One IPv6 address of a LIF.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoLifIpv6Addr {
    pub address: [u8; 16],
    /// in bits
    pub prefixLen: u32,
    pub value: u8,
    /// not copied
    pub uncopied: [u8; 3],
}

impl Default for LumoLifIpv6Addr {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One DHCP server that a LIF relays to.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoDhcpRelayServer {
    /// in wire order; IPv4 in the first 4 bytes, the others as sent
    pub address: [u8; 16],
    /// 1 for IPv4, 3 for IPv6
    pub family: u32,
}

impl Default for LumoDhcpRelayServer {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// The DHCP servers that a LIF relays to, byte for byte as the module sent them.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoDhcpRelay {
    /// servers that count, as reported
    pub relayCount: u32,
    /// past relayCount as the module sent them, not zeroed
    pub servers: [LumoDhcpRelayServer; 8],
}

impl Default for LumoDhcpRelay {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One logical interface as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoLifInfo {
    pub lifName: [c_char; 64],
    pub lifSecondName: [c_char; 64],
    /// IPv4 address
    pub ipAddr: u32,
    /// its mask value
    pub ipMask: u32,
    /// designated-instance address, IPv4
    pub diIp: u32,
    pub lifMac: [u8; 6],
    pub lifValue1: u32,
    pub lifValue2: u32,
    pub lifValue3: u32,
    pub lifFlags: [u8; 4],
    pub dhcpRelay: LumoDhcpRelay,
    /// zero past ipv6Count
    pub ipv6Addrs: [LumoLifIpv6Addr; 10],
    /// as reported
    pub ipv6Count: u32,
    pub lifState1: u8,
    pub lifState2: u8,
    pub lifValue4: u32,
}

impl Default for LumoLifInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Logical interfaces.
#[repr(C)]
#[derive(Debug)]
pub struct LumoLifList {
    /// LIFs in records
    pub count: i32,
    /// room for `LUMOZEPH_LIFS_MAX`
    pub records: *mut LumoLifInfo,
}

/// The module's own answer to setting or deleting an IPv4 route, an interface policy, a policy, a policy table or
/// the references to one, for a caller that asks for it.
///
/// What it says, and in which layout, is the module's. The library zeroes it before the call, unless an argument is
/// rejected, and never reads it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoCmdResult {
    pub bytes: [u8; 88],
}

impl Default for LumoCmdResult {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One next hop of a route.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoNextHop {
    /// not copied
    pub uncopied: [u8; 4],
    /// IPv4 address
    pub nextHopAddr: u32,
    /// the outgoing LIF
    pub nextHopLifName: [c_char; 64],
    pub nextHopValue: [u8; 8],
}

impl Default for LumoNextHop {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One route, or one interface policy, as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoRouteInfo {
    /// IPv4 address of the destination network
    pub routeDest: u32,
    /// its mask value
    pub routeMask: u32,
    pub routeValue1: u32,
    pub routeValue2: u32,
    pub routeFlags: u8,
    /// as reported
    pub nextHopCount: u8,
    /// not copied
    pub uncopied: [u8; 2],
    pub routeValue3: [u8; 8],
    /// zero past nextHopCount
    pub nextHops: [LumoNextHop; 8],
}

impl Default for LumoRouteInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Routes, or interface policies.
#[repr(C)]
#[derive(Debug)]
pub struct LumoRouteList {
    /// routes in records
    pub count: i32,
    /// room for `LUMOZEPH_ROUTES_MAX`
    pub records: *mut LumoRouteInfo,
}

/// One policy as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoPolicyInfo {
    pub value1: u32,
    pub value2: u32,
    pub value3: u32,
    pub value4: u32,
    pub value5: u32,
    pub value6: u64,
}

impl Default for LumoPolicyInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Policies.
#[repr(C)]
#[derive(Debug)]
pub struct LumoPolicyList {
    /// policies in records
    pub count: i32,
    /// room for `LUMOZEPH_POLICIES_MAX`
    pub records: *mut LumoPolicyInfo,
}

/// One policy table as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoPolicyTableInfo {
    /// the table's number
    pub policyTableId: u32,
    pub policyTableName: [c_char; 64],
    pub value1: u32,
}

impl Default for LumoPolicyTableInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Policy tables.
#[repr(C)]
#[derive(Debug)]
pub struct LumoPolicyTableList {
    /// tables in records
    pub count: i32,
    /// room for `LUMOZEPH_POLICY_TABLES_MAX`
    pub records: *mut LumoPolicyTableInfo,
}

/// One reference to a policy table, as the module lays it out.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoPolicyTableRefEntry {
    pub bytes: [u8; 24],
}

impl Default for LumoPolicyTableRefEntry {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// The references from one LIF to policy tables.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoLifPolicyTableRef {
    pub text1: [c_char; 64],
    /// as reported
    pub refCount: u16,
    /// zero past refCount
    pub refs: [LumoPolicyTableRefEntry; 20],
}

impl Default for LumoLifPolicyTableRef {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One bridge as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeInstanceInfo {
    pub value1: u64,
    pub value2: u32,
    /// the bridge's name
    pub name: [c_char; 64],
    pub value3: u32,
    pub value4: u32,
    pub text1: [c_char; 128],
    pub text2: [c_char; 81],
    /// not copied
    pub uncopied: [u8; 12],
    pub value5: u32,
    pub value6: u32,
    pub data: [u64; 10],
}

impl Default for LumoBridgeInstanceInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Bridges.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeInstanceList {
    /// bridges in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGES_MAX`
    pub records: *mut LumoBridgeInstanceInfo,
}

/// One network of a bridge as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeNetworkInfo {
    pub value1: u64,
    pub value2: u32,
    pub value3: u16,
    pub value4: u32,
    pub value5: u16,
    pub value6: u32,
    pub value7: u32,
    pub value8: u8,
    pub data: [u64; 12],
    /// not copied
    pub uncopied: [u8; 8],
}

impl Default for LumoBridgeNetworkInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Networks of a bridge.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeNetworkList {
    /// networks in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_NETWORKS_MAX`
    pub records: *mut LumoBridgeNetworkInfo,
}

/// One port of a bridge as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgePortInfo {
    pub value1: u64,
    pub value2: u32,
    pub value3: u16,
    pub value4: u32,
    pub data: [u64; 16],
}

impl Default for LumoBridgePortInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Ports of a bridge.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgePortList {
    /// ports in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_PORTS_MAX`
    pub records: *mut LumoBridgePortInfo,
}

/// One entry of a bridge's forwarding table as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeFdbEntry {
    pub mac: [u8; 6],
    pub value1: u16,
    /// Bit-fields; each has a function that reads and one that writes it.
    pub value2_and_value3: u32,
    pub value4: u32,
    pub value5: u32,
}

impl LumoBridgeFdbEntry {
    /// 24 bits of value2_and_value3, from bit 0 on.
    #[inline]
    pub fn value2(&self) -> u32 {
        self.value2_and_value3 & 0xffffff
    }

    /// Sets these bits; the others of the value do not count.
    #[inline]
    pub fn set_value2(&mut self, value: u32) {
        self.value2_and_value3 = self.value2_and_value3 & !0xffffff | value & 0xffffff;
    }
    /// 8 bits of value2_and_value3, from bit 24 on.
    #[inline]
    pub fn value3(&self) -> u32 {
        self.value2_and_value3 >> 24 & 0xff
    }

    /// Sets these bits; the others of the value do not count.
    #[inline]
    pub fn set_value3(&mut self, value: u32) {
        self.value2_and_value3 = self.value2_and_value3 & !(0xff << 24) | (value & 0xff) << 24;
    }
}

impl Default for LumoBridgeFdbEntry {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Entries of a bridge's forwarding table.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeFdbList {
    /// entries in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX`
    pub records: *mut LumoBridgeFdbEntry,
}

/// One cluster as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeClusterInfo {
    /// as the module sent it, not necessarily terminated
    pub ident: [c_char; 64],
    /// not copied
    pub uncopied: [u8; 8],
    pub value1: u32,
    pub block: [u8; 96],
    pub value2: u16,
    pub value3: u16,
    pub value4: u16,
    pub value5: u8,
    pub value6: u32,
}

impl Default for LumoBridgeClusterInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Clusters.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeClusterList {
    /// clusters in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_CLUSTERS_MAX`
    pub records: *mut LumoBridgeClusterInfo,
}

/// One node of a cluster as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeClusterNodeInfo {
    /// as the module sent it, not necessarily terminated
    pub ident: [c_char; 64],
    pub value1: u32,
    pub value2: u16,
    pub value3: u8,
}

impl Default for LumoBridgeClusterNodeInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Nodes of clusters.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeClusterNodeList {
    /// nodes in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX`
    pub records: *mut LumoBridgeClusterNodeInfo,
}

/// One bridge endpoint as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeEndpointInfo {
    /// not copied
    pub uncopied: [u8; 64],
    /// as the module sent it, not necessarily terminated
    pub ident: [c_char; 64],
    pub value1: u16,
    pub value2: u8,
    pub value3: u32,
    pub value4: u32,
    pub block: [u8; 96],
}

impl Default for LumoBridgeEndpointInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Bridge endpoints.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeEndpointList {
    /// endpoints in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_ENDPOINTS_MAX`
    pub records: *mut LumoBridgeEndpointInfo,
}

/// One BFD session as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoBridgeBfdSessionInfo {
    pub value1: u16,
    /// an address of 6 bytes
    pub addr1: [u8; 6],
    /// an address of 6 bytes
    pub addr2: [u8; 6],
    pub value2: u32,
    pub value3: u8,
    pub value4: u32,
    pub value5: u64,
    pub value6: u64,
}

impl Default for LumoBridgeBfdSessionInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// BFD sessions.
#[repr(C)]
#[derive(Debug)]
pub struct LumoBridgeBfdSessionList {
    /// sessions in records
    pub count: i32,
    /// room for `LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX`
    pub records: *mut LumoBridgeBfdSessionInfo,
}

/// An instance's multicast domain as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoMcastDomainInfo {
    pub text1: [c_char; 64],
    pub text2: [c_char; 48],
    pub value1: u64,
    pub value2: u64,
    pub value3: u64,
    pub value4: u64,
    pub value5: u32,
}

impl Default for LumoMcastDomainInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// One local receiver as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoLocalRcvrInfo {
    pub text1: [c_char; 64],
    pub value1: u32,
    pub value2: u32,
    pub value3: u64,
    pub value4: u64,
}

impl Default for LumoLocalRcvrInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Local receivers.
#[repr(C)]
#[derive(Debug)]
pub struct LumoLocalRcvrList {
    /// receivers in records
    pub count: i32,
    /// room for `LUMOZEPH_LOCAL_RCVRS_MAX`
    pub records: *mut LumoLocalRcvrInfo,
}

/// One tunnel endpoint, as the module lays it out.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoVtepEntry {
    pub bytes: [u8; 68],
}

impl Default for LumoVtepEntry {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Tunnel endpoints.
#[repr(C)]
#[derive(Debug)]
pub struct LumoVtepTable {
    /// entries in records
    pub count: u32,
    /// exactly count of them; those after `LUMOZEPH_VTEPS_MAX` are zero
    pub records: *mut LumoVtepEntry,
}

/// One multicast group as the module reports it.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoMcastGroupInfo {
    pub value1: u32,
    pub value2: u32,
    pub value3: u32,
}

impl Default for LumoMcastGroupInfo {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Multicast groups.
#[repr(C)]
#[derive(Debug)]
pub struct LumoMcastGroupList {
    /// groups in records
    pub count: i32,
    /// room for `LUMOZEPH_MCAST_GROUPS_MAX`
    pub records: *mut LumoMcastGroupInfo,
}

/// Statistics of a target.
///
/// What is "not copied", and entries past rssEntryCount, are undefined here.
#[repr(C, packed)]
#[derive(Clone, Copy)]
pub struct LumoRssStats {
    /// not copied, undefined
    pub uncopied1: [u8; 4],
    /// as reported
    pub rssEntryCount: u32,
    /// undefined past rssEntryCount
    pub rssWord: [u32; 16],
    /// not copied, undefined
    pub uncopied2: [u8; 4],
    /// undefined past rssEntryCount
    pub rssCounter1: [u64; 16],
    /// undefined past rssEntryCount
    pub rssCounter2: [u64; 16],
    /// undefined past rssEntryCount
    pub rssCounter3: [u64; 16],
    /// not copied, undefined
    pub uncopied3: [u8; 344],
}

impl Default for LumoRssStats {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// Tunables of a target.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoRssTunables {
    /// read and set
    pub value1: u64,
    /// only read
    pub value2: u32,
}

impl Default for LumoRssTunables {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

/// An indirection table that is to be set.
#[repr(C, packed)]
#[derive(Clone, Copy, Debug, PartialEq, Eq, Hash)]
pub struct LumoRssIndTable {
    pub entries: [u8; 128],
    /// entries to send, at most 128; none if it is 0 or negative
    pub size: i32,
}

impl Default for LumoRssIndTable {
    /// All zero.
    fn default() -> Self {
        // Numbers and arrays of them.
        unsafe { std::mem::zeroed() }
    }
}

extern "C" {
    /// Issues one command.
    ///
    /// Opens the module's device read-write, calls ioctl with the command number and the envelope, and closes the
    /// device. For tools that speak to the module directly; every other function that opens the device goes through it.
    /// Sets no errno of its own. Of what ioctl returns, only the sign is looked at: a result above 0 is a success, too.
    pub fn LUMOZEPHIoctl(command: i32, envelope: *mut LumoEnvelope) -> i32;

    /// Turns a name or a UUID text into the instance key that requests carry.
    ///
    /// Always returns 0. The text may already lie in the key.
    pub fn LUMOZEPHGetUuidOrName(text: *const c_char, key: *mut [c_char; 64]) -> i32;

    /// Creates an instance, or updates it if it exists.
    pub fn LUMOZEPH_SetLumoInstance(instance: *const c_char, value1: u32, text: *const c_char, value2: u32) -> i32;

    /// Deletes an instance.
    pub fn LUMOZEPH_DelLumoInstance(instance: *const c_char) -> i32;

    /// Sets an instance's tunables.
    pub fn LUMOZEPH_SetLumoInstanceTunables(instance: *const c_char, tunables: *const c_char, value: u32) -> i32;

    /// Reads one instance.
    pub fn LUMOZEPH_GetInstance(instance: *const c_char, out: *mut *mut LumoInstanceInfo) -> i32;

    /// Reads all instances.
    pub fn LUMOZEPH_GetInstances(out: *mut *mut LumoInstanceList) -> i32;

    /// Frees a record of `LUMOZEPH_GetInstance`.
    pub fn LUMOZEPH_ReleaseInstance(instance: *mut LumoInstanceInfo) -> i32;

    /// Frees a list of `LUMOZEPH_GetInstances`.
    ///
    /// Zeroes value3, value4 and value5 of each of its records before that.
    pub fn LUMOZEPH_ReleaseInstances(list: *mut LumoInstanceList) -> i32;

    /// Reads the log level.
    pub fn LUMOZEPH_GetLogLevel(level: *mut u32) -> i32;

    /// Sets the log level.
    pub fn LUMOZEPH_SetLogLevel(level: u32) -> i32;

    /// Reads the extended log level.
    pub fn LUMOZEPH_GetExtendedLogLevel(level: *mut u32) -> i32;

    /// Sets the extended log level.
    pub fn LUMOZEPH_SetExtendedLogLevel(level: u32) -> i32;

    /// Reads the statistics level.
    pub fn LUMOZEPH_GetStatsLevel(level: *mut u32) -> i32;

    /// Sets the statistics level.
    pub fn LUMOZEPH_SetStatsLevel(level: u32) -> i32;

    /// Reads the size of the transmit dispatch queue.
    pub fn LUMOZEPH_GetTxDispQueueSize(size: *mut u32) -> i32;

    /// Sets the size of the transmit dispatch queue.
    pub fn LUMOZEPH_SetTxDispQueueSize(size: u32) -> i32;

    /// Reads the counters of an instance's control-plane traffic.
    pub fn LUMOZEPH_GetLumoInstanceCPStats(instance: *const c_char, out: *mut *mut LumoStats) -> i32;

    /// Resets the counters of an instance's control-plane traffic.
    pub fn LUMOZEPH_ResetLumoInstanceCPStats(instance: *const c_char) -> i32;

    /// Reads a LIF's counters.
    pub fn LUMOZEPH_GetLifStats(instance: *const c_char, lif: *const c_char, out: *mut *mut LumoStats) -> i32;

    /// Reads a LIF's counters as the module has cached them.
    pub fn LUMOZEPH_GetLifStatsCached(instance: *const c_char, lif: *const c_char, out: *mut *mut LumoStats) -> i32;

    /// Resets a LIF's counters.
    pub fn LUMOZEPH_ResetLifStats(instance: *const c_char, lif: *const c_char) -> i32;

    /// Reads the counters of distributed interfaces, of the module as a whole.
    pub fn LUMOZEPH_GetLumoDiStats(out: *mut *mut LumoStats) -> i32;

    /// Resets the counters of distributed interfaces, of the module as a whole.
    pub fn LUMOZEPH_ResetLumoDiStats() -> i32;

    /// Frees a record of `LUMOZEPH_GetLumoInstanceCPStats`, `LUMOZEPH_GetLifStats`, `LUMOZEPH_GetLifStatsCached`,
    /// `LUMOZEPH_GetLumoDiStats` or `LUMOZEPH_GetLumoInstanceCPSyncState`.
    pub fn LUMOZEPH_ReleaseStats(record: *mut c_void) -> i32;

    /// Activates the module's control-plane connection.
    pub fn LUMOZEPH_CPActivate(value: u32) -> i32;

    /// Sets an instance's control-plane address.
    pub fn LUMOZEPH_SetCPIp(instance: *const c_char, address: u32) -> i32;

    /// Reads an instance's synchronisation state.
    pub fn LUMOZEPH_GetLumoInstanceCPSyncState(instance: *const c_char, out: *mut *mut LumoCPSyncState) -> i32;

    /// Sets an instance's synchronisation state.
    pub fn LUMOZEPH_SetLumoInstanceCPSyncState(instance: *const c_char, state: u32) -> i32;

    /// Reads all connections.
    pub fn LUMOZEPH_GetConnections(buffer: *mut c_void) -> i32;

    /// Reads one connection.
    pub fn LUMOZEPH_GetConnection(name: *const c_char, buffer: *mut c_void) -> i32;

    /// Reads the virtual MAC address that goes with a name.
    pub fn LUMOZEPH_GetVMAC(name: *const c_char, mac: *mut u8) -> i32;

    /// Plumbs a connection.
    pub fn LUMOZEPH_PlumbLumoConnection(
        name: *const c_char,
        text1: *const c_char,
        ignored: u32,
        text2: *const c_char,
        text3: *const c_char,
        text4: *const c_char,
    ) -> i32;

    /// Unplumbs a connection.
    pub fn LUMOZEPH_UnPlumbLumoConnection(name: *const c_char) -> i32;

    /// Reads the value of the module's connection-deletion check.
    ///
    /// The length that the module reports is not looked at: if it answers with fewer than four bytes, the rest of the
    /// value is undefined.
    pub fn LUMOZEPH_LUMODevCheckConnDeletion(value: *mut u32) -> i32;

    /// Sends the module's generic flush.
    ///
    /// What is flushed, and what the values and the text have to do with it, is the module's.
    pub fn LUMOZEPH_GenericFlush(
        value1: u32,
        value2: u8,
        value3: u8,
        value4: u8,
        text: *const c_char,
        value5: u32,
    ) -> i32;

    /// Prepares the module for being unloaded.
    pub fn LUMOZEPH_PreUnload() -> i32;

    /// Starts a full-sync save of the whole module.
    pub fn LUMOZEPH_PerformFullSyncSave(value: u8, result: *mut u32) -> i32;

    /// Reads the status of the full-sync save.
    pub fn LUMOZEPH_GetFullSyncSaveStatus(status: *mut u32) -> i32;

    /// Creates a LIF.
    pub fn LUMOZEPH_SetLif(
        lif: *const c_char,
        auxName: *const c_char,
        address: u32,
        mask: u32,
        paramA: u32,
        paramB: u32,
        diAddress: u32,
        paramC: u32,
        instance: *const c_char,
        mac: *const u8,
    ) -> i32;

    /// Removes a LIF.
    pub fn LUMOZEPH_DelLif(lif: *const c_char, auxName: *const c_char, instance: *const c_char) -> i32;

    /// Adds a bridge LIF, or removes it.
    ///
    /// The same values are sent in both cases.
    pub fn LUMOZEPH_SetBridgeLif(
        lif: *const c_char,
        auxName: *const c_char,
        paramA: u32,
        paramB: u32,
        diValue: u32,
        instance: *const c_char,
        add: c_int,
    ) -> i32;

    /// Reads one routed LIF.
    pub fn LUMOZEPH_GetLif(instance: *const c_char, lif: *const c_char, out: *mut *mut LumoLifInfo) -> i32;

    /// Reads one bridge LIF.
    pub fn LUMOZEPH_GetBridgeLif(instance: *const c_char, lif: *const c_char, out: *mut *mut LumoLifInfo) -> i32;

    /// Reads an instance's routed LIFs.
    pub fn LUMOZEPH_GetLifs(instance: *const c_char, out: *mut *mut LumoLifList) -> i32;

    /// Reads an instance's bridge LIFs.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeLifs(instance: *const c_char, out: *mut *mut LumoLifList) -> i32;

    /// Frees a record of `LUMOZEPH_GetLif` or `LUMOZEPH_GetBridgeLif`.
    pub fn LUMOZEPH_ReleaseLif(lif: *mut LumoLifInfo) -> i32;

    /// Frees a list of `LUMOZEPH_GetLifs` or `LUMOZEPH_GetBridgeLifs`.
    pub fn LUMOZEPH_ReleaseLifs(list: *mut LumoLifList) -> i32;

    /// Sets a LIF's IPv4 address.
    pub fn LUMOZEPH_SetLifIp(instance: *const c_char, lif: *const c_char, address: u32, mask: u32) -> i32;

    /// Removes a LIF's IPv4 address.
    pub fn LUMOZEPH_DelLifIp(instance: *const c_char, lif: *const c_char, address: u32, mask: u32) -> i32;

    /// Sets a LIF's designated-instance address.
    pub fn LUMOZEPH_SetLifDIIp(instance: *const c_char, lif: *const c_char, address: u32) -> i32;

    /// Sets a LIF's VXLAN multicast address.
    pub fn LUMOZEPH_SetLifVxlanMulticastIp(instance: *const c_char, lif: *const c_char, address: u32) -> i32;

    /// Attaches a LIF to the VXLAN control plane.
    pub fn LUMOZEPH_SetLifVxlanCP(instance: *const c_char, lif: *const c_char) -> i32;

    /// Detaches a LIF from the VXLAN control plane.
    pub fn LUMOZEPH_DelLifVxlanCP(instance: *const c_char, lif: *const c_char) -> i32;

    /// Sets a LIF's administrative state to up.
    pub fn LUMOZEPH_EnableLif(instance: *const c_char, lif: *const c_char) -> i32;

    /// Sets a LIF's administrative state to down.
    pub fn LUMOZEPH_DisableLif(instance: *const c_char, lif: *const c_char) -> i32;

    /// Switches multicast routing on a LIF on or off.
    pub fn LUMOZEPH_SetLifMcastRouting(instance: *const c_char, lif: *const c_char, on: u8) -> i32;

    /// Sets the MTU that a LIF advertises in IPv6 router advertisements.
    pub fn LUMOZEPH_RAMTUSetv6(instance: *const c_char, lif: *const c_char, mtu: u32) -> i32;

    /// Adds an IPv6 address to a LIF.
    pub fn LUMOZEPH_SetLifIpv6(
        instance: *const c_char,
        lif: *const c_char,
        word1: u64,
        word2: u64,
        prefixLen: u32,
    ) -> i32;

    /// Removes an IPv6 address from a LIF.
    pub fn LUMOZEPH_DelLifIpv6(
        instance: *const c_char,
        lif: *const c_char,
        word1: u64,
        word2: u64,
        prefixLen: u32,
    ) -> i32;

    /// Configures multicast routing for an instance as a whole.
    pub fn LUMOZEPH_SetMcastRouting(
        instance: *const c_char,
        name: *const c_char,
        value1: u32,
        value2: u32,
        value3: u16,
        value4: u8,
    ) -> i32;

    /// Replaces the DHCP servers that a LIF relays to.
    ///
    /// As it stands, only the empty list can be configured: a server is accepted only if its text is well-formed both
    /// as an IPv4 and as an IPv6 address, which none is.
    pub fn LUMOZEPH_ConfigureLifDhcpRelay(instance: *const c_char, lif: *const c_char, servers: *mut c_char) -> i32;

    /// Adds an IPv4 route.
    pub fn LUMOZEPH_SetRoute(
        dest: u32,
        mask: u32,
        gateway: u32,
        lif: *const c_char,
        instance: *const c_char,
        param: u32,
        result: *mut LumoCmdResult,
    ) -> i32;

    /// Deletes an IPv4 route.
    pub fn LUMOZEPH_DelRoute(
        dest: u32,
        mask: u32,
        gateway: u32,
        lif: *const c_char,
        instance: *const c_char,
        result: *mut LumoCmdResult,
    ) -> i32;

    /// Reads an instance's routes.
    pub fn LUMOZEPH_GetRoutes(instance: *const c_char, out: *mut *mut LumoRouteList) -> i32;

    /// Asks the module which route it uses for a destination.
    pub fn LUMOZEPH_GetResolveRoute(
        instance: *const c_char,
        dest: u32,
        mask: u32,
        param: u32,
        out: *mut *mut LumoRouteInfo,
    ) -> i32;

    /// Frees a record of `LUMOZEPH_GetResolveRoute`.
    pub fn LUMOZEPH_ReleaseRoute(route: *mut LumoRouteInfo) -> i32;

    /// Frees a list of `LUMOZEPH_GetRoutes` or `LUMOZEPH_GetLifPolicies`.
    pub fn LUMOZEPH_ReleaseRoutes(list: *mut LumoRouteList) -> i32;

    /// Adds an IPv6 route.
    pub fn LUMOZEPH_SetRoutev6(
        dest1: u64,
        dest2: u64,
        prefixLen: u32,
        gateway1: u64,
        gateway2: u64,
        lif: *const c_char,
        instance: *const c_char,
    ) -> i32;

    /// Deletes an IPv6 route.
    pub fn LUMOZEPH_DelRoutev6(
        dest1: u64,
        dest2: u64,
        prefixLen: u32,
        gateway1: u64,
        gateway2: u64,
        lif: *const c_char,
        instance: *const c_char,
    ) -> i32;

    /// Reads an instance's IPv6 routes as the module lays them out, in entries of `LUMOZEPH_ROUTE6_SIZE` bytes.
    ///
    /// Sends two commands: the first asks how many routes there are, by which the block gets room for 8000 entries if
    /// there are fewer than that, or else for 30000 (a number of 2^31 or more counts as a negative one, which is fewer
    /// than 8000); the second reads them. The caller does not learn which: count is what the module reports, and may be
    /// larger than the room if the module is not well behaved. Only the first 8000 entries are sure to lie in the
    /// block. What the module has not written of them is undefined.
    pub fn LUMOZEPH_GetRoutesv6(instance: *const c_char, block: *mut *mut c_void, count: *mut u32) -> i32;

    /// Clears the module-wide IPv6 path-MTU table.
    pub fn LUMOZEPH_PMTUTableCearv6() -> i32;

    /// Adds an ARP entry.
    pub fn LUMOZEPH_SetArp(address: u32, mac: *const c_char, lif: *const c_char, instance: *const c_char) -> i32;

    /// Deletes an ARP entry.
    pub fn LUMOZEPH_DelArp(address: u32, lif: *const c_char, instance: *const c_char) -> i32;

    /// Adds a proxy entry of IPv4.
    pub fn LUMOZEPH_SetProxyArp(address: u32, lif: *const c_char, instance: *const c_char) -> i32;

    /// Deletes a proxy entry of IPv4.
    pub fn LUMOZEPH_DelProxyArp(address: u32, lif: *const c_char, instance: *const c_char) -> i32;

    /// Reads the ARP entries of a LIF, or of a whole instance.
    pub fn LUMOZEPH_GetArps(instance: *const c_char, lif: *const c_char, buffer: *mut c_void) -> i32;

    /// Reads the proxy entries of IPv4 of a LIF, or of a whole instance.
    pub fn LUMOZEPH_GetProxyArps(instance: *const c_char, lif: *const c_char, buffer: *mut c_void) -> i32;

    /// Clears the ARP table of a LIF, or of a whole instance.
    pub fn LUMOZEPH_ClearArp(instance: *const c_char, lif: *const c_char) -> i32;

    /// Clears the IPv6 neighbours of a LIF, or of a whole instance.
    pub fn LUMOZEPH_ClearArpv6(instance: *const c_char, lif: *const c_char) -> i32;

    /// Adds an IPv6 neighbour.
    pub fn LUMOZEPH_SetArpv6(
        word1: u64,
        word2: u64,
        mac: *const c_char,
        lif: *const c_char,
        instance: *const c_char,
    ) -> i32;

    /// Deletes an IPv6 neighbour.
    pub fn LUMOZEPH_DelArpv6(word1: u64, word2: u64, lif: *const c_char, instance: *const c_char) -> i32;

    /// Adds a proxy entry of IPv6.
    pub fn LUMOZEPH_SetProxyArpv6(word1: u64, word2: u64, lif: *const c_char, instance: *const c_char) -> i32;

    /// Deletes a proxy entry of IPv6.
    pub fn LUMOZEPH_DelProxyArpv6(word1: u64, word2: u64, lif: *const c_char, instance: *const c_char) -> i32;

    /// Reads the IPv6 neighbours of a LIF, or of a whole instance.
    pub fn LUMOZEPH_GetArpsv6(instance: *const c_char, lif: *const c_char, buffer: *mut c_void) -> i32;

    /// Adds an interface policy.
    pub fn LUMOZEPH_SetLifPolicy(
        kind: i32,
        text: *const c_char,
        dest: u32,
        mask: u32,
        gateway: u32,
        lif: *const c_char,
        instance: *const c_char,
        param: u32,
        result: *mut LumoCmdResult,
    ) -> i32;

    /// Deletes an interface policy.
    pub fn LUMOZEPH_DelLifPolicy(
        kind: i32,
        text: *const c_char,
        dest: u32,
        mask: u32,
        gateway: u32,
        lif: *const c_char,
        instance: *const c_char,
        param: u32,
        result: *mut LumoCmdResult,
    ) -> i32;

    /// Reads an instance's interface policies of one kind, as route records.
    pub fn LUMOZEPH_GetLifPolicies(
        instance: *const c_char,
        kind: u32,
        text: *const c_char,
        out: *mut *mut LumoRouteList,
    ) -> i32;

    /// Reads the policies of one table.
    pub fn LUMOZEPH_GetPolicy(table: u32, out: *mut *mut LumoPolicyList) -> i32;

    /// Counts the policies of one table.
    ///
    /// Of the request, 768 bytes are sent as the stack held them. If the module's reply is too short (EBADMSG), 4 bytes
    /// stay allocated.
    pub fn LUMOZEPH_GetPolicyCount(table: u32, count: *mut u32) -> i32;

    /// Sets a policy.
    pub fn LUMOZEPH_SetPolicy(table: u32, key1: u32, key2: u32, value: u32, result: *mut LumoCmdResult) -> i32;

    /// Deletes a policy.
    pub fn LUMOZEPH_DelPolicy(table: u32, key1: u32, key2: u32, result: *mut LumoCmdResult) -> i32;

    /// Frees a list of `LUMOZEPH_GetPolicy`.
    pub fn LUMOZEPH_ReleaseAllPolicy(list: *mut LumoPolicyList) -> i32;

    /// Reads the policy tables.
    pub fn LUMOZEPH_GetPolicyTable(out: *mut *mut LumoPolicyTableList) -> i32;

    /// Creates a policy table.
    pub fn LUMOZEPH_SetPolicyTable(table: u32, name: *const c_char, result: *mut LumoCmdResult) -> i32;

    /// Deletes a policy table.
    pub fn LUMOZEPH_DelPolicyTable(table: u32, result: *mut LumoCmdResult) -> i32;

    /// Frees a list of `LUMOZEPH_GetPolicyTable`.
    pub fn LUMOZEPH_ReleaseAllPolicyTable(list: *mut LumoPolicyTableList) -> i32;

    /// Reads a LIF's references to policy tables.
    pub fn LUMOZEPH_GetLifPolicyTableRef(
        instance: *const c_char,
        lif: *const c_char,
        out: *mut *mut LumoLifPolicyTableRef,
    ) -> i32;

    /// Sets a LIF's references to policy tables.
    pub fn LUMOZEPH_SetLifPolicyTableRef(
        instance: *const c_char,
        lif: *const c_char,
        count: u16,
        entries: *const LumoPolicyTableRefEntry,
        result: *mut LumoCmdResult,
    ) -> i32;

    /// Deletes a LIF's references to policy tables.
    pub fn LUMOZEPH_DelLifPolicyTableRef(
        instance: *const c_char,
        lif: *const c_char,
        result: *mut LumoCmdResult,
    ) -> i32;

    /// Frees a record of `LUMOZEPH_GetLifPolicyTableRef`.
    pub fn LUMOZEPH_ReleaseLifPolicyTableRef(r#ref: *mut LumoLifPolicyTableRef) -> i32;

    /// Reads one bridge.
    pub fn LUMOZEPH_GetBridgeInstance(key: *const c_char, out: *mut *mut LumoBridgeInstanceInfo) -> i32;

    /// Reads all bridges.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeInstances(out: *mut *mut LumoBridgeInstanceList) -> i32;

    /// Reads all bridges into a list of the caller's: the worker of `LUMOZEPH_GetBridgeInstances`.
    pub fn LUMOZEPHGetBridgeInstances(list: *mut LumoBridgeInstanceList) -> i32;

    /// Frees a record of `LUMOZEPH_GetBridgeInstance`.
    pub fn LUMOZEPH_ReleaseBridgeInstance(bridge: *mut LumoBridgeInstanceInfo) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeInstances` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeInstances(list: *mut LumoBridgeInstanceList) -> i32;

    /// Creates a bridge.
    pub fn LUMOZEPH_BridgeAdd(key: *const c_char, value: u32) -> i32;

    /// Removes a bridge.
    pub fn LUMOZEPH_BridgeDel(key: *const c_char, value: u32) -> i32;

    /// Switches a bridge on.
    pub fn LUMOZEPH_BridgeEnable(key: *const c_char, value: u8) -> i32;

    /// Switches a bridge off.
    pub fn LUMOZEPH_BridgeDisable(key: *const c_char, value: u8) -> i32;

    /// Sets a bridge's high-availability administrative state.
    pub fn LUMOZEPH_BridgeSetHAAdminState(key: *const c_char, state: u32) -> i32;

    /// Sets a bridge's replication mode.
    pub fn LUMOZEPH_SetBridgeRepMode(key: *const c_char, mode: u32) -> i32;

    /// Sets one numeric setting of a bridge, which the command number chooses.
    ///
    /// The number is sent unchecked, also that of a command of another chapter. No room is offered for a reply.
    pub fn LUMOZEPH_BridgeSetConfig(key: *const c_char, command: i32, value: u32) -> i32;

    /// Reads a bridge's networks.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeNetworks(
        firstKey: *const c_char,
        key: *const c_char,
        out: *mut *mut LumoBridgeNetworkList,
    ) -> i32;

    /// Reads a bridge's networks into a list of the caller's: the worker of `LUMOZEPH_GetBridgeNetworks`.
    pub fn LUMOZEPHGetBridgeNetworks(
        firstKey: *const c_char,
        key: *const c_char,
        list: *mut LumoBridgeNetworkList,
    ) -> i32;

    /// Reads a bridge's ports.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgePorts(
        firstKey: *const c_char,
        key: *const c_char,
        value16: u16,
        value32: u32,
        out: *mut *mut LumoBridgePortList,
    ) -> i32;

    /// Reads a bridge's ports into a list of the caller's: the worker of `LUMOZEPH_GetBridgePorts`.
    pub fn LUMOZEPHGetBridgePorts(
        firstKey: *const c_char,
        key: *const c_char,
        value16: u16,
        value32: u32,
        list: *mut LumoBridgePortList,
    ) -> i32;

    /// Frees a network record that stands alone.
    ///
    /// No function returns one.
    pub fn LUMOZEPH_ReleaseBridgeNetwork(network: *mut LumoBridgeNetworkInfo) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeNetworks` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeNetworks(list: *mut LumoBridgeNetworkList) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgePorts` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgePorts(list: *mut LumoBridgePortList) -> i32;

    /// Reads entries of a bridge's forwarding table.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeFdbEntries(
        key: *const c_char,
        value16: u16,
        value32: u32,
        out: *mut *mut LumoBridgeFdbList,
    ) -> i32;

    /// Reads entries of a bridge's forwarding table into a list of the caller's: the worker of
    /// `LUMOZEPH_GetBridgeFdbEntries`.
    pub fn LUMOZEPHGetBridgeFdbEntries(
        key: *const c_char,
        value16: u16,
        value32: u32,
        list: *mut LumoBridgeFdbList,
    ) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeFdbEntries` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeFdbEntries(list: *mut LumoBridgeFdbList) -> i32;

    /// Sets an entry of a bridge's forwarding table.
    pub fn LUMOZEPH_BridgeSetFdbEntry(
        key: *const c_char,
        mac: *const c_char,
        selector1: u32,
        selector2: u32,
        value: u32,
        flags: u8,
    ) -> i32;

    /// Clears a bridge's forwarding table.
    pub fn LUMOZEPH_BridgeClearFdbTable(key: *const c_char, selector1: u32, selector2: u32) -> i32;

    /// Reads the module's FL table.
    pub fn LUMOZEPH_DumpFLTable(selector: u16, buffer: *mut c_void) -> i32;

    /// Reads the PMAC table.
    pub fn LUMOZEPH_GetPmac(buffer: *mut c_void) -> i32;

    /// Adds a PMAC.
    pub fn LUMOZEPH_AddPmac(value: u32, mac: *const u8) -> i32;

    /// Deletes a PMAC.
    pub fn LUMOZEPH_DelPmac(mac: *const u8) -> i32;

    /// Reads the locale identifier.
    pub fn LUMOZEPH_GetLocaleId(buffer: *mut c_void) -> i32;

    /// Reads clusters.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeClusters(key: *const c_char, out: *mut *mut LumoBridgeClusterList) -> i32;

    /// Reads clusters into a list of the caller's: the worker of `LUMOZEPH_GetBridgeClusters`.
    pub fn LUMOZEPHGetBridgeClusters(key: *const c_char, list: *mut LumoBridgeClusterList) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeClusters` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeClusters(list: *mut LumoBridgeClusterList) -> i32;

    /// Sets a cluster, or removes it.
    pub fn LUMOZEPH_BridgeClusterSet(key: *const c_char, on: i8) -> i32;

    /// Reads nodes of clusters.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeClusterNodes(key: *const c_char, out: *mut *mut LumoBridgeClusterNodeList) -> i32;

    /// Reads nodes of clusters into a list of the caller's: the worker of `LUMOZEPH_GetBridgeClusterNodes`.
    pub fn LUMOZEPHGetBridgeClusterNodes(key: *const c_char, list: *mut LumoBridgeClusterNodeList) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeClusterNodes` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeClusterNodes(list: *mut LumoBridgeClusterNodeList) -> i32;

    /// Sets a node of a cluster, or removes it.
    pub fn LUMOZEPH_BridgeClusterNodeSet(key: *const c_char, node: *const c_char, mac: *const u8, on: i8) -> i32;

    /// Sets the local transport node.
    pub fn LUMOZEPH_BridgeLocalTransportNodeSet(
        text1: *const c_char,
        text2: *const c_char,
        text3: *const c_char,
        value: u32,
        block: *const c_void,
        on: i8,
    ) -> i32;

    /// Reads the local transport node.
    pub fn LUMOZEPH_BridgeGetLocalTransportNode(buffer: *mut c_void, selector: u32) -> i32;

    /// Flushes a cluster.
    pub fn LUMOZEPH_FlushBridgeCluster(key: *const c_char, on: i8) -> i32;

    /// Sets the debug level of a cluster.
    pub fn LUMOZEPH_SetBridgeClusterDebug(key: *const c_char, level: u8) -> i32;

    /// Sets the BFD high-availability profile of a cluster.
    pub fn LUMOZEPH_BridgeClusterBfdHAProfileSet(key: *const c_char, flag: u8, value1: u32, value2: u32) -> i32;

    /// Adds a bridge endpoint.
    pub fn LUMOZEPH_AddBridgeEndpoint(
        key: *const c_char,
        text1: *const c_char,
        name: *const c_char,
        value1: u32,
        value2: u32,
        text2: *const c_char,
        value3: u16,
        flag1: u8,
        text3: *const c_char,
        flag2: u8,
    ) -> i32;

    /// Deletes a bridge endpoint.
    pub fn LUMOZEPH_DelBridgeEndpoint(key: *const c_char, name: *const c_char) -> i32;

    /// Flushes the bridge endpoints.
    pub fn LUMOZEPH_FlushBridgeEndpoint(on: i8) -> i32;

    /// Reads bridge endpoints.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeEndpoints(key: *const c_char, out: *mut *mut LumoBridgeEndpointList) -> i32;

    /// Reads bridge endpoints into a list of the caller's: the worker of `LUMOZEPH_GetBridgeEndpoints`.
    pub fn LUMOZEPHGetBridgeEndpoints(key: *const c_char, list: *mut LumoBridgeEndpointList) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeEndpoints` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeEndpoints(list: *mut LumoBridgeEndpointList) -> i32;

    /// Reads the statistics of a bridge endpoint.
    pub fn LUMOZEPH_GetBeStats(key: *const c_char, buffer: *mut c_void) -> i32;

    /// Reads the status of a bridge endpoint.
    pub fn LUMOZEPH_GetBeStatus(key: *const c_char, buffer: *mut c_void) -> i32;

    /// Reads all bridge endpoints as the module lays them out.
    pub fn LUMOZEPH_GetBeAll(buffer: *mut c_void, size: u32, count: *mut u32) -> i32;

    /// Reads BFD sessions.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetBridgeBFDSessions(key: *const c_char, out: *mut *mut LumoBridgeBfdSessionList) -> i32;

    /// Reads BFD sessions into a list of the caller's: the worker of `LUMOZEPH_GetBridgeBFDSessions`.
    pub fn LUMOZEPHGetBridgeBFDSessions(key: *const c_char, list: *mut LumoBridgeBfdSessionList) -> i32;

    /// Frees a list of `LUMOZEPH_GetBridgeBFDSessions` or of its worker.
    pub fn LUMOZEPH_ReleaseBridgeBFDSessions(list: *mut LumoBridgeBfdSessionList) -> i32;

    /// Plumbs a port connection for BFD.
    pub fn LUMOZEPH_PlumbBFDPortConnection(port: *const c_char, text: *const c_char, mac: *const u8) -> i32;

    /// Unplumbs a port connection for BFD.
    pub fn LUMOZEPH_UnPlumbBFDPortConnection(port: *const c_char) -> i32;

    /// Reads the port connections for BFD.
    pub fn LUMOZEPH_GetBFDPortConnections(buffer: *mut c_void) -> i32;

    /// Reads an instance's multicast domain.
    pub fn LUMOZEPH_GetMRoutingDomain(instance: *const c_char, out: *mut *mut LumoMcastDomainInfo) -> i32;

    /// Frees a record of `LUMOZEPH_GetMRoutingDomain`.
    pub fn LUMOZEPH_ReleaseMRoutingDomainData(domain: *mut LumoMcastDomainInfo) -> i32;

    /// Reads an instance's local receivers under a value.
    ///
    /// If the device call fails, 16 bytes stay allocated.
    pub fn LUMOZEPH_GetMRoutingLocalRcvrs(instance: *const c_char, value: u32, out: *mut *mut LumoLocalRcvrList)
        -> i32;

    /// Adds a local receiver.
    pub fn LUMOZEPH_AddMRoutingLocalRcvrs(instance: *const c_char, value: u32, text: *const c_char) -> i32;

    /// Deletes a local receiver.
    pub fn LUMOZEPH_DelMRoutingLocalRcvrs(instance: *const c_char, value: u32, text: *const c_char) -> i32;

    /// Frees a list of `LUMOZEPH_GetMRoutingLocalRcvrs`.
    pub fn LUMOZEPH_ReleaseMRoutingLocalRcvrs(list: *mut LumoLocalRcvrList) -> i32;

    /// Reads an instance's remote receivers under a value.
    pub fn LUMOZEPH_GetMRoutingRemoteRcvrs(instance: *const c_char, value: u32, out: *mut *mut LumoVtepTable) -> i32;

    /// Adds a remote receiver.
    pub fn LUMOZEPH_AddMRoutingRemoteRcvrs(
        instance: *const c_char,
        value: u32,
        key: u32,
        hwAddr: *const u8,
        value1: u32,
        value2: u32,
    ) -> i32;

    /// Deletes a remote receiver.
    ///
    /// Of the request, 704 bytes are sent as the stack held them.
    pub fn LUMOZEPH_DelMRoutingRemoteRcvrs(instance: *const c_char, value: u32, key: u32) -> i32;

    /// Frees a table of `LUMOZEPH_GetMRoutingRemoteRcvrs`.
    ///
    /// The array of a table whose count is 0 stays allocated: give it to free() before.
    pub fn LUMOZEPH_ReleaseVTEPTable(table: *mut LumoVtepTable) -> i32;

    /// Reads an instance's multicast groups.
    ///
    /// A fragment at the end of the module's reply is no error: it counts as a group, whose missing bytes are
    /// undefined. If the device call fails, 16 bytes stay allocated. EBADMSG can only be the module's own answer.
    pub fn LUMOZEPH_GetMRoutingAllMcastGroups(instance: *const c_char, out: *mut *mut LumoMcastGroupList) -> i32;

    /// Frees a list of `LUMOZEPH_GetMRoutingAllMcastGroups`.
    pub fn LUMOZEPH_ReleaseMRoutingMcastGroups(list: *mut LumoMcastGroupList) -> i32;

    /// Reads an instance's replication address under a value.
    pub fn LUMOZEPH_GetMRoutingReplicationIP(instance: *const c_char, value: u32, address: *mut u32) -> i32;

    /// Reads the address of an instance's multicast router under a value.
    pub fn LUMOZEPH_GetMRoutingMRouterIP(instance: *const c_char, value: u32, address: *mut u32) -> i32;

    /// Adds a multicast router to an instance.
    pub fn LUMOZEPH_AddMRoutingMRouter(instance: *const c_char, value: u32) -> i32;

    /// Removes an instance's multicast router.
    pub fn LUMOZEPH_DelMRoutingMRouter(instance: *const c_char) -> i32;

    /// Reads a target's statistics.
    ///
    /// A reply that is too short is no error. EBADMSG can only be the module's own answer.
    pub fn LUMOZEPH_SoftRSSGetStats(target: *const c_char, out: *mut *mut LumoRssStats) -> i32;

    /// Resets a target's statistics.
    pub fn LUMOZEPH_SoftRSSStatsReset(target: *const c_char) -> i32;

    /// Reads a target's tunables.
    pub fn LUMOZEPH_SoftRSSGetTunables(target: *const c_char, tunables: *mut LumoRssTunables) -> i32;

    /// Sets a target's tunables: value1 only.
    pub fn LUMOZEPH_SoftRSSSetTunables(target: *const c_char, tunables: *const LumoRssTunables) -> i32;

    /// Reads a target's indirection table.
    pub fn LUMOZEPH_SoftRSSGetIndTable(target: *const c_char, entries: *mut u8) -> i32;

    /// Sets a target's indirection table.
    ///
    /// The size is sent as it stands, also a negative one.
    pub fn LUMOZEPH_SoftRSSTableSet(target: *const c_char, table: *const LumoRssIndTable) -> i32;
}
