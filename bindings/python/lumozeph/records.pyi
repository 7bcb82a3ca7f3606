# Made from api/lumozeph.json.
from ipaddress import IPv4Address, IPv6Address
from typing import Final, Iterable, Sequence, Tuple, Union

from ._arguments import BytesArgument, IPv4Argument, IPv6Argument, MacArgument
from ._members import Record
from ._sequences import Records

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

REQUEST_SIZE: Final[int]
KEY_SIZE: Final[int]
MAC_SIZE: Final[int]
INSTANCES_MAX: Final[int]
STATS_COUNTERS: Final[int]
CP_SYNC_STATE_ENTRIES: Final[int]
CONNECTIONS_SIZE: Final[int]
CONNECTION_SIZE: Final[int]
LIFS_MAX: Final[int]
LIF_IPV6_ADDRS_MAX: Final[int]
DHCP_RELAY_SERVERS_MAX: Final[int]
ROUTES_MAX: Final[int]
NEXT_HOPS_MAX: Final[int]
CMD_RESULT_SIZE: Final[int]
ROUTE6_SIZE: Final[int]
ARP_TABLE_SIZE: Final[int]
POLICIES_MAX: Final[int]
POLICY_TABLES_MAX: Final[int]
POLICY_TABLE_REFS_MAX: Final[int]
BRIDGES_MAX: Final[int]
BRIDGE_NETWORKS_MAX: Final[int]
BRIDGE_PORTS_MAX: Final[int]
BRIDGE_FDB_ENTRIES_MAX: Final[int]
FL_TABLE_SIZE: Final[int]
PMAC_TABLE_SIZE: Final[int]
BRIDGE_CLUSTERS_MAX: Final[int]
BRIDGE_CLUSTER_NODES_MAX: Final[int]
LOCALE_ID_SIZE: Final[int]
LOCAL_TRANSPORT_NODE_SIZE: Final[int]
LOCAL_TRANSPORT_BLOCK_SIZE: Final[int]
BRIDGE_ENDPOINTS_MAX: Final[int]
BE_STATS_SIZE: Final[int]
BE_STATUS_SIZE: Final[int]
BE_SIZE: Final[int]
BRIDGE_BFD_SESSIONS_MAX: Final[int]
BFD_PORT_CONNECTIONS_SIZE: Final[int]
LOCAL_RCVRS_MAX: Final[int]
VTEPS_MAX: Final[int]
MCAST_GROUPS_MAX: Final[int]
RSS_ENTRIES_MAX: Final[int]
RSS_IND_TABLE_SIZE: Final[int]

class InstanceInfo(Record):
    def __init__(
        self,
        *,
        instanceKey: str = ...,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
        value6: int = ...,
        value7: int = ...,
        value8: int = ...,
        value9: int = ...,
        value10: int = ...,
        value11: int = ...,
        value12: int = ...,
        bytes1: BytesArgument = ...,
        words: Sequence[int] = ...,
        value13: int = ...,
        value14: int = ...,
        value15: int = ...,
        value16: int = ...,
        value17: int = ...,
        text2: str = ...,
        value18: int = ...,
        bytes2: BytesArgument = ...,
        value19: int = ...,
        value20: int = ...,
        value21: int = ...,
        value22: int = ...,
        value23: int = ...,
        value24: int = ...,
    ) -> None: ...
    instanceKey: str
    value1: int
    value2: int
    value3: int
    value4: int
    value5: int
    value6: int
    value7: int
    value8: int
    value9: int
    value10: int
    value11: int
    value12: int
    @property
    def bytes1(self) -> bytes: ...
    @bytes1.setter
    def bytes1(self, value: BytesArgument) -> None: ...
    @property
    def words(self) -> Tuple[int, ...]: ...
    @words.setter
    def words(self, value: Sequence[int]) -> None: ...
    value13: int
    value14: int
    value15: int
    value16: int
    value17: int
    text2: str
    value18: int
    @property
    def bytes2(self) -> bytes: ...
    @bytes2.setter
    def bytes2(self, value: BytesArgument) -> None: ...
    value19: int
    value20: int
    value21: int
    value22: int
    value23: int
    value24: int

class Stats(Record):
    def __init__(
        self,
        *,
        statsKind: int = ...,
        counters: Sequence[int] = ...,
    ) -> None: ...
    statsKind: int
    @property
    def counters(self) -> Tuple[int, ...]: ...
    @counters.setter
    def counters(self, value: Sequence[int]) -> None: ...

class CPSyncStateEntry(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
        value6: int = ...,
        values7: Sequence[int] = ...,
        values8: Sequence[int] = ...,
    ) -> None: ...
    value1: int
    value2: int
    value3: int
    value4: int
    value5: int
    value6: int
    @property
    def values7(self) -> Tuple[int, ...]: ...
    @values7.setter
    def values7(self, value: Sequence[int]) -> None: ...
    @property
    def values8(self) -> Tuple[int, ...]: ...
    @values8.setter
    def values8(self, value: Sequence[int]) -> None: ...

class CPSyncState(Record):
    def __init__(
        self,
        *,
        entries: Iterable[CPSyncStateEntry] = ...,
    ) -> None: ...
    @property
    def entries(self) -> Records[CPSyncStateEntry]: ...
    @entries.setter
    def entries(self, value: Iterable[CPSyncStateEntry]) -> None: ...

class LifIpv6Addr(Record):
    def __init__(
        self,
        *,
        address: IPv6Argument = ...,
        prefixLen: int = ...,
        value: int = ...,
    ) -> None: ...
    @property
    def address(self) -> IPv6Address: ...
    @address.setter
    def address(self, value: IPv6Argument) -> None: ...
    prefixLen: int
    value: int

class DhcpRelayServer(Record):
    def __init__(
        self,
        *,
        address: Union[IPv4Argument, IPv6Argument, bytes] = ...,
        family: int = ...,
    ) -> None: ...
    @property
    def address(self) -> Union[IPv4Address, IPv6Address, bytes]: ...
    @address.setter
    def address(self, value: Union[IPv4Argument, IPv6Argument, bytes]) -> None: ...
    family: int

class DhcpRelay(Record):
    def __init__(
        self,
        *,
        relayCount: int = ...,
        servers: Iterable[DhcpRelayServer] = ...,
    ) -> None: ...
    relayCount: int
    @property
    def servers(self) -> Records[DhcpRelayServer]: ...
    @servers.setter
    def servers(self, value: Iterable[DhcpRelayServer]) -> None: ...

class LifInfo(Record):
    def __init__(
        self,
        *,
        lifName: str = ...,
        lifSecondName: str = ...,
        ipAddr: IPv4Argument = ...,
        ipMask: IPv4Argument = ...,
        diIp: IPv4Argument = ...,
        lifMac: MacArgument = ...,
        lifValue1: int = ...,
        lifValue2: int = ...,
        lifValue3: int = ...,
        lifFlags: BytesArgument = ...,
        dhcpRelay: DhcpRelay = ...,
        ipv6Addrs: Iterable[LifIpv6Addr] = ...,
        ipv6Count: int = ...,
        lifState1: int = ...,
        lifState2: int = ...,
        lifValue4: int = ...,
    ) -> None: ...
    lifName: str
    lifSecondName: str
    @property
    def ipAddr(self) -> IPv4Address: ...
    @ipAddr.setter
    def ipAddr(self, value: IPv4Argument) -> None: ...
    @property
    def ipMask(self) -> IPv4Address: ...
    @ipMask.setter
    def ipMask(self, value: IPv4Argument) -> None: ...
    @property
    def diIp(self) -> IPv4Address: ...
    @diIp.setter
    def diIp(self, value: IPv4Argument) -> None: ...
    @property
    def lifMac(self) -> str: ...
    @lifMac.setter
    def lifMac(self, value: MacArgument) -> None: ...
    lifValue1: int
    lifValue2: int
    lifValue3: int
    @property
    def lifFlags(self) -> bytes: ...
    @lifFlags.setter
    def lifFlags(self, value: BytesArgument) -> None: ...
    dhcpRelay: DhcpRelay
    @property
    def ipv6Addrs(self) -> Records[LifIpv6Addr]: ...
    @ipv6Addrs.setter
    def ipv6Addrs(self, value: Iterable[LifIpv6Addr]) -> None: ...
    ipv6Count: int
    lifState1: int
    lifState2: int
    lifValue4: int

class CmdResult(Record):
    def __init__(
        self,
        *,
        bytes: BytesArgument = ...,
    ) -> None: ...
    @property
    def bytes(self) -> bytes: ...
    @bytes.setter
    def bytes(self, value: BytesArgument) -> None: ...

class NextHop(Record):
    def __init__(
        self,
        *,
        nextHopAddr: IPv4Argument = ...,
        nextHopLifName: str = ...,
        nextHopValue: BytesArgument = ...,
    ) -> None: ...
    @property
    def nextHopAddr(self) -> IPv4Address: ...
    @nextHopAddr.setter
    def nextHopAddr(self, value: IPv4Argument) -> None: ...
    nextHopLifName: str
    @property
    def nextHopValue(self) -> bytes: ...
    @nextHopValue.setter
    def nextHopValue(self, value: BytesArgument) -> None: ...

class RouteInfo(Record):
    def __init__(
        self,
        *,
        routeDest: IPv4Argument = ...,
        routeMask: IPv4Argument = ...,
        routeValue1: int = ...,
        routeValue2: int = ...,
        routeFlags: int = ...,
        nextHopCount: int = ...,
        routeValue3: BytesArgument = ...,
        nextHops: Iterable[NextHop] = ...,
    ) -> None: ...
    @property
    def routeDest(self) -> IPv4Address: ...
    @routeDest.setter
    def routeDest(self, value: IPv4Argument) -> None: ...
    @property
    def routeMask(self) -> IPv4Address: ...
    @routeMask.setter
    def routeMask(self, value: IPv4Argument) -> None: ...
    routeValue1: int
    routeValue2: int
    routeFlags: int
    nextHopCount: int
    @property
    def routeValue3(self) -> bytes: ...
    @routeValue3.setter
    def routeValue3(self, value: BytesArgument) -> None: ...
    @property
    def nextHops(self) -> Records[NextHop]: ...
    @nextHops.setter
    def nextHops(self, value: Iterable[NextHop]) -> None: ...

class PolicyInfo(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
        value6: int = ...,
    ) -> None: ...
    value1: int
    value2: int
    value3: int
    value4: int
    value5: int
    value6: int

class PolicyTableInfo(Record):
    def __init__(
        self,
        *,
        policyTableId: int = ...,
        policyTableName: str = ...,
        value1: int = ...,
    ) -> None: ...
    policyTableId: int
    policyTableName: str
    value1: int

class PolicyTableRefEntry(Record):
    def __init__(
        self,
        *,
        bytes: BytesArgument = ...,
    ) -> None: ...
    @property
    def bytes(self) -> bytes: ...
    @bytes.setter
    def bytes(self, value: BytesArgument) -> None: ...

class LifPolicyTableRef(Record):
    def __init__(
        self,
        *,
        text1: str = ...,
        refCount: int = ...,
        refs: Iterable[PolicyTableRefEntry] = ...,
    ) -> None: ...
    text1: str
    refCount: int
    @property
    def refs(self) -> Records[PolicyTableRefEntry]: ...
    @refs.setter
    def refs(self, value: Iterable[PolicyTableRefEntry]) -> None: ...

class BridgeInstanceInfo(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
        name: str = ...,
        value3: int = ...,
        value4: int = ...,
        text1: str = ...,
        text2: str = ...,
        value5: int = ...,
        value6: int = ...,
        data: Sequence[int] = ...,
    ) -> None: ...
    value1: int
    value2: int
    name: str
    value3: int
    value4: int
    text1: str
    text2: str
    value5: int
    value6: int
    @property
    def data(self) -> Tuple[int, ...]: ...
    @data.setter
    def data(self, value: Sequence[int]) -> None: ...

class BridgeNetworkInfo(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
        value6: int = ...,
        value7: int = ...,
        value8: int = ...,
        data: Sequence[int] = ...,
    ) -> None: ...
    value1: int
    value2: int
    value3: int
    value4: int
    value5: int
    value6: int
    value7: int
    value8: int
    @property
    def data(self) -> Tuple[int, ...]: ...
    @data.setter
    def data(self, value: Sequence[int]) -> None: ...

class BridgePortInfo(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        data: Sequence[int] = ...,
    ) -> None: ...
    value1: int
    value2: int
    value3: int
    value4: int
    @property
    def data(self) -> Tuple[int, ...]: ...
    @data.setter
    def data(self, value: Sequence[int]) -> None: ...

class BridgeFdbEntry(Record):
    def __init__(
        self,
        *,
        mac: MacArgument = ...,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
    ) -> None: ...
    @property
    def mac(self) -> str: ...
    @mac.setter
    def mac(self, value: MacArgument) -> None: ...
    value1: int
    value2: int
    value3: int
    value4: int
    value5: int

class BridgeClusterInfo(Record):
    def __init__(
        self,
        *,
        ident: str = ...,
        value1: int = ...,
        block: BytesArgument = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
        value6: int = ...,
    ) -> None: ...
    ident: str
    value1: int
    @property
    def block(self) -> bytes: ...
    @block.setter
    def block(self, value: BytesArgument) -> None: ...
    value2: int
    value3: int
    value4: int
    value5: int
    value6: int

class BridgeClusterNodeInfo(Record):
    def __init__(
        self,
        *,
        ident: str = ...,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
    ) -> None: ...
    ident: str
    value1: int
    value2: int
    value3: int

class BridgeEndpointInfo(Record):
    def __init__(
        self,
        *,
        ident: str = ...,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        block: BytesArgument = ...,
    ) -> None: ...
    ident: str
    value1: int
    value2: int
    value3: int
    value4: int
    @property
    def block(self) -> bytes: ...
    @block.setter
    def block(self, value: BytesArgument) -> None: ...

class BridgeBfdSessionInfo(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        addr1: BytesArgument = ...,
        addr2: BytesArgument = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
        value6: int = ...,
    ) -> None: ...
    value1: int
    @property
    def addr1(self) -> bytes: ...
    @addr1.setter
    def addr1(self, value: BytesArgument) -> None: ...
    @property
    def addr2(self) -> bytes: ...
    @addr2.setter
    def addr2(self, value: BytesArgument) -> None: ...
    value2: int
    value3: int
    value4: int
    value5: int
    value6: int

class McastDomainInfo(Record):
    def __init__(
        self,
        *,
        text1: str = ...,
        text2: str = ...,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
        value5: int = ...,
    ) -> None: ...
    text1: str
    text2: str
    value1: int
    value2: int
    value3: int
    value4: int
    value5: int

class LocalRcvrInfo(Record):
    def __init__(
        self,
        *,
        text1: str = ...,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
        value4: int = ...,
    ) -> None: ...
    text1: str
    value1: int
    value2: int
    value3: int
    value4: int

class VtepEntry(Record):
    def __init__(
        self,
        *,
        bytes: BytesArgument = ...,
    ) -> None: ...
    @property
    def bytes(self) -> bytes: ...
    @bytes.setter
    def bytes(self, value: BytesArgument) -> None: ...

class McastGroupInfo(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
        value3: int = ...,
    ) -> None: ...
    value1: int
    value2: int
    value3: int

class RssStats(Record):
    def __init__(
        self,
        *,
        rssEntryCount: int = ...,
        rssWord: Sequence[int] = ...,
        rssCounter1: Sequence[int] = ...,
        rssCounter2: Sequence[int] = ...,
        rssCounter3: Sequence[int] = ...,
    ) -> None: ...
    rssEntryCount: int
    @property
    def rssWord(self) -> Tuple[int, ...]: ...
    @rssWord.setter
    def rssWord(self, value: Sequence[int]) -> None: ...
    @property
    def rssCounter1(self) -> Tuple[int, ...]: ...
    @rssCounter1.setter
    def rssCounter1(self, value: Sequence[int]) -> None: ...
    @property
    def rssCounter2(self) -> Tuple[int, ...]: ...
    @rssCounter2.setter
    def rssCounter2(self, value: Sequence[int]) -> None: ...
    @property
    def rssCounter3(self) -> Tuple[int, ...]: ...
    @rssCounter3.setter
    def rssCounter3(self, value: Sequence[int]) -> None: ...

class RssTunables(Record):
    def __init__(
        self,
        *,
        value1: int = ...,
        value2: int = ...,
    ) -> None: ...
    value1: int
    value2: int

class RssIndTable(Record):
    def __init__(
        self,
        *,
        entries: BytesArgument = ...,
        size: int = ...,
    ) -> None: ...
    @property
    def entries(self) -> bytes: ...
    @entries.setter
    def entries(self, value: BytesArgument) -> None: ...
    size: int
