"""The records that operations read and take, and how many there are at most. Made from api/lumozeph.json."""

from ctypes import c_int32, c_uint8, c_uint16, c_uint32, c_uint64

from ._members import (
    IP,
    Bits,
    Bytes,
    Gap,
    IPv4,
    IPv6,
    Mac,
    Nested,
    Number,
    Numbers,
    Record,
    Table,
    Text,
    members,
)

__all__ = [
    "REQUEST_SIZE",
    "KEY_SIZE",
    "MAC_SIZE",
    "INSTANCES_MAX",
    "STATS_COUNTERS",
    "CP_SYNC_STATE_ENTRIES",
    "CONNECTIONS_SIZE",
    "CONNECTION_SIZE",
    "LIFS_MAX",
    "LIF_IPV6_ADDRS_MAX",
    "DHCP_RELAY_SERVERS_MAX",
    "ROUTES_MAX",
    "NEXT_HOPS_MAX",
    "CMD_RESULT_SIZE",
    "ROUTE6_SIZE",
    "ARP_TABLE_SIZE",
    "POLICIES_MAX",
    "POLICY_TABLES_MAX",
    "POLICY_TABLE_REFS_MAX",
    "BRIDGES_MAX",
    "BRIDGE_NETWORKS_MAX",
    "BRIDGE_PORTS_MAX",
    "BRIDGE_FDB_ENTRIES_MAX",
    "FL_TABLE_SIZE",
    "PMAC_TABLE_SIZE",
    "BRIDGE_CLUSTERS_MAX",
    "BRIDGE_CLUSTER_NODES_MAX",
    "LOCALE_ID_SIZE",
    "LOCAL_TRANSPORT_NODE_SIZE",
    "LOCAL_TRANSPORT_BLOCK_SIZE",
    "BRIDGE_ENDPOINTS_MAX",
    "BE_STATS_SIZE",
    "BE_STATUS_SIZE",
    "BE_SIZE",
    "BRIDGE_BFD_SESSIONS_MAX",
    "BFD_PORT_CONNECTIONS_SIZE",
    "LOCAL_RCVRS_MAX",
    "VTEPS_MAX",
    "MCAST_GROUPS_MAX",
    "RSS_ENTRIES_MAX",
    "RSS_IND_TABLE_SIZE",
    "InstanceInfo",
    "Stats",
    "CPSyncStateEntry",
    "CPSyncState",
    "LifIpv6Addr",
    "DhcpRelayServer",
    "DhcpRelay",
    "LifInfo",
    "CmdResult",
    "NextHop",
    "RouteInfo",
    "PolicyInfo",
    "PolicyTableInfo",
    "PolicyTableRefEntry",
    "LifPolicyTableRef",
    "BridgeInstanceInfo",
    "BridgeNetworkInfo",
    "BridgePortInfo",
    "BridgeFdbEntry",
    "BridgeClusterInfo",
    "BridgeClusterNodeInfo",
    "BridgeEndpointInfo",
    "BridgeBfdSessionInfo",
    "McastDomainInfo",
    "LocalRcvrInfo",
    "VtepEntry",
    "McastGroupInfo",
    "RssStats",
    "RssTunables",
    "RssIndTable",
]

REQUEST_SIZE = 776
"""Size of a request record, in bytes."""
KEY_SIZE = 64
"""Size of an instance key with its NUL, in bytes."""
MAC_SIZE = 6
"""Size of a MAC address, in bytes."""
INSTANCES_MAX = 1000
"""Instances in a list at most."""
STATS_COUNTERS = 100
"""Counters in a record."""
CP_SYNC_STATE_ENTRIES = 5
"""Entries of a synchronisation state."""
CONNECTIONS_SIZE = 131072
"""Room for all connections, in bytes."""
CONNECTION_SIZE = 152
"""Room for one connection, in bytes."""
LIFS_MAX = 10000
"""LIFs in a list at most."""
LIF_IPV6_ADDRS_MAX = 10
"""Room of LifInfo.ipv6Addrs."""
DHCP_RELAY_SERVERS_MAX = 8
"""Room of DhcpRelay.servers."""
ROUTES_MAX = 8000
"""Routes, or interface policies, in a list at most."""
NEXT_HOPS_MAX = 8
"""Room of RouteInfo.nextHops."""
CMD_RESULT_SIZE = 88
"""Size of the module's own answer to a set or a delete, in bytes."""
ROUTE6_SIZE = 776
"""Size of an entry of get_routes_v6, in bytes."""
ARP_TABLE_SIZE = 7471104
"""Room for a table of neighbours, in bytes."""
POLICIES_MAX = 1000
"""Policies in a list at most."""
POLICY_TABLES_MAX = 1000
"""Policy tables in a list at most."""
POLICY_TABLE_REFS_MAX = 20
"""Room of LifPolicyTableRef.refs, and references that can be set at most."""
BRIDGES_MAX = 4096
"""Bridges in a list at most."""
BRIDGE_NETWORKS_MAX = 32768
"""Networks in a list at most."""
BRIDGE_PORTS_MAX = 32768
"""Ports in a list at most."""
BRIDGE_FDB_ENTRIES_MAX = 4096
"""Entries of a forwarding table in a list at most."""
FL_TABLE_SIZE = 426080
"""Room for the FL table, in bytes."""
PMAC_TABLE_SIZE = 131072
"""Room for the PMAC table, in bytes."""
BRIDGE_CLUSTERS_MAX = 10
"""Clusters in a list at most."""
BRIDGE_CLUSTER_NODES_MAX = 100
"""Nodes in a list at most."""
LOCALE_ID_SIZE = 16
"""Room for the locale identifier, in bytes."""
LOCAL_TRANSPORT_NODE_SIZE = 2048
"""Room for the local transport node, in bytes."""
LOCAL_TRANSPORT_BLOCK_SIZE = 64
"""Size of the block that a local transport node is set with, in bytes."""
BRIDGE_ENDPOINTS_MAX = 28672
"""Endpoints in a list at most."""
BE_STATS_SIZE = 146
"""Room for the statistics of an endpoint, in bytes: the size of BridgePortInfo."""
BE_STATUS_SIZE = 229
"""Room for the status of an endpoint, in bytes."""
BE_SIZE = 235
"""The unit in which get_be_all counts, in bytes: the size of BridgeEndpointInfo."""
BRIDGE_BFD_SESSIONS_MAX = 2867200
"""BFD sessions in a list at most."""
BFD_PORT_CONNECTIONS_SIZE = 131072
"""Room for the port connections for BFD, in bytes."""
LOCAL_RCVRS_MAX = 512
"""Local receivers in a list at most."""
VTEPS_MAX = 2048
"""Tunnel endpoints in a table at most, if the module is well behaved."""
MCAST_GROUPS_MAX = 4096
"""Multicast groups in a list at most."""
RSS_ENTRIES_MAX = 16
"""Entries of each array of RssStats."""
RSS_IND_TABLE_SIZE = 128
"""Size of an indirection table, in bytes and in entries."""


@members(
    Text("instanceKey", 64),
    Number("value1", c_uint32),
    Number("value2", c_uint32),
    Number("value3", c_uint16),
    Number("value4", c_uint16),
    Number("value5", c_uint16),
    Number("value6", c_uint32),
    Number("value7", c_uint32),
    Number("value8", c_uint32),
    Number("value9", c_uint8),
    Number("value10", c_uint16),
    Gap("uncopied", 2),
    Number("value11", c_uint8),
    Number("value12", c_uint8),
    Bytes("bytes1", 13),
    Numbers("words", c_uint32, 4),
    Number("value13", c_uint32),
    Number("value14", c_uint16),
    Number("value15", c_uint8),
    Number("value16", c_uint16),
    Number("value17", c_uint8),
    Text("text2", 64),
    Number("value18", c_uint16),
    Bytes("bytes2", 32),
    Number("value19", c_uint64),
    Number("value20", c_uint32),
    Number("value21", c_uint8),
    Number("value22", c_uint32),
    Number("value23", c_uint32),
    Number("value24", c_uint8),
)
class InstanceInfo(Record):
    """One router instance as the module reports it.

    Attributes:
        instanceKey: the instance's key text
        value1: value1 of set_lumo_instance
    """

    __slots__ = ()


@members(
    Number("statsKind", c_uint32),
    Numbers("counters", c_uint64, 100),
)
class Stats(Record):
    """Counters.

    Which of them arrive depends on statsKind; all others are zero. By statsKind, as indices into counters:

        0: 0 to 27, but not 8
        1: 0 to 99, but not 71 and 77; 84 repeats 83
        3: 1 to 19
        other: none

    Attributes:
        statsKind: chooses the counters
    """

    __slots__ = ()


@members(
    Number("value1", c_uint64),
    Number("value2", c_uint32),
    Number("value3", c_uint32),
    Number("value4", c_uint32),
    Number("value5", c_uint32),
    Number("value6", c_uint32),
    Numbers("values7", c_uint64, 8),
    Gap("uncopied", 8),
    Numbers("values8", c_uint64, 23),
)
class CPSyncStateEntry(Record):
    """One entry of a synchronisation state."""

    __slots__ = ()


@members(
    Table("entries", CPSyncStateEntry, 5),
)
class CPSyncState(Record):
    """The state of an instance's synchronisation with its control plane."""

    __slots__ = ()


@members(
    IPv6("address"),
    Number("prefixLen", c_uint32),
    Number("value", c_uint8),
    Gap("uncopied", 3),
)
class LifIpv6Addr(Record):
    """One IPv6 address of a LIF.

    Attributes:
        prefixLen: in bits
    """

    __slots__ = ()


@members(
    IP("address", "family"),
    Number("family", c_uint32),
)
class DhcpRelayServer(Record):
    """One DHCP server that a LIF relays to.

    Attributes:
        address: in wire order; IPv4 in the first 4 bytes, the others as sent
        family: 1 for IPv4, 3 for IPv6
    """

    __slots__ = ()


@members(
    Number("relayCount", c_uint32),
    Table("servers", DhcpRelayServer, 8, counted_by="relayCount"),
)
class DhcpRelay(Record):
    """The DHCP servers that a LIF relays to, byte for byte as the module sent them.

    Attributes:
        relayCount: servers that count, as reported
        servers: past relayCount as the module sent them, not zeroed
    """

    __slots__ = ()


@members(
    Text("lifName", 64),
    Text("lifSecondName", 64),
    IPv4("ipAddr"),
    IPv4("ipMask"),
    IPv4("diIp"),
    Mac("lifMac"),
    Number("lifValue1", c_uint32),
    Number("lifValue2", c_uint32),
    Number("lifValue3", c_uint32),
    Bytes("lifFlags", 4),
    Nested("dhcpRelay", DhcpRelay),
    Table("ipv6Addrs", LifIpv6Addr, 10, counted_by="ipv6Count"),
    Number("ipv6Count", c_uint32),
    Number("lifState1", c_uint8),
    Number("lifState2", c_uint8),
    Number("lifValue4", c_uint32),
)
class LifInfo(Record):
    """One logical interface as the module reports it.

    Attributes:
        ipAddr: IPv4 address
        ipMask: its mask value
        diIp: designated-instance address, IPv4
        ipv6Count: as reported
    """

    __slots__ = ()


@members(
    Bytes("bytes", 88),
)
class CmdResult(Record):
    """The module's own answer to setting or deleting an IPv4 route, an interface policy, a policy, a policy table or
    the references to one, for a caller that asks for it.

    What it says, and in which layout, is the module's. The library zeroes it before the call, unless an argument is
    rejected, and never reads it.
    """

    __slots__ = ()


@members(
    Gap("uncopied", 4),
    IPv4("nextHopAddr"),
    Text("nextHopLifName", 64),
    Bytes("nextHopValue", 8),
)
class NextHop(Record):
    """One next hop of a route.

    Attributes:
        nextHopAddr: IPv4 address
        nextHopLifName: the outgoing LIF
    """

    __slots__ = ()


@members(
    IPv4("routeDest"),
    IPv4("routeMask"),
    Number("routeValue1", c_uint32),
    Number("routeValue2", c_uint32),
    Number("routeFlags", c_uint8),
    Number("nextHopCount", c_uint8),
    Gap("uncopied", 2),
    Bytes("routeValue3", 8),
    Table("nextHops", NextHop, 8, counted_by="nextHopCount"),
)
class RouteInfo(Record):
    """One route, or one interface policy, as the module reports it.

    Attributes:
        routeDest: IPv4 address of the destination network
        routeMask: its mask value
        nextHopCount: as reported
    """

    __slots__ = ()


@members(
    Number("value1", c_uint32),
    Number("value2", c_uint32),
    Number("value3", c_uint32),
    Number("value4", c_uint32),
    Number("value5", c_uint32),
    Number("value6", c_uint64),
)
class PolicyInfo(Record):
    """One policy as the module reports it."""

    __slots__ = ()


@members(
    Number("policyTableId", c_uint32),
    Text("policyTableName", 64),
    Number("value1", c_uint32),
)
class PolicyTableInfo(Record):
    """One policy table as the module reports it.

    Attributes:
        policyTableId: the table's number
    """

    __slots__ = ()


@members(
    Bytes("bytes", 24),
)
class PolicyTableRefEntry(Record):
    """One reference to a policy table, as the module lays it out."""

    __slots__ = ()


@members(
    Text("text1", 64),
    Number("refCount", c_uint16),
    Table("refs", PolicyTableRefEntry, 20, counted_by="refCount"),
)
class LifPolicyTableRef(Record):
    """The references from one LIF to policy tables.

    Attributes:
        refCount: as reported
    """

    __slots__ = ()


@members(
    Number("value1", c_uint64),
    Number("value2", c_uint32),
    Text("name", 64),
    Number("value3", c_uint32),
    Number("value4", c_uint32),
    Text("text1", 128),
    Text("text2", 81),
    Gap("uncopied", 12),
    Number("value5", c_uint32),
    Number("value6", c_uint32),
    Numbers("data", c_uint64, 10),
)
class BridgeInstanceInfo(Record):
    """One bridge as the module reports it.

    Attributes:
        name: the bridge's name
    """

    __slots__ = ()


@members(
    Number("value1", c_uint64),
    Number("value2", c_uint32),
    Number("value3", c_uint16),
    Number("value4", c_uint32),
    Number("value5", c_uint16),
    Number("value6", c_uint32),
    Number("value7", c_uint32),
    Number("value8", c_uint8),
    Numbers("data", c_uint64, 12),
    Gap("uncopied", 8),
)
class BridgeNetworkInfo(Record):
    """One network of a bridge as the module reports it."""

    __slots__ = ()


@members(
    Number("value1", c_uint64),
    Number("value2", c_uint32),
    Number("value3", c_uint16),
    Number("value4", c_uint32),
    Numbers("data", c_uint64, 16),
)
class BridgePortInfo(Record):
    """One port of a bridge as the module reports it."""

    __slots__ = ()


@members(
    Mac("mac"),
    Number("value1", c_uint16),
    Bits("value2", c_uint32, 0, 24, "value2_value3"),
    Bits("value3", c_uint32, 24, 8, "value2_value3"),
    Number("value4", c_uint32),
    Number("value5", c_uint32),
)
class BridgeFdbEntry(Record):
    """One entry of a bridge's forwarding table as the module reports it.

    Attributes:
        value2: the low 24 bits of the 32-bit word there
        value3: its top byte
    """

    __slots__ = ()


@members(
    Text("ident", 64, terminated=False),
    Gap("uncopied", 8),
    Number("value1", c_uint32),
    Bytes("block", 96),
    Number("value2", c_uint16),
    Number("value3", c_uint16),
    Number("value4", c_uint16),
    Number("value5", c_uint8),
    Number("value6", c_uint32),
)
class BridgeClusterInfo(Record):
    """One cluster as the module reports it.

    Attributes:
        ident: as the module sent it, not necessarily terminated
    """

    __slots__ = ()


@members(
    Text("ident", 64, terminated=False),
    Number("value1", c_uint32),
    Number("value2", c_uint16),
    Number("value3", c_uint8),
)
class BridgeClusterNodeInfo(Record):
    """One node of a cluster as the module reports it.

    Attributes:
        ident: as the module sent it, not necessarily terminated
    """

    __slots__ = ()


@members(
    Gap("uncopied", 64),
    Text("ident", 64, terminated=False),
    Number("value1", c_uint16),
    Number("value2", c_uint8),
    Number("value3", c_uint32),
    Number("value4", c_uint32),
    Bytes("block", 96),
)
class BridgeEndpointInfo(Record):
    """One bridge endpoint as the module reports it.

    Attributes:
        ident: as the module sent it, not necessarily terminated
    """

    __slots__ = ()


@members(
    Number("value1", c_uint16),
    Bytes("addr1", 6),
    Bytes("addr2", 6),
    Number("value2", c_uint32),
    Number("value3", c_uint8),
    Number("value4", c_uint32),
    Number("value5", c_uint64),
    Number("value6", c_uint64),
)
class BridgeBfdSessionInfo(Record):
    """One BFD session as the module reports it.

    Attributes:
        addr1: an address of 6 bytes
        addr2: an address of 6 bytes
    """

    __slots__ = ()


@members(
    Text("text1", 64),
    Text("text2", 48),
    Number("value1", c_uint64),
    Number("value2", c_uint64),
    Number("value3", c_uint64),
    Number("value4", c_uint64),
    Number("value5", c_uint32),
)
class McastDomainInfo(Record):
    """An instance's multicast domain as the module reports it."""

    __slots__ = ()


@members(
    Text("text1", 64),
    Number("value1", c_uint32),
    Number("value2", c_uint32),
    Number("value3", c_uint64),
    Number("value4", c_uint64),
)
class LocalRcvrInfo(Record):
    """One local receiver as the module reports it."""

    __slots__ = ()


@members(
    Bytes("bytes", 68),
)
class VtepEntry(Record):
    """One tunnel endpoint, as the module lays it out."""

    __slots__ = ()


@members(
    Number("value1", c_uint32),
    Number("value2", c_uint32),
    Number("value3", c_uint32),
)
class McastGroupInfo(Record):
    """One multicast group as the module reports it."""

    __slots__ = ()


@members(
    Gap("uncopied1", 4),
    Number("rssEntryCount", c_uint32),
    Numbers("rssWord", c_uint32, 16, counted_by="rssEntryCount"),
    Gap("uncopied2", 4),
    Numbers("rssCounter1", c_uint64, 16, counted_by="rssEntryCount"),
    Numbers("rssCounter2", c_uint64, 16, counted_by="rssEntryCount"),
    Numbers("rssCounter3", c_uint64, 16, counted_by="rssEntryCount"),
    Gap("uncopied3", 344),
)
class RssStats(Record):
    """Statistics of a target.

    What is "not copied", and entries past rssEntryCount, are undefined here.

    Attributes:
        rssEntryCount: as reported
    """

    __slots__ = ()


@members(
    Number("value1", c_uint64),
    Number("value2", c_uint32),
)
class RssTunables(Record):
    """Tunables of a target.

    Attributes:
        value1: read and set
        value2: only read
    """

    __slots__ = ()


@members(
    Bytes("entries", 128),
    Number("size", c_int32),
)
class RssIndTable(Record):
    """An indirection table that is to be set.

    Attributes:
        size: entries to send, at most 128; none if it is 0 or negative
    """

    __slots__ = ()
