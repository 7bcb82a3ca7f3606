"""The operations. Made from api/lumozeph.json."""

from ctypes import (
    POINTER,
    addressof,
    byref,
    c_char_p,
    c_int,
    c_int8,
    c_int32,
    c_uint8,
    c_uint16,
    c_uint32,
    c_uint64,
    c_void_p,
    cast,
    create_string_buffer,
    set_errno,
)
from ipaddress import IPv4Address

from . import _arguments as c
from ._library import function, release
from ._members import taken
from ._sequences import BlockOwner, Entries, EntryBlock, Owner, RecordList, Records, TableOwner, header
from .errors import failure
from .records import (
    ARP_TABLE_SIZE,
    BE_SIZE,
    BE_STATS_SIZE,
    BE_STATUS_SIZE,
    BFD_PORT_CONNECTIONS_SIZE,
    BRIDGES_MAX,
    BRIDGE_BFD_SESSIONS_MAX,
    BRIDGE_CLUSTERS_MAX,
    BRIDGE_CLUSTER_NODES_MAX,
    BRIDGE_ENDPOINTS_MAX,
    BRIDGE_FDB_ENTRIES_MAX,
    BRIDGE_NETWORKS_MAX,
    BRIDGE_PORTS_MAX,
    CONNECTIONS_SIZE,
    CONNECTION_SIZE,
    FL_TABLE_SIZE,
    INSTANCES_MAX,
    LIFS_MAX,
    LOCALE_ID_SIZE,
    LOCAL_RCVRS_MAX,
    LOCAL_TRANSPORT_BLOCK_SIZE,
    LOCAL_TRANSPORT_NODE_SIZE,
    MAC_SIZE,
    MCAST_GROUPS_MAX,
    PMAC_TABLE_SIZE,
    POLICIES_MAX,
    POLICY_TABLES_MAX,
    POLICY_TABLE_REFS_MAX,
    ROUTE6_SIZE,
    ROUTES_MAX,
    RSS_IND_TABLE_SIZE,
    BridgeBfdSessionInfo,
    BridgeClusterInfo,
    BridgeClusterNodeInfo,
    BridgeEndpointInfo,
    BridgeFdbEntry,
    BridgeInstanceInfo,
    BridgeNetworkInfo,
    BridgePortInfo,
    CPSyncState,
    CmdResult,
    InstanceInfo,
    LifInfo,
    LifPolicyTableRef,
    LocalRcvrInfo,
    McastDomainInfo,
    McastGroupInfo,
    PolicyInfo,
    PolicyTableInfo,
    PolicyTableRefEntry,
    RouteInfo,
    RssIndTable,
    RssStats,
    RssTunables,
    Stats,
    VtepEntry,
)

__all__ = [
    "set_lumo_instance",
    "del_lumo_instance",
    "set_lumo_instance_tunables",
    "get_instance",
    "get_instances",
    "get_log_level",
    "set_log_level",
    "get_extended_log_level",
    "set_extended_log_level",
    "get_stats_level",
    "set_stats_level",
    "get_tx_disp_queue_size",
    "set_tx_disp_queue_size",
    "get_lumo_instance_cp_stats",
    "reset_lumo_instance_cp_stats",
    "get_lif_stats",
    "get_lif_stats_cached",
    "reset_lif_stats",
    "get_lumo_di_stats",
    "reset_lumo_di_stats",
    "cp_activate",
    "set_cp_ip",
    "get_lumo_instance_cp_sync_state",
    "set_lumo_instance_cp_sync_state",
    "get_connections",
    "get_connection",
    "get_vmac",
    "plumb_lumo_connection",
    "unplumb_lumo_connection",
    "lumo_dev_check_conn_deletion",
    "generic_flush",
    "pre_unload",
    "perform_full_sync_save",
    "get_full_sync_save_status",
    "set_lif",
    "del_lif",
    "set_bridge_lif",
    "get_lif",
    "get_bridge_lif",
    "get_lifs",
    "get_bridge_lifs",
    "set_lif_ip",
    "del_lif_ip",
    "set_lif_di_ip",
    "set_lif_vxlan_multicast_ip",
    "set_lif_vxlan_cp",
    "del_lif_vxlan_cp",
    "enable_lif",
    "disable_lif",
    "set_lif_mcast_routing",
    "ramtu_set_v6",
    "set_lif_ipv6",
    "del_lif_ipv6",
    "set_mcast_routing",
    "configure_lif_dhcp_relay",
    "set_route",
    "del_route",
    "get_routes",
    "get_resolve_route",
    "set_route_v6",
    "del_route_v6",
    "get_routes_v6",
    "pmtu_table_cear_v6",
    "set_arp",
    "del_arp",
    "set_proxy_arp",
    "del_proxy_arp",
    "get_arps",
    "get_proxy_arps",
    "clear_arp",
    "clear_arp_v6",
    "set_arp_v6",
    "del_arp_v6",
    "set_proxy_arp_v6",
    "del_proxy_arp_v6",
    "get_arps_v6",
    "set_lif_policy",
    "del_lif_policy",
    "get_lif_policies",
    "get_policy",
    "get_policy_count",
    "set_policy",
    "del_policy",
    "get_policy_table",
    "set_policy_table",
    "del_policy_table",
    "get_lif_policy_table_ref",
    "set_lif_policy_table_ref",
    "del_lif_policy_table_ref",
    "get_bridge_instance",
    "get_bridge_instances",
    "bridge_add",
    "bridge_del",
    "bridge_enable",
    "bridge_disable",
    "bridge_set_ha_admin_state",
    "set_bridge_rep_mode",
    "bridge_set_config",
    "get_bridge_networks",
    "get_bridge_ports",
    "get_bridge_fdb_entries",
    "bridge_set_fdb_entry",
    "bridge_clear_fdb_table",
    "dump_fl_table",
    "get_pmac",
    "add_pmac",
    "del_pmac",
    "get_locale_id",
    "get_bridge_clusters",
    "bridge_cluster_set",
    "get_bridge_cluster_nodes",
    "bridge_cluster_node_set",
    "bridge_local_transport_node_set",
    "bridge_get_local_transport_node",
    "flush_bridge_cluster",
    "set_bridge_cluster_debug",
    "bridge_cluster_bfd_ha_profile_set",
    "add_bridge_endpoint",
    "del_bridge_endpoint",
    "flush_bridge_endpoint",
    "get_bridge_endpoints",
    "get_be_stats",
    "get_be_status",
    "get_be_all",
    "get_bridge_bfd_sessions",
    "plumb_bfd_port_connection",
    "unplumb_bfd_port_connection",
    "get_bfd_port_connections",
    "get_mrouting_domain",
    "get_mrouting_local_rcvrs",
    "add_mrouting_local_rcvrs",
    "del_mrouting_local_rcvrs",
    "get_mrouting_remote_rcvrs",
    "add_mrouting_remote_rcvrs",
    "del_mrouting_remote_rcvrs",
    "get_mrouting_all_mcast_groups",
    "get_mrouting_replication_ip",
    "get_mrouting_mrouter_ip",
    "add_mrouting_mrouter",
    "del_mrouting_mrouter",
    "soft_rss_get_stats",
    "soft_rss_stats_reset",
    "soft_rss_get_tunables",
    "soft_rss_set_tunables",
    "soft_rss_get_ind_table",
    "soft_rss_table_set",
]


# Router instances

_ReleaseInstance = release("LUMOZEPH_ReleaseInstance")
_SetLumoInstance = function("LUMOZEPH_SetLumoInstance", c_char_p, c_uint32, c_char_p, c_uint32)
_DelLumoInstance = function("LUMOZEPH_DelLumoInstance", c_char_p)
_SetLumoInstanceTunables = function("LUMOZEPH_SetLumoInstanceTunables", c_char_p, c_char_p, c_uint32)
_GetInstance = function("LUMOZEPH_GetInstance", c_char_p, c_void_p)
_GetInstances = function("LUMOZEPH_GetInstances", c_void_p)


class _InstanceList(Owner):
    __slots__ = ()
    _type_ = header(InstanceInfo, c_int32)
    free = release("LUMOZEPH_ReleaseInstances")


def set_lumo_instance(instance, *, value1=0, text=None, value2=0):
    """Creates an instance, or updates it if it exists.

    Args:
        instance: its key, at most 63 bytes
        value1: comes back as InstanceInfo.value1
        text: cut to 18 bytes; None: none
        value2: passed on as it stands
    """
    if _SetLumoInstance(c.text(instance), c.u32(value1), c.maybe_text(text), c.u32(value2)):
        raise failure("set_lumo_instance")


def del_lumo_instance(instance):
    """Deletes an instance.

    Args:
        instance: its key, at most 63 bytes
    """
    if _DelLumoInstance(c.text(instance)):
        raise failure("del_lumo_instance")


def set_lumo_instance_tunables(instance, tunables, value):
    """Sets an instance's tunables.

    Args:
        instance: its key, at most 63 bytes
        tunables: at most 63 bytes
        value: passed on as it stands
    """
    if _SetLumoInstanceTunables(c.text(instance), c.text(tunables), c.u32(value)):
        raise failure("set_lumo_instance_tunables")


def get_instance(instance):
    """Reads one instance.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(InstanceInfo)()
    if _GetInstance(c.text(instance), byref(out)):
        raise failure("get_instance")
    return taken(out, _ReleaseInstance)


def get_instances():
    """Reads all instances.

    Returns:
        the list
    """
    out = _InstanceList()
    if _GetInstances(byref(out)):
        raise failure("get_instances")
    read = out.contents
    return RecordList(InstanceInfo, read.records, range(read.count), INSTANCES_MAX)


# Runtime levels and queue tunables

_GetLogLevel = function("LUMOZEPH_GetLogLevel", c_void_p)
_SetLogLevel = function("LUMOZEPH_SetLogLevel", c_uint32)
_GetExtendedLogLevel = function("LUMOZEPH_GetExtendedLogLevel", c_void_p)
_SetExtendedLogLevel = function("LUMOZEPH_SetExtendedLogLevel", c_uint32)
_GetStatsLevel = function("LUMOZEPH_GetStatsLevel", c_void_p)
_SetStatsLevel = function("LUMOZEPH_SetStatsLevel", c_uint32)
_GetTxDispQueueSize = function("LUMOZEPH_GetTxDispQueueSize", c_void_p)
_SetTxDispQueueSize = function("LUMOZEPH_SetTxDispQueueSize", c_uint32)


def get_log_level():
    """Reads the log level.

    Returns:
        the level
    """
    out = c_uint32()
    if _GetLogLevel(byref(out)):
        raise failure("get_log_level")
    return out.value


def set_log_level(level):
    """Sets the log level.

    Args:
        level: the level; what levels there are is the module's
    """
    if _SetLogLevel(c.u32(level)):
        raise failure("set_log_level")


def get_extended_log_level():
    """Reads the extended log level.

    Returns:
        the level
    """
    out = c_uint32()
    if _GetExtendedLogLevel(byref(out)):
        raise failure("get_extended_log_level")
    return out.value


def set_extended_log_level(level):
    """Sets the extended log level.

    Args:
        level: the level; what levels there are is the module's
    """
    if _SetExtendedLogLevel(c.u32(level)):
        raise failure("set_extended_log_level")


def get_stats_level():
    """Reads the statistics level.

    Returns:
        the level
    """
    out = c_uint32()
    if _GetStatsLevel(byref(out)):
        raise failure("get_stats_level")
    return out.value


def set_stats_level(level):
    """Sets the statistics level.

    Args:
        level: the level; what levels there are is the module's
    """
    if _SetStatsLevel(c.u32(level)):
        raise failure("set_stats_level")


def get_tx_disp_queue_size():
    """Reads the size of the transmit dispatch queue.

    Returns:
        the size, in the module's unit
    """
    out = c_uint32()
    if _GetTxDispQueueSize(byref(out)):
        raise failure("get_tx_disp_queue_size")
    return out.value


def set_tx_disp_queue_size(size):
    """Sets the size of the transmit dispatch queue.

    Args:
        size: the size, in the module's unit
    """
    if _SetTxDispQueueSize(c.u32(size)):
        raise failure("set_tx_disp_queue_size")


# Statistics

_ReleaseStats = release("LUMOZEPH_ReleaseStats")
_GetLumoInstanceCPStats = function("LUMOZEPH_GetLumoInstanceCPStats", c_char_p, c_void_p)
_ResetLumoInstanceCPStats = function("LUMOZEPH_ResetLumoInstanceCPStats", c_char_p)
_GetLifStats = function("LUMOZEPH_GetLifStats", c_char_p, c_char_p, c_void_p)
_GetLifStatsCached = function("LUMOZEPH_GetLifStatsCached", c_char_p, c_char_p, c_void_p)
_ResetLifStats = function("LUMOZEPH_ResetLifStats", c_char_p, c_char_p)
_GetLumoDiStats = function("LUMOZEPH_GetLumoDiStats", c_void_p)
_ResetLumoDiStats = function("LUMOZEPH_ResetLumoDiStats")


def get_lumo_instance_cp_stats(instance):
    """Reads the counters of an instance's control-plane traffic.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(Stats)()
    if _GetLumoInstanceCPStats(c.text(instance), byref(out)):
        raise failure("get_lumo_instance_cp_stats")
    return taken(out, _ReleaseStats)


def reset_lumo_instance_cp_stats(instance):
    """Resets the counters of an instance's control-plane traffic.

    Args:
        instance: its key, at most 63 bytes
    """
    if _ResetLumoInstanceCPStats(c.text(instance)):
        raise failure("reset_lumo_instance_cp_stats")


def get_lif_stats(instance, lif):
    """Reads a LIF's counters.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(Stats)()
    if _GetLifStats(c.text(instance), c.text(lif), byref(out)):
        raise failure("get_lif_stats")
    return taken(out, _ReleaseStats)


def get_lif_stats_cached(instance, lif):
    """Reads a LIF's counters as the module has cached them.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(Stats)()
    if _GetLifStatsCached(c.text(instance), c.text(lif), byref(out)):
        raise failure("get_lif_stats_cached")
    return taken(out, _ReleaseStats)


def reset_lif_stats(instance, lif):
    """Resets a LIF's counters.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
    """
    if _ResetLifStats(c.text(instance), c.text(lif)):
        raise failure("reset_lif_stats")


def get_lumo_di_stats():
    """Reads the counters of distributed interfaces, of the module as a whole.

    Returns:
        the record
    """
    out = POINTER(Stats)()
    if _GetLumoDiStats(byref(out)):
        raise failure("get_lumo_di_stats")
    return taken(out, _ReleaseStats)


def reset_lumo_di_stats():
    """Resets the counters of distributed interfaces, of the module as a whole."""
    if _ResetLumoDiStats():
        raise failure("reset_lumo_di_stats")


# Control-plane attachment

_CPActivate = function("LUMOZEPH_CPActivate", c_uint32)
_SetCPIp = function("LUMOZEPH_SetCPIp", c_char_p, c_uint32)
_GetLumoInstanceCPSyncState = function("LUMOZEPH_GetLumoInstanceCPSyncState", c_char_p, c_void_p)
_SetLumoInstanceCPSyncState = function("LUMOZEPH_SetLumoInstanceCPSyncState", c_char_p, c_uint32)


def cp_activate(value):
    """Activates the module's control-plane connection.

    Args:
        value: passed on as it stands
    """
    if _CPActivate(c.u32(value)):
        raise failure("cp_activate")


def set_cp_ip(instance, address):
    """Sets an instance's control-plane address.

    Args:
        instance: its key, at most 63 bytes
        address: IPv4
    """
    if _SetCPIp(c.text(instance), c.ipv4(address)):
        raise failure("set_cp_ip")


def get_lumo_instance_cp_sync_state(instance):
    """Reads an instance's synchronisation state.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(CPSyncState)()
    if _GetLumoInstanceCPSyncState(c.text(instance), byref(out)):
        raise failure("get_lumo_instance_cp_sync_state")
    return taken(out, _ReleaseStats)


def set_lumo_instance_cp_sync_state(instance, state):
    """Sets an instance's synchronisation state.

    Args:
        instance: its key, at most 63 bytes
        state: passed on as it stands
    """
    if _SetLumoInstanceCPSyncState(c.text(instance), c.u32(state)):
        raise failure("set_lumo_instance_cp_sync_state")


# Port connections

_GetConnections = function("LUMOZEPH_GetConnections", c_void_p)
_GetConnection = function("LUMOZEPH_GetConnection", c_char_p, c_void_p)
_GetVMAC = function("LUMOZEPH_GetVMAC", c_char_p, c_void_p)
_PlumbLumoConnection = function(
    "LUMOZEPH_PlumbLumoConnection", c_char_p, c_char_p, c_uint32, c_char_p, c_char_p, c_char_p
)
_UnPlumbLumoConnection = function("LUMOZEPH_UnPlumbLumoConnection", c_char_p)
_LUMODevCheckConnDeletion = function("LUMOZEPH_LUMODevCheckConnDeletion", c_void_p)


def get_connections():
    """Reads all connections.

    Returns:
        CONNECTIONS_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(CONNECTIONS_SIZE)
    if _GetConnections(buffer):
        raise failure("get_connections")
    return buffer.raw


def get_connection(name):
    """Reads one connection.

    Args:
        name: its name, at most 63 bytes

    Returns:
        CONNECTION_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(CONNECTION_SIZE)
    if _GetConnection(c.text(name), buffer):
        raise failure("get_connection")
    return buffer.raw


def get_vmac(name):
    """Reads the virtual MAC address that goes with a name.

    Args:
        name: the name, at most 63 bytes

    Returns:
        the address
    """
    buffer = create_string_buffer(MAC_SIZE)
    if _GetVMAC(c.text(name), buffer):
        raise failure("get_vmac")
    return buffer.raw.hex(":")


def plumb_lumo_connection(name, text1, *, text2=None, text3=None, text4=None):
    """Plumbs a connection.

    Args:
        name: its name, at most 63 bytes
        text1: at most 15 bytes
        text2: at most 17 bytes; None: none
        text3: at most 31 bytes; None: none
        text4: at most 255 bytes; None: none
    """
    if _PlumbLumoConnection(
        c.text(name), c.text(text1), 0, c.maybe_text(text2), c.maybe_text(text3), c.maybe_text(text4)
    ):
        raise failure("plumb_lumo_connection")


def unplumb_lumo_connection(name):
    """Unplumbs a connection.

    Args:
        name: its name, at most 63 bytes
    """
    if _UnPlumbLumoConnection(c.text(name)):
        raise failure("unplumb_lumo_connection")


def lumo_dev_check_conn_deletion():
    """Reads the value of the module's connection-deletion check.

    The length that the module reports is not looked at: if it answers with fewer than four bytes, the rest of the value
    is undefined.

    Returns:
        the value
    """
    out = c_uint32()
    if _LUMODevCheckConnDeletion(byref(out)):
        raise failure("lumo_dev_check_conn_deletion")
    return out.value


# Flush, full-sync save and preparation for unloading

_GenericFlush = function("LUMOZEPH_GenericFlush", c_uint32, c_uint8, c_uint8, c_uint8, c_char_p, c_uint32)
_PreUnload = function("LUMOZEPH_PreUnload")
_PerformFullSyncSave = function("LUMOZEPH_PerformFullSyncSave", c_uint8, c_void_p)
_GetFullSyncSaveStatus = function("LUMOZEPH_GetFullSyncSaveStatus", c_void_p)


def generic_flush(*, value1=0, value2=0, value3=0, value4=0, text=None, value5=0):
    """Sends the module's generic flush.

    What is flushed, and what the values and the text have to do with it, is the module's.

    Args:
        value1: passed on as it stands
        value2: passed on as it stands
        value3: passed on as it stands
        value4: passed on as it stands
        text: at most 63 bytes; None: none
        value5: passed on as it stands
    """
    if _GenericFlush(c.u32(value1), c.u8(value2), c.u8(value3), c.u8(value4), c.maybe_text(text), c.u32(value5)):
        raise failure("generic_flush")


def pre_unload():
    """Prepares the module for being unloaded."""
    if _PreUnload():
        raise failure("pre_unload")


def perform_full_sync_save(value):
    """Starts a full-sync save of the whole module.

    Args:
        value: passed on as it stands

    Returns:
        as the module writes it
    """
    out = c_uint32()
    if _PerformFullSyncSave(c.u8(value), byref(out)):
        raise failure("perform_full_sync_save")
    return out.value


def get_full_sync_save_status():
    """Reads the status of the full-sync save.

    Returns:
        as the module writes it
    """
    out = c_uint32()
    if _GetFullSyncSaveStatus(byref(out)):
        raise failure("get_full_sync_save_status")
    return out.value


# Logical interfaces

_ReleaseLif = release("LUMOZEPH_ReleaseLif")
_SetLif = function(
    "LUMOZEPH_SetLif",
    c_char_p,
    c_char_p,
    c_uint32,
    c_uint32,
    c_uint32,
    c_uint32,
    c_uint32,
    c_uint32,
    c_char_p,
    c_char_p,
)
_DelLif = function("LUMOZEPH_DelLif", c_char_p, c_char_p, c_char_p)
_SetBridgeLif = function("LUMOZEPH_SetBridgeLif", c_char_p, c_char_p, c_uint32, c_uint32, c_uint32, c_char_p, c_int)
_GetLif = function("LUMOZEPH_GetLif", c_char_p, c_char_p, c_void_p)
_GetBridgeLif = function("LUMOZEPH_GetBridgeLif", c_char_p, c_char_p, c_void_p)
_GetLifs = function("LUMOZEPH_GetLifs", c_char_p, c_void_p)
_GetBridgeLifs = function("LUMOZEPH_GetBridgeLifs", c_char_p, c_void_p)


class _LifList(Owner):
    __slots__ = ()
    _type_ = header(LifInfo, c_int32)
    free = release("LUMOZEPH_ReleaseLifs")


def set_lif(lif, auxName, address, mask, *, paramA=0, paramB=0, diAddress, paramC=0, instance, mac=None):
    """Creates a LIF.

    Args:
        lif: its name, at most 63 bytes
        auxName: its second name, at most 63 bytes
        address: IPv4
        mask: the mask value of address; a number: that of a length
        paramA: passed on as it stands
        paramB: passed on as it stands
        diAddress: designated-instance address, IPv4
        paramC: passed on as it stands
        instance: the instance's key, at most 63 bytes
        mac: the MAC address; None: none, which sends six zero bytes
    """
    if _SetLif(
        c.text(lif),
        c.text(auxName),
        c.ipv4(address),
        c.mask(mask),
        c.u32(paramA),
        c.u32(paramB),
        c.ipv4(diAddress),
        c.u32(paramC),
        c.text(instance),
        c.maybe_mac(mac),
    ):
        raise failure("set_lif")


def del_lif(lif, auxName, instance):
    """Removes a LIF.

    Args:
        lif: its name, at most 63 bytes
        auxName: its second name, at most 63 bytes
        instance: the instance's key, at most 63 bytes
    """
    if _DelLif(c.text(lif), c.text(auxName), c.text(instance)):
        raise failure("del_lif")


def set_bridge_lif(lif, auxName, *, paramA=0, paramB=0, diValue=0, instance, add):
    """Adds a bridge LIF, or removes it.

    The same values are sent in both cases.

    Args:
        lif: its name, at most 63 bytes
        auxName: its second name, at most 63 bytes
        paramA: passed on as it stands
        paramB: passed on as it stands
        diValue: passed on as it stands, where a routed LIF has its designated-instance address
        instance: the instance's key, at most 63 bytes
        add: True: adds; False: removes
    """
    if _SetBridgeLif(
        c.text(lif), c.text(auxName), c.u32(paramA), c.u32(paramB), c.u32(diValue), c.text(instance), 1 if add else 0
    ):
        raise failure("set_bridge_lif")


def get_lif(instance, lif):
    """Reads one routed LIF.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(LifInfo)()
    if _GetLif(c.text(instance), c.text(lif), byref(out)):
        raise failure("get_lif")
    return taken(out, _ReleaseLif)


def get_bridge_lif(instance, lif):
    """Reads one bridge LIF.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(LifInfo)()
    if _GetBridgeLif(c.text(instance), c.text(lif), byref(out)):
        raise failure("get_bridge_lif")
    return taken(out, _ReleaseLif)


def get_lifs(instance):
    """Reads an instance's routed LIFs.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the list
    """
    out = _LifList()
    if _GetLifs(c.text(instance), byref(out)):
        raise failure("get_lifs")
    read = out.contents
    return RecordList(LifInfo, read.records, range(read.count), LIFS_MAX)


def get_bridge_lifs(instance):
    """Reads an instance's bridge LIFs.

    If the device call fails, 16 bytes stay allocated.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the list
    """
    out = _LifList()
    if _GetBridgeLifs(c.text(instance), byref(out)):
        raise failure("get_bridge_lifs")
    read = out.contents
    return RecordList(LifInfo, read.records, range(read.count), LIFS_MAX)


# Interface addressing and options

_SetLifIp = function("LUMOZEPH_SetLifIp", c_char_p, c_char_p, c_uint32, c_uint32)
_DelLifIp = function("LUMOZEPH_DelLifIp", c_char_p, c_char_p, c_uint32, c_uint32)
_SetLifDIIp = function("LUMOZEPH_SetLifDIIp", c_char_p, c_char_p, c_uint32)
_SetLifVxlanMulticastIp = function("LUMOZEPH_SetLifVxlanMulticastIp", c_char_p, c_char_p, c_uint32)
_SetLifVxlanCP = function("LUMOZEPH_SetLifVxlanCP", c_char_p, c_char_p)
_DelLifVxlanCP = function("LUMOZEPH_DelLifVxlanCP", c_char_p, c_char_p)
_EnableLif = function("LUMOZEPH_EnableLif", c_char_p, c_char_p)
_DisableLif = function("LUMOZEPH_DisableLif", c_char_p, c_char_p)
_SetLifMcastRouting = function("LUMOZEPH_SetLifMcastRouting", c_char_p, c_char_p, c_uint8)
_RAMTUSetv6 = function("LUMOZEPH_RAMTUSetv6", c_char_p, c_char_p, c_uint32)
_SetLifIpv6 = function("LUMOZEPH_SetLifIpv6", c_char_p, c_char_p, c_uint64, c_uint64, c_uint32)
_DelLifIpv6 = function("LUMOZEPH_DelLifIpv6", c_char_p, c_char_p, c_uint64, c_uint64, c_uint32)
_SetMcastRouting = function("LUMOZEPH_SetMcastRouting", c_char_p, c_char_p, c_uint32, c_uint32, c_uint16, c_uint8)


def set_lif_ip(instance, lif, address, mask):
    """Sets a LIF's IPv4 address.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        address: IPv4
        mask: the mask value of address; a number: that of a length
    """
    if _SetLifIp(c.text(instance), c.text(lif), c.ipv4(address), c.mask(mask)):
        raise failure("set_lif_ip")


def del_lif_ip(instance, lif, address, mask):
    """Removes a LIF's IPv4 address.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        address: IPv4
        mask: the mask value of address; a number: that of a length
    """
    if _DelLifIp(c.text(instance), c.text(lif), c.ipv4(address), c.mask(mask)):
        raise failure("del_lif_ip")


def set_lif_di_ip(instance, lif, address):
    """Sets a LIF's designated-instance address.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        address: IPv4
    """
    if _SetLifDIIp(c.text(instance), c.text(lif), c.ipv4(address)):
        raise failure("set_lif_di_ip")


def set_lif_vxlan_multicast_ip(instance, lif, address):
    """Sets a LIF's VXLAN multicast address.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        address: IPv4
    """
    if _SetLifVxlanMulticastIp(c.text(instance), c.text(lif), c.ipv4(address)):
        raise failure("set_lif_vxlan_multicast_ip")


def set_lif_vxlan_cp(instance, lif):
    """Attaches a LIF to the VXLAN control plane.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
    """
    if _SetLifVxlanCP(c.text(instance), c.text(lif)):
        raise failure("set_lif_vxlan_cp")


def del_lif_vxlan_cp(instance, lif):
    """Detaches a LIF from the VXLAN control plane.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
    """
    if _DelLifVxlanCP(c.text(instance), c.text(lif)):
        raise failure("del_lif_vxlan_cp")


def enable_lif(instance, lif):
    """Sets a LIF's administrative state to up.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
    """
    if _EnableLif(c.text(instance), c.text(lif)):
        raise failure("enable_lif")


def disable_lif(instance, lif):
    """Sets a LIF's administrative state to down.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
    """
    if _DisableLif(c.text(instance), c.text(lif)):
        raise failure("disable_lif")


def set_lif_mcast_routing(instance, lif, on):
    """Switches multicast routing on a LIF on or off.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        on: True: on; False: off
    """
    if _SetLifMcastRouting(c.text(instance), c.text(lif), 1 if on else 0):
        raise failure("set_lif_mcast_routing")


def ramtu_set_v6(instance, lif, mtu):
    """Sets the MTU that a LIF advertises in IPv6 router advertisements.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        mtu: in bytes
    """
    if _RAMTUSetv6(c.text(instance), c.text(lif), c.u32(mtu)):
        raise failure("ramtu_set_v6")


def set_lif_ipv6(instance, lif, address, prefixLen):
    """Adds an IPv6 address to a LIF.

    Args:
        instance: the instance's key, cut to 64 bytes
        lif: the LIF's name, cut to 64 bytes
        address: the address
        prefixLen: in bits; only its low byte is sent
    """
    if _SetLifIpv6(c.text(instance), c.text(lif), *c.ipv6(address), c.u32(prefixLen)):
        raise failure("set_lif_ipv6")


def del_lif_ipv6(instance, lif, address, prefixLen):
    """Removes an IPv6 address from a LIF.

    Args:
        instance: the instance's key, cut to 64 bytes
        lif: the LIF's name, cut to 64 bytes
        address: the address
        prefixLen: in bits; only its low byte is sent
    """
    if _DelLifIpv6(c.text(instance), c.text(lif), *c.ipv6(address), c.u32(prefixLen)):
        raise failure("del_lif_ipv6")


def set_mcast_routing(instance, name, *, value1=0, value2=0, value3=0, value4=0):
    """Configures multicast routing for an instance as a whole.

    Args:
        instance: its key, at most 63 bytes
        name: at most 63 bytes
        value1: passed on as it stands
        value2: passed on as it stands
        value3: passed on as it stands
        value4: passed on as it stands
    """
    if _SetMcastRouting(c.text(instance), c.text(name), c.u32(value1), c.u32(value2), c.u16(value3), c.u8(value4)):
        raise failure("set_mcast_routing")


# DHCP relay

_ConfigureLifDhcpRelay = function("LUMOZEPH_ConfigureLifDhcpRelay", c_char_p, c_char_p, c_char_p)


def configure_lif_dhcp_relay(instance, lif, servers=None):
    """Replaces the DHCP servers that a LIF relays to.

    As it stands, only the empty list can be configured: a server is accepted only if its text is well-formed both as an
    IPv4 and as an IPv6 address, which none is.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        servers: addresses separated by commas: EINVAL; None: no servers

    Raises:
        Error: EINVAL: if servers is not None
    """
    if _ConfigureLifDhcpRelay(c.text(instance), c.text(lif), c.writable(servers)):
        raise failure("configure_lif_dhcp_relay")


# IPv4 routes

_ReleaseRoute = release("LUMOZEPH_ReleaseRoute")
_SetRoute = function(
    "LUMOZEPH_SetRoute", c_uint32, c_uint32, c_uint32, c_char_p, c_char_p, c_uint32, POINTER(CmdResult)
)
_DelRoute = function("LUMOZEPH_DelRoute", c_uint32, c_uint32, c_uint32, c_char_p, c_char_p, POINTER(CmdResult))
_GetRoutes = function("LUMOZEPH_GetRoutes", c_char_p, c_void_p)
_GetResolveRoute = function("LUMOZEPH_GetResolveRoute", c_char_p, c_uint32, c_uint32, c_uint32, c_void_p)


class _RouteList(Owner):
    __slots__ = ()
    _type_ = header(RouteInfo, c_int32)
    free = release("LUMOZEPH_ReleaseRoutes")


def set_route(dest, mask, gateway, *, lif=None, instance, param=0, result=None):
    """Adds an IPv4 route.

    Args:
        dest: IPv4 address of the destination network
        mask: the mask value of dest; a number: that of a length
        gateway: IPv4 address of the next hop
        lif: name of the outgoing LIF, at most 63 bytes; None: none
        instance: the instance's key, at most 63 bytes
        param: passed on as it stands
        result: the module's answer is stored here
    """
    if _SetRoute(
        c.ipv4(dest), c.mask(mask), c.ipv4(gateway), c.maybe_text(lif), c.text(instance), c.u32(param), result
    ):
        raise failure("set_route")


def del_route(dest, mask, gateway, *, lif=None, instance, result=None):
    """Deletes an IPv4 route.

    Args:
        dest: IPv4 address of the destination network
        mask: the mask value of dest; a number: that of a length
        gateway: IPv4 address of the next hop
        lif: name of the outgoing LIF, at most 63 bytes; None: none
        instance: the instance's key, at most 63 bytes
        result: the module's answer is stored here
    """
    if _DelRoute(c.ipv4(dest), c.mask(mask), c.ipv4(gateway), c.maybe_text(lif), c.text(instance), result):
        raise failure("del_route")


def get_routes(instance):
    """Reads an instance's routes.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the list
    """
    out = _RouteList()
    if _GetRoutes(c.text(instance), byref(out)):
        raise failure("get_routes")
    read = out.contents
    return RecordList(RouteInfo, read.records, range(read.count), ROUTES_MAX)


def get_resolve_route(instance, dest, mask, param=0):
    """Asks the module which route it uses for a destination.

    Args:
        instance: the instance's key, at most 63 bytes
        dest: IPv4 address of the destination
        mask: a mask value; a number: that of a length
        param: passed on as it stands

    Returns:
        the route
    """
    out = POINTER(RouteInfo)()
    if _GetResolveRoute(c.text(instance), c.ipv4(dest), c.mask(mask), c.u32(param), byref(out)):
        raise failure("get_resolve_route")
    return taken(out, _ReleaseRoute)


# IPv6 routes and path MTU

_SetRoutev6 = function("LUMOZEPH_SetRoutev6", c_uint64, c_uint64, c_uint32, c_uint64, c_uint64, c_char_p, c_char_p)
_DelRoutev6 = function("LUMOZEPH_DelRoutev6", c_uint64, c_uint64, c_uint32, c_uint64, c_uint64, c_char_p, c_char_p)
_GetRoutesv6 = function("LUMOZEPH_GetRoutesv6", c_char_p, c_void_p, c_void_p)
_PMTUTableCearv6 = function("LUMOZEPH_PMTUTableCearv6")


def set_route_v6(dest, prefixLen, gateway, *, lif=None, instance):
    """Adds an IPv6 route.

    Args:
        dest: the destination prefix
        prefixLen: in bits; only its low byte is sent
        gateway: the next hop
        lif: name of the outgoing LIF, cut to 64 bytes; None: none
        instance: the instance's key, cut to 64 bytes
    """
    if _SetRoutev6(*c.ipv6(dest), c.u32(prefixLen), *c.ipv6(gateway), c.maybe_text(lif), c.text(instance)):
        raise failure("set_route_v6")


def del_route_v6(dest, prefixLen, gateway, *, lif=None, instance):
    """Deletes an IPv6 route.

    Args:
        dest: the destination prefix
        prefixLen: in bits; only its low byte is sent
        gateway: the next hop
        lif: name of the outgoing LIF, cut to 64 bytes; None: none
        instance: the instance's key, cut to 64 bytes
    """
    if _DelRoutev6(*c.ipv6(dest), c.u32(prefixLen), *c.ipv6(gateway), c.maybe_text(lif), c.text(instance)):
        raise failure("del_route_v6")


def get_routes_v6(instance):
    """Reads an instance's IPv6 routes as the module lays them out, in entries of ROUTE6_SIZE bytes.

    Sends two commands: the first asks how many routes there are, by which the block gets room for 8000 entries if there
    are fewer than that, or else for 30000 (a number of 2^31 or more counts as a negative one, which is fewer than
    8000); the second reads them. The caller does not learn which: count is what the module reports, and may be larger
    than the room if the module is not well behaved. Only the first 8000 entries are sure to lie in the block. What the
    module has not written of them is undefined.

    Args:
        instance: its key, cut to 64 bytes

    Returns:
        the entries

    Raises:
        Error: ENOMEM: if the first command fails, whatever it failed of (without a device, too), and if there are 30000
            routes or more, but fewer than 2^31; nothing is allocated then
    """
    block = c_void_p()  # After a failure, it may point to what has been freed.
    count = c_uint32()
    if _GetRoutesv6(c.text(instance), byref(block), byref(count)):
        raise failure("get_routes_v6")
    return EntryBlock(cast(block, BlockOwner), ROUTE6_SIZE, count.value)


def pmtu_table_cear_v6():
    """Clears the module-wide IPv6 path-MTU table."""
    if _PMTUTableCearv6():
        raise failure("pmtu_table_cear_v6")


# ARP entries, IPv6 neighbours and proxy entries

_SetArp = function("LUMOZEPH_SetArp", c_uint32, c_char_p, c_char_p, c_char_p)
_DelArp = function("LUMOZEPH_DelArp", c_uint32, c_char_p, c_char_p)
_SetProxyArp = function("LUMOZEPH_SetProxyArp", c_uint32, c_char_p, c_char_p)
_DelProxyArp = function("LUMOZEPH_DelProxyArp", c_uint32, c_char_p, c_char_p)
_GetArps = function("LUMOZEPH_GetArps", c_char_p, c_char_p, c_void_p)
_GetProxyArps = function("LUMOZEPH_GetProxyArps", c_char_p, c_char_p, c_void_p)
_ClearArp = function("LUMOZEPH_ClearArp", c_char_p, c_char_p)
_ClearArpv6 = function("LUMOZEPH_ClearArpv6", c_char_p, c_char_p)
_SetArpv6 = function("LUMOZEPH_SetArpv6", c_uint64, c_uint64, c_char_p, c_char_p, c_char_p)
_DelArpv6 = function("LUMOZEPH_DelArpv6", c_uint64, c_uint64, c_char_p, c_char_p)
_SetProxyArpv6 = function("LUMOZEPH_SetProxyArpv6", c_uint64, c_uint64, c_char_p, c_char_p)
_DelProxyArpv6 = function("LUMOZEPH_DelProxyArpv6", c_uint64, c_uint64, c_char_p, c_char_p)
_GetArpsv6 = function("LUMOZEPH_GetArpsv6", c_char_p, c_char_p, c_void_p)


def set_arp(address, mac, lif, instance):
    """Adds an ARP entry.

    Args:
        address: IPv4
        mac: the MAC address as text, at most 17 bytes
        lif: name of the LIF that the entry is on, at most 63 bytes
        instance: the instance's key, at most 63 bytes
    """
    if _SetArp(c.ipv4(address), c.text(mac), c.text(lif), c.text(instance)):
        raise failure("set_arp")


def del_arp(address, lif, instance):
    """Deletes an ARP entry.

    Args:
        address: IPv4
        lif: name of the LIF that the entry is on, at most 63 bytes
        instance: the instance's key, at most 63 bytes
    """
    if _DelArp(c.ipv4(address), c.text(lif), c.text(instance)):
        raise failure("del_arp")


def set_proxy_arp(address, lif, instance):
    """Adds a proxy entry of IPv4.

    Args:
        address: IPv4
        lif: name of the LIF that the entry is on, at most 63 bytes
        instance: the instance's key, at most 63 bytes
    """
    if _SetProxyArp(c.ipv4(address), c.text(lif), c.text(instance)):
        raise failure("set_proxy_arp")


def del_proxy_arp(address, lif, instance):
    """Deletes a proxy entry of IPv4.

    Args:
        address: IPv4
        lif: name of the LIF that the entry is on, at most 63 bytes
        instance: the instance's key, at most 63 bytes
    """
    if _DelProxyArp(c.ipv4(address), c.text(lif), c.text(instance)):
        raise failure("del_proxy_arp")


def get_arps(instance, lif=None):
    """Reads the ARP entries of a LIF, or of a whole instance.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes; None: those of the whole instance

    Returns:
        ARP_TABLE_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(ARP_TABLE_SIZE)
    if _GetArps(c.text(instance), c.maybe_text(lif), buffer):
        raise failure("get_arps")
    return buffer.raw


def get_proxy_arps(instance, lif=None):
    """Reads the proxy entries of IPv4 of a LIF, or of a whole instance.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes; None: those of the whole instance

    Returns:
        ARP_TABLE_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(ARP_TABLE_SIZE)
    if _GetProxyArps(c.text(instance), c.maybe_text(lif), buffer):
        raise failure("get_proxy_arps")
    return buffer.raw


def clear_arp(instance, lif=None):
    """Clears the ARP table of a LIF, or of a whole instance.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes; None: that of the whole instance
    """
    if _ClearArp(c.text(instance), c.maybe_text(lif)):
        raise failure("clear_arp")


def clear_arp_v6(instance, lif=None):
    """Clears the IPv6 neighbours of a LIF, or of a whole instance.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes; None: those of the whole instance
    """
    if _ClearArpv6(c.text(instance), c.maybe_text(lif)):
        raise failure("clear_arp_v6")


def set_arp_v6(address, mac, lif, instance):
    """Adds an IPv6 neighbour.

    Args:
        address: the address
        mac: the MAC address as text, cut to 18 bytes
        lif: name of the LIF that the neighbour is on, cut to 64 bytes
        instance: the instance's key, cut to 64 bytes
    """
    if _SetArpv6(*c.ipv6(address), c.text(mac), c.text(lif), c.text(instance)):
        raise failure("set_arp_v6")


def del_arp_v6(address, lif, instance):
    """Deletes an IPv6 neighbour.

    Args:
        address: the address
        lif: name of the LIF that the neighbour is on, cut to 64 bytes
        instance: the instance's key, cut to 64 bytes
    """
    if _DelArpv6(*c.ipv6(address), c.text(lif), c.text(instance)):
        raise failure("del_arp_v6")


def set_proxy_arp_v6(address, lif, instance):
    """Adds a proxy entry of IPv6.

    Args:
        address: the address
        lif: name of the LIF that the entry is on, cut to 64 bytes
        instance: the instance's key, cut to 64 bytes
    """
    if _SetProxyArpv6(*c.ipv6(address), c.text(lif), c.text(instance)):
        raise failure("set_proxy_arp_v6")


def del_proxy_arp_v6(address, lif, instance):
    """Deletes a proxy entry of IPv6.

    Args:
        address: the address
        lif: name of the LIF that the entry is on, cut to 64 bytes
        instance: the instance's key, cut to 64 bytes
    """
    if _DelProxyArpv6(*c.ipv6(address), c.text(lif), c.text(instance)):
        raise failure("del_proxy_arp_v6")


def get_arps_v6(instance, lif=None):
    """Reads the IPv6 neighbours of a LIF, or of a whole instance.

    Args:
        instance: the instance's key, cut to 64 bytes
        lif: the LIF's name, cut to 64 bytes; None: those of the whole instance

    Returns:
        ARP_TABLE_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(ARP_TABLE_SIZE)
    if _GetArpsv6(c.text(instance), c.maybe_text(lif), buffer):
        raise failure("get_arps_v6")
    return buffer.raw


# Interface policies

_SetLifPolicy = function(
    "LUMOZEPH_SetLifPolicy",
    c_int32,
    c_char_p,
    c_uint32,
    c_uint32,
    c_uint32,
    c_char_p,
    c_char_p,
    c_uint32,
    POINTER(CmdResult),
)
_DelLifPolicy = function(
    "LUMOZEPH_DelLifPolicy",
    c_int32,
    c_char_p,
    c_uint32,
    c_uint32,
    c_uint32,
    c_char_p,
    c_char_p,
    c_uint32,
    POINTER(CmdResult),
)
_GetLifPolicies = function("LUMOZEPH_GetLifPolicies", c_char_p, c_uint32, c_char_p, c_void_p)


def set_lif_policy(kind, *, text=None, dest, mask, gateway, lif=None, instance, param=0, result=None):
    """Adds an interface policy.

    Args:
        kind: the policy's kind
        text: ignored unless kind is 4, at most 63 bytes; None: EINVAL if kind is 4, and otherwise none
        dest: IPv4 address of the destination network
        mask: the mask value of dest; a number: that of a length
        gateway: IPv4 address of the next hop
        lif: name of the LIF, at most 63 bytes; None: none
        instance: the instance's key, at most 63 bytes
        param: passed on as it stands
        result: the module's answer is stored here
    """
    if _SetLifPolicy(
        c.i32(kind),
        c.maybe_text(text),
        c.ipv4(dest),
        c.mask(mask),
        c.ipv4(gateway),
        c.maybe_text(lif),
        c.text(instance),
        c.u32(param),
        result,
    ):
        raise failure("set_lif_policy")


def del_lif_policy(kind, *, text=None, dest, mask, gateway, lif=None, instance, param=0, result=None):
    """Deletes an interface policy.

    Args:
        kind: the policy's kind
        text: ignored unless kind is 4, at most 63 bytes; None: EINVAL if kind is 4, and otherwise none
        dest: IPv4 address of the destination network
        mask: the mask value of dest; a number: that of a length
        gateway: IPv4 address of the next hop
        lif: name of the LIF, at most 63 bytes; None: none
        instance: the instance's key, at most 63 bytes
        param: passed on as it stands
        result: the module's answer is stored here
    """
    if _DelLifPolicy(
        c.i32(kind),
        c.maybe_text(text),
        c.ipv4(dest),
        c.mask(mask),
        c.ipv4(gateway),
        c.maybe_text(lif),
        c.text(instance),
        c.u32(param),
        result,
    ):
        raise failure("del_lif_policy")


def get_lif_policies(instance, kind, text=None):
    """Reads an instance's interface policies of one kind, as route records.

    Args:
        instance: its key, at most 63 bytes
        kind: the policies' kind
        text: sent whatever the kind, at most 63 bytes; None: EINVAL if kind is 4, and otherwise none

    Returns:
        the list
    """
    out = _RouteList()
    if _GetLifPolicies(c.text(instance), c.u32(kind), c.maybe_text(text), byref(out)):
        raise failure("get_lif_policies")
    read = out.contents
    return RecordList(RouteInfo, read.records, range(read.count), ROUTES_MAX)


# Policies

_GetPolicy = function("LUMOZEPH_GetPolicy", c_uint32, c_void_p)
_GetPolicyCount = function("LUMOZEPH_GetPolicyCount", c_uint32, c_void_p)
_SetPolicy = function("LUMOZEPH_SetPolicy", c_uint32, c_uint32, c_uint32, c_uint32, POINTER(CmdResult))
_DelPolicy = function("LUMOZEPH_DelPolicy", c_uint32, c_uint32, c_uint32, POINTER(CmdResult))


class _PolicyList(Owner):
    __slots__ = ()
    _type_ = header(PolicyInfo, c_int32)
    free = release("LUMOZEPH_ReleaseAllPolicy")


def get_policy(table):
    """Reads the policies of one table.

    Args:
        table: the table's number

    Returns:
        the list
    """
    out = _PolicyList()
    if _GetPolicy(c.u32(table), byref(out)):
        raise failure("get_policy")
    read = out.contents
    return RecordList(PolicyInfo, read.records, range(read.count), POLICIES_MAX)


def get_policy_count(table):
    """Counts the policies of one table.

    Of the request, 768 bytes are sent as the stack held them. If the module's reply is too short (EBADMSG), 4 bytes
    stay allocated.

    Args:
        table: the table's number

    Returns:
        the number of policies

    Raises:
        Error: ENOMEM: the library could not allocate memory for the module's reply
        Error: EBADMSG: the module's reply is shorter than 4 bytes
    """
    out = c_uint32()
    if _GetPolicyCount(c.u32(table), byref(out)):
        raise failure("get_policy_count")
    return out.value


def set_policy(table, key1, key2, *, value=0, result=None):
    """Sets a policy.

    Args:
        table: the table's number
        key1: first of the two numbers that name the policy
        key2: second of them
        value: stored with the policy
        result: the module's answer is stored here
    """
    if _SetPolicy(c.u32(table), c.u32(key1), c.u32(key2), c.u32(value), result):
        raise failure("set_policy")


def del_policy(table, key1, key2, result=None):
    """Deletes a policy.

    Args:
        table: the table's number
        key1: first of the two numbers that name the policy
        key2: second of them
        result: the module's answer is stored here
    """
    if _DelPolicy(c.u32(table), c.u32(key1), c.u32(key2), result):
        raise failure("del_policy")


# Policy tables, and the references from interfaces to them

_ReleaseLifPolicyTableRef = release("LUMOZEPH_ReleaseLifPolicyTableRef")
_GetPolicyTable = function("LUMOZEPH_GetPolicyTable", c_void_p)
_SetPolicyTable = function("LUMOZEPH_SetPolicyTable", c_uint32, c_char_p, POINTER(CmdResult))
_DelPolicyTable = function("LUMOZEPH_DelPolicyTable", c_uint32, POINTER(CmdResult))
_GetLifPolicyTableRef = function("LUMOZEPH_GetLifPolicyTableRef", c_char_p, c_char_p, c_void_p)
_SetLifPolicyTableRef = function(
    "LUMOZEPH_SetLifPolicyTableRef", c_char_p, c_char_p, c_uint16, POINTER(PolicyTableRefEntry), POINTER(CmdResult)
)
_DelLifPolicyTableRef = function("LUMOZEPH_DelLifPolicyTableRef", c_char_p, c_char_p, POINTER(CmdResult))


class _PolicyTableList(Owner):
    __slots__ = ()
    _type_ = header(PolicyTableInfo, c_int32)
    free = release("LUMOZEPH_ReleaseAllPolicyTable")


def get_policy_table():
    """Reads the policy tables.

    Returns:
        the list
    """
    out = _PolicyTableList()
    if _GetPolicyTable(byref(out)):
        raise failure("get_policy_table")
    read = out.contents
    return RecordList(PolicyTableInfo, read.records, range(read.count), POLICY_TABLES_MAX)


def set_policy_table(table, name, result=None):
    """Creates a policy table.

    Args:
        table: its number
        name: its name, at most 63 bytes
        result: the module's answer is stored here
    """
    if _SetPolicyTable(c.u32(table), c.text(name), result):
        raise failure("set_policy_table")


def del_policy_table(table, result=None):
    """Deletes a policy table.

    Args:
        table: its number
        result: the module's answer is stored here
    """
    if _DelPolicyTable(c.u32(table), result):
        raise failure("del_policy_table")


def get_lif_policy_table_ref(instance, lif):
    """Reads a LIF's references to policy tables.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(LifPolicyTableRef)()
    if _GetLifPolicyTableRef(c.text(instance), c.text(lif), byref(out)):
        raise failure("get_lif_policy_table_ref")
    return taken(out, _ReleaseLifPolicyTableRef)


def set_lif_policy_table_ref(instance, lif, *, entries=(), result=None):
    """Sets a LIF's references to policy tables.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        entries: at most POLICY_TABLE_REFS_MAX. A larger number is itself sent, but of its entries only what fits into
            the request
        result: the module's answer is stored here
    """
    if _SetLifPolicyTableRef(
        c.text(instance), c.text(lif), c.u16(len(entries)), c.records(PolicyTableRefEntry, entries), result
    ):
        raise failure("set_lif_policy_table_ref")


def del_lif_policy_table_ref(instance, lif, result=None):
    """Deletes a LIF's references to policy tables.

    Args:
        instance: the instance's key, at most 63 bytes
        lif: the LIF's name, at most 63 bytes
        result: the module's answer is stored here
    """
    if _DelLifPolicyTableRef(c.text(instance), c.text(lif), result):
        raise failure("del_lif_policy_table_ref")


# Bridges

_ReleaseBridgeInstance = release("LUMOZEPH_ReleaseBridgeInstance")
_GetBridgeInstance = function("LUMOZEPH_GetBridgeInstance", c_char_p, c_void_p)
_GetBridgeInstances = function("LUMOZEPH_GetBridgeInstances", c_void_p)
_BridgeAdd = function("LUMOZEPH_BridgeAdd", c_char_p, c_uint32)
_BridgeDel = function("LUMOZEPH_BridgeDel", c_char_p, c_uint32)
_BridgeEnable = function("LUMOZEPH_BridgeEnable", c_char_p, c_uint8)
_BridgeDisable = function("LUMOZEPH_BridgeDisable", c_char_p, c_uint8)
_BridgeSetHAAdminState = function("LUMOZEPH_BridgeSetHAAdminState", c_char_p, c_uint32)
_SetBridgeRepMode = function("LUMOZEPH_SetBridgeRepMode", c_char_p, c_uint32)
_BridgeSetConfig = function("LUMOZEPH_BridgeSetConfig", c_char_p, c_int32, c_uint32)


class _BridgeInstanceList(Owner):
    __slots__ = ()
    _type_ = header(BridgeInstanceInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeInstances")


def get_bridge_instance(key):
    """Reads one bridge.

    Args:
        key: its key, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(BridgeInstanceInfo)()
    if _GetBridgeInstance(c.text(key), byref(out)):
        raise failure("get_bridge_instance")
    return taken(out, _ReleaseBridgeInstance)


def get_bridge_instances():
    """Reads all bridges.

    If the device call fails, 16 bytes stay allocated.

    Returns:
        the list
    """
    out = _BridgeInstanceList()
    if _GetBridgeInstances(byref(out)):
        raise failure("get_bridge_instances")
    read = out.contents
    return RecordList(BridgeInstanceInfo, read.records, range(read.count), BRIDGES_MAX)


def bridge_add(key, value):
    """Creates a bridge.

    Args:
        key: its key, at most 63 bytes
        value: passed on as it stands
    """
    if _BridgeAdd(c.text(key), c.u32(value)):
        raise failure("bridge_add")


def bridge_del(key, value):
    """Removes a bridge.

    Args:
        key: its key, at most 63 bytes
        value: passed on as it stands
    """
    if _BridgeDel(c.text(key), c.u32(value)):
        raise failure("bridge_del")


def bridge_enable(key, value):
    """Switches a bridge on.

    Args:
        key: its key, at most 63 bytes
        value: one byte, passed on as it stands; it does not choose between on and off
    """
    if _BridgeEnable(c.text(key), c.u8(value)):
        raise failure("bridge_enable")


def bridge_disable(key, value):
    """Switches a bridge off.

    Args:
        key: its key, at most 63 bytes
        value: one byte, passed on as it stands; it does not choose between on and off
    """
    if _BridgeDisable(c.text(key), c.u8(value)):
        raise failure("bridge_disable")


def bridge_set_ha_admin_state(key, state):
    """Sets a bridge's high-availability administrative state.

    Args:
        key: its key, at most 63 bytes
        state: passed on as it stands
    """
    if _BridgeSetHAAdminState(c.text(key), c.u32(state)):
        raise failure("bridge_set_ha_admin_state")


def set_bridge_rep_mode(key, mode):
    """Sets a bridge's replication mode.

    Args:
        key: its key, at most 63 bytes
        mode: passed on as it stands
    """
    if _SetBridgeRepMode(c.text(key), c.u32(mode)):
        raise failure("set_bridge_rep_mode")


def bridge_set_config(key, command, value=0):
    """Sets one numeric setting of a bridge, which the command number chooses.

    The number is sent unchecked, also that of a command of another chapter. No room is offered for a reply.

    Args:
        key: the bridge's key, at most 63 bytes
        command: the number that is sent, sign-extended
        value: passed on as it stands
    """
    if _BridgeSetConfig(c.text(key), c.i32(command), c.u32(value)):
        raise failure("bridge_set_config")


# Bridge networks and ports

_GetBridgeNetworks = function("LUMOZEPH_GetBridgeNetworks", c_char_p, c_char_p, c_void_p)
_GetBridgePorts = function("LUMOZEPH_GetBridgePorts", c_char_p, c_char_p, c_uint16, c_uint32, c_void_p)


class _BridgeNetworkList(Owner):
    __slots__ = ()
    _type_ = header(BridgeNetworkInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeNetworks")


class _BridgePortList(Owner):
    __slots__ = ()
    _type_ = header(BridgePortInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgePorts")


def get_bridge_networks(key):
    """Reads a bridge's networks.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: the bridge's key, at most 63 bytes

    Returns:
        the list
    """
    out = _BridgeNetworkList()
    if _GetBridgeNetworks(b"", c.text(key), byref(out)):
        raise failure("get_bridge_networks")
    read = out.contents
    return RecordList(BridgeNetworkInfo, read.records, range(read.count), BRIDGE_NETWORKS_MAX)


def get_bridge_ports(key, value16, value32):
    """Reads a bridge's ports.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: the bridge's key, at most 63 bytes
        value16: first of the two values that select the ports; sent as 32 bits
        value32: second of them

    Returns:
        the list
    """
    out = _BridgePortList()
    if _GetBridgePorts(b"", c.text(key), c.u16(value16), c.u32(value32), byref(out)):
        raise failure("get_bridge_ports")
    read = out.contents
    return RecordList(BridgePortInfo, read.records, range(read.count), BRIDGE_PORTS_MAX)


# Forwarding table, FL table and PMACs

_GetBridgeFdbEntries = function("LUMOZEPH_GetBridgeFdbEntries", c_char_p, c_uint16, c_uint32, c_void_p)
_BridgeSetFdbEntry = function("LUMOZEPH_BridgeSetFdbEntry", c_char_p, c_char_p, c_uint32, c_uint32, c_uint32, c_uint8)
_BridgeClearFdbTable = function("LUMOZEPH_BridgeClearFdbTable", c_char_p, c_uint32, c_uint32)
_DumpFLTable = function("LUMOZEPH_DumpFLTable", c_uint16, c_void_p)
_GetPmac = function("LUMOZEPH_GetPmac", c_void_p)
_AddPmac = function("LUMOZEPH_AddPmac", c_uint32, c_char_p)
_DelPmac = function("LUMOZEPH_DelPmac", c_char_p)


class _BridgeFdbList(Owner):
    __slots__ = ()
    _type_ = header(BridgeFdbEntry, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeFdbEntries")


def get_bridge_fdb_entries(key, value16, value32):
    """Reads entries of a bridge's forwarding table.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: the bridge's key, at most 63 bytes
        value16: first selector
        value32: second selector

    Returns:
        the list
    """
    out = _BridgeFdbList()
    if _GetBridgeFdbEntries(c.text(key), c.u16(value16), c.u32(value32), byref(out)):
        raise failure("get_bridge_fdb_entries")
    read = out.contents
    return RecordList(BridgeFdbEntry, read.records, range(read.count), BRIDGE_FDB_ENTRIES_MAX)


def bridge_set_fdb_entry(key, *, mac=None, selector1, selector2, value=0, flags):
    """Sets an entry of a bridge's forwarding table.

    Args:
        key: the bridge's key, at most 63 bytes
        mac: the MAC address as text, at most 17 bytes; None: none
        selector1: first selector
        selector2: second selector
        value: passed on as it stands
        flags: passed on as they stand
    """
    if _BridgeSetFdbEntry(
        c.text(key), c.maybe_text(mac), c.u32(selector1), c.u32(selector2), c.u32(value), c.u8(flags)
    ):
        raise failure("bridge_set_fdb_entry")


def bridge_clear_fdb_table(key, selector1, selector2):
    """Clears a bridge's forwarding table.

    Args:
        key: the bridge's key, at most 63 bytes
        selector1: first selector
        selector2: second selector
    """
    if _BridgeClearFdbTable(c.text(key), c.u32(selector1), c.u32(selector2)):
        raise failure("bridge_clear_fdb_table")


def dump_fl_table(selector):
    """Reads the module's FL table.

    Args:
        selector: passed on as it stands

    Returns:
        FL_TABLE_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(FL_TABLE_SIZE)
    if _DumpFLTable(c.u16(selector), buffer):
        raise failure("dump_fl_table")
    return buffer.raw


def get_pmac():
    """Reads the PMAC table.

    Returns:
        PMAC_TABLE_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(PMAC_TABLE_SIZE)
    if _GetPmac(buffer):
        raise failure("get_pmac")
    return buffer.raw


def add_pmac(value, mac=None):
    """Adds a PMAC.

    Args:
        value: passed on as it stands
        mac: the MAC address; None: none, which sends six zero bytes
    """
    if _AddPmac(c.u32(value), c.maybe_mac(mac)):
        raise failure("add_pmac")


def del_pmac(mac=None):
    """Deletes a PMAC.

    Args:
        mac: the MAC address; None: none, which sends six zero bytes
    """
    if _DelPmac(c.maybe_mac(mac)):
        raise failure("del_pmac")


# Bridge clusters, their nodes and the local transport node

_GetLocaleId = function("LUMOZEPH_GetLocaleId", c_void_p)
_GetBridgeClusters = function("LUMOZEPH_GetBridgeClusters", c_char_p, c_void_p)
_BridgeClusterSet = function("LUMOZEPH_BridgeClusterSet", c_char_p, c_int8)
_GetBridgeClusterNodes = function("LUMOZEPH_GetBridgeClusterNodes", c_char_p, c_void_p)
_BridgeClusterNodeSet = function("LUMOZEPH_BridgeClusterNodeSet", c_char_p, c_char_p, c_char_p, c_int8)
_BridgeLocalTransportNodeSet = function(
    "LUMOZEPH_BridgeLocalTransportNodeSet", c_char_p, c_char_p, c_char_p, c_uint32, c_char_p, c_int8
)
_BridgeGetLocalTransportNode = function("LUMOZEPH_BridgeGetLocalTransportNode", c_void_p, c_uint32)
_FlushBridgeCluster = function("LUMOZEPH_FlushBridgeCluster", c_char_p, c_int8)
_SetBridgeClusterDebug = function("LUMOZEPH_SetBridgeClusterDebug", c_char_p, c_uint8)
_BridgeClusterBfdHAProfileSet = function("LUMOZEPH_BridgeClusterBfdHAProfileSet", c_char_p, c_uint8, c_uint32, c_uint32)


class _BridgeClusterList(Owner):
    __slots__ = ()
    _type_ = header(BridgeClusterInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeClusters")


class _BridgeClusterNodeList(Owner):
    __slots__ = ()
    _type_ = header(BridgeClusterNodeInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeClusterNodes")


def get_locale_id():
    """Reads the locale identifier.

    Returns:
        LOCALE_ID_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(LOCALE_ID_SIZE)
    if _GetLocaleId(buffer):
        raise failure("get_locale_id")
    return buffer.raw


def get_bridge_clusters(key=None):
    """Reads clusters.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: an instance key, at most 63 bytes; None: no key is sent

    Returns:
        the list
    """
    out = _BridgeClusterList()
    if _GetBridgeClusters(c.maybe_text(key), byref(out)):
        raise failure("get_bridge_clusters")
    read = out.contents
    return RecordList(BridgeClusterInfo, read.records, range(read.count), BRIDGE_CLUSTERS_MAX)


def bridge_cluster_set(key, on):
    """Sets a cluster, or removes it.

    Args:
        key: its key, at most 63 bytes
        on: True: sets; False: removes
    """
    if _BridgeClusterSet(c.text(key), 1 if on else 0):
        raise failure("bridge_cluster_set")


def get_bridge_cluster_nodes(key=None):
    """Reads nodes of clusters.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: an instance key, at most 63 bytes; None: no key is sent

    Returns:
        the list
    """
    out = _BridgeClusterNodeList()
    if _GetBridgeClusterNodes(c.maybe_text(key), byref(out)):
        raise failure("get_bridge_cluster_nodes")
    read = out.contents
    return RecordList(BridgeClusterNodeInfo, read.records, range(read.count), BRIDGE_CLUSTER_NODES_MAX)


def bridge_cluster_node_set(key, node, *, mac=None, on):
    """Sets a node of a cluster, or removes it.

    Args:
        key: the cluster's key, at most 63 bytes
        node: the node's name, at most 63 bytes
        mac: the MAC address; may be None if on is false
        on: True: sets; False: removes

    Raises:
        ValueError: mac is None though on is true
    """
    if mac is None and on:
        raise ValueError("mac is needed if on is true")
    if _BridgeClusterNodeSet(c.text(key), c.text(node), c.maybe_mac(mac), 1 if on else 0):
        raise failure("bridge_cluster_node_set")


def bridge_local_transport_node_set(text1, text2, text3, *, value=0, block, on):
    """Sets the local transport node.

    Args:
        text1: at most 63 bytes
        text2: at most 63 bytes
        text3: at most 15 bytes
        value: passed on as it stands
        block: LOCAL_TRANSPORT_BLOCK_SIZE bytes, sent as they stand: LOCAL_TRANSPORT_BLOCK_SIZE bytes
        on: chooses between two commands of the module, which are sent the same values
    """
    if _BridgeLocalTransportNodeSet(
        c.text(text1),
        c.text(text2),
        c.text(text3),
        c.u32(value),
        c.block(block, LOCAL_TRANSPORT_BLOCK_SIZE),
        1 if on else 0,
    ):
        raise failure("bridge_local_transport_node_set")


def bridge_get_local_transport_node(selector):
    """Reads the local transport node.

    Args:
        selector: passed on as it stands

    Returns:
        LOCAL_TRANSPORT_NODE_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(LOCAL_TRANSPORT_NODE_SIZE)
    if _BridgeGetLocalTransportNode(buffer, c.u32(selector)):
        raise failure("bridge_get_local_transport_node")
    return buffer.raw


def flush_bridge_cluster(*, key=None, on):
    """Flushes a cluster.

    Args:
        key: its key, at most 63 bytes; None: no key is sent
        on: chooses between two commands of the module
    """
    if _FlushBridgeCluster(c.maybe_text(key), 1 if on else 0):
        raise failure("flush_bridge_cluster")


def set_bridge_cluster_debug(*, key=None, level):
    """Sets the debug level of a cluster.

    Args:
        key: its key, at most 63 bytes; None: no key is sent
        level: passed on as it stands
    """
    if _SetBridgeClusterDebug(c.maybe_text(key), c.u8(level)):
        raise failure("set_bridge_cluster_debug")


def bridge_cluster_bfd_ha_profile_set(key, flag, *, value1=0, value2=0):
    """Sets the BFD high-availability profile of a cluster.

    Args:
        key: its key, at most 63 bytes
        flag: passed on as it stands
        value1: passed on as it stands
        value2: passed on as it stands
    """
    if _BridgeClusterBfdHAProfileSet(c.text(key), c.u8(flag), c.u32(value1), c.u32(value2)):
        raise failure("bridge_cluster_bfd_ha_profile_set")


# Bridge endpoints

_AddBridgeEndpoint = function(
    "LUMOZEPH_AddBridgeEndpoint",
    c_char_p,
    c_char_p,
    c_char_p,
    c_uint32,
    c_uint32,
    c_char_p,
    c_uint16,
    c_uint8,
    c_char_p,
    c_uint8,
)
_DelBridgeEndpoint = function("LUMOZEPH_DelBridgeEndpoint", c_char_p, c_char_p)
_FlushBridgeEndpoint = function("LUMOZEPH_FlushBridgeEndpoint", c_int8)
_GetBridgeEndpoints = function("LUMOZEPH_GetBridgeEndpoints", c_char_p, c_void_p)
_GetBeStats = function("LUMOZEPH_GetBeStats", c_char_p, c_void_p)
_GetBeStatus = function("LUMOZEPH_GetBeStatus", c_char_p, c_void_p)
_GetBeAll = function("LUMOZEPH_GetBeAll", c_void_p, c_uint32, c_void_p)


class _BridgeEndpointList(Owner):
    __slots__ = ()
    _type_ = header(BridgeEndpointInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeEndpoints")


def add_bridge_endpoint(key, text1, name, *, value1=0, value2=0, text2, value3=0, flag1, text3, flag2):
    """Adds a bridge endpoint.

    Args:
        key: its key, at most 63 bytes
        text1: at most 63 bytes
        name: its name, at most 63 bytes
        value1: passed on as it stands
        value2: passed on as it stands
        text2: at most 63 bytes
        value3: passed on as it stands
        flag1: passed on as it stands
        text3: at most 63 bytes
        flag2: passed on as it stands
    """
    if _AddBridgeEndpoint(
        c.text(key),
        c.text(text1),
        c.text(name),
        c.u32(value1),
        c.u32(value2),
        c.text(text2),
        c.u16(value3),
        c.u8(flag1),
        c.text(text3),
        c.u8(flag2),
    ):
        raise failure("add_bridge_endpoint")


def del_bridge_endpoint(key, name):
    """Deletes a bridge endpoint.

    Args:
        key: its key, at most 63 bytes
        name: its name, at most 63 bytes
    """
    if _DelBridgeEndpoint(c.text(key), c.text(name)):
        raise failure("del_bridge_endpoint")


def flush_bridge_endpoint(on):
    """Flushes the bridge endpoints.

    Args:
        on: chooses between two commands of the module
    """
    if _FlushBridgeEndpoint(1 if on else 0):
        raise failure("flush_bridge_endpoint")


def get_bridge_endpoints(key=None):
    """Reads bridge endpoints.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: an instance key, at most 63 bytes; None: no key is sent

    Returns:
        the list
    """
    out = _BridgeEndpointList()
    if _GetBridgeEndpoints(c.maybe_text(key), byref(out)):
        raise failure("get_bridge_endpoints")
    read = out.contents
    return RecordList(BridgeEndpointInfo, read.records, range(read.count), BRIDGE_ENDPOINTS_MAX)


def get_be_stats(key):
    """Reads the statistics of a bridge endpoint.

    Args:
        key: its key, at most 63 bytes

    Returns:
        BE_STATS_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(BE_STATS_SIZE)
    if _GetBeStats(c.text(key), buffer):
        raise failure("get_be_stats")
    return buffer.raw


def get_be_status(key):
    """Reads the status of a bridge endpoint.

    Args:
        key: its key, at most 63 bytes

    Returns:
        BE_STATUS_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(BE_STATUS_SIZE)
    if _GetBeStatus(c.text(key), buffer):
        raise failure("get_be_status")
    return buffer.raw


def get_be_all(size):
    """Reads all bridge endpoints as the module lays them out.

    Args:
        size: room for entries, in bytes

    Returns:
        the entries that lie in so many bytes, and how many the module reports
    """
    room = c.u32(size)
    buffer = create_string_buffer(room)
    count = c_uint32()
    if _GetBeAll(buffer, c.u32(size), byref(count)):
        raise failure("get_be_all")
    there = range(min(room // BE_SIZE, count.value))
    return Entries(buffer, addressof(buffer), BE_SIZE, there, count.value)


# BFD sessions and port connections

_GetBridgeBFDSessions = function("LUMOZEPH_GetBridgeBFDSessions", c_char_p, c_void_p)
_PlumbBFDPortConnection = function("LUMOZEPH_PlumbBFDPortConnection", c_char_p, c_char_p, c_char_p)
_UnPlumbBFDPortConnection = function("LUMOZEPH_UnPlumbBFDPortConnection", c_char_p)
_GetBFDPortConnections = function("LUMOZEPH_GetBFDPortConnections", c_void_p)


class _BridgeBfdSessionList(Owner):
    __slots__ = ()
    _type_ = header(BridgeBfdSessionInfo, c_int32)
    free = release("LUMOZEPH_ReleaseBridgeBFDSessions")


def get_bridge_bfd_sessions(key=None):
    """Reads BFD sessions.

    If the device call fails, 16 bytes stay allocated.

    Args:
        key: an instance key, at most 63 bytes; None: no key is sent

    Returns:
        the list
    """
    out = _BridgeBfdSessionList()
    if _GetBridgeBFDSessions(c.maybe_text(key), byref(out)):
        raise failure("get_bridge_bfd_sessions")
    read = out.contents
    return RecordList(BridgeBfdSessionInfo, read.records, range(read.count), BRIDGE_BFD_SESSIONS_MAX)


def plumb_bfd_port_connection(port, text, mac=None):
    """Plumbs a port connection for BFD.

    Args:
        port: the port's name, at most 63 bytes
        text: at most 15 bytes
        mac: the MAC address; None: none, which sends six zero bytes
    """
    if _PlumbBFDPortConnection(c.text(port), c.text(text), c.maybe_mac(mac)):
        raise failure("plumb_bfd_port_connection")


def unplumb_bfd_port_connection(port):
    """Unplumbs a port connection for BFD.

    Args:
        port: the port's name, at most 63 bytes
    """
    if _UnPlumbBFDPortConnection(c.text(port)):
        raise failure("unplumb_bfd_port_connection")


def get_bfd_port_connections():
    """Reads the port connections for BFD.

    Returns:
        BFD_PORT_CONNECTIONS_SIZE bytes; those that the module has not written are zero
    """
    buffer = create_string_buffer(BFD_PORT_CONNECTIONS_SIZE)
    if _GetBFDPortConnections(buffer):
        raise failure("get_bfd_port_connections")
    return buffer.raw


# Multicast domain and receivers

_ReleaseMRoutingDomainData = release("LUMOZEPH_ReleaseMRoutingDomainData")
_GetMRoutingDomain = function("LUMOZEPH_GetMRoutingDomain", c_char_p, c_void_p)
_GetMRoutingLocalRcvrs = function("LUMOZEPH_GetMRoutingLocalRcvrs", c_char_p, c_uint32, c_void_p)
_AddMRoutingLocalRcvrs = function("LUMOZEPH_AddMRoutingLocalRcvrs", c_char_p, c_uint32, c_char_p)
_DelMRoutingLocalRcvrs = function("LUMOZEPH_DelMRoutingLocalRcvrs", c_char_p, c_uint32, c_char_p)
_GetMRoutingRemoteRcvrs = function("LUMOZEPH_GetMRoutingRemoteRcvrs", c_char_p, c_uint32, c_void_p)
_AddMRoutingRemoteRcvrs = function(
    "LUMOZEPH_AddMRoutingRemoteRcvrs", c_char_p, c_uint32, c_uint32, c_char_p, c_uint32, c_uint32
)
_DelMRoutingRemoteRcvrs = function("LUMOZEPH_DelMRoutingRemoteRcvrs", c_char_p, c_uint32, c_uint32)


class _LocalRcvrList(Owner):
    __slots__ = ()
    _type_ = header(LocalRcvrInfo, c_int32)
    free = release("LUMOZEPH_ReleaseMRoutingLocalRcvrs")


class _VtepTable(TableOwner):
    __slots__ = ()
    _type_ = header(VtepEntry, c_uint32)
    free = release("LUMOZEPH_ReleaseVTEPTable")


def get_mrouting_domain(instance):
    """Reads an instance's multicast domain.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(McastDomainInfo)()
    if _GetMRoutingDomain(c.text(instance), byref(out)):
        raise failure("get_mrouting_domain")
    return taken(out, _ReleaseMRoutingDomainData)


def get_mrouting_local_rcvrs(instance, value):
    """Reads an instance's local receivers under a value.

    If the device call fails, 16 bytes stay allocated.

    Args:
        instance: its key, at most 63 bytes
        value: the value

    Returns:
        the list
    """
    out = _LocalRcvrList()
    if _GetMRoutingLocalRcvrs(c.text(instance), c.u32(value), byref(out)):
        raise failure("get_mrouting_local_rcvrs")
    read = out.contents
    return RecordList(LocalRcvrInfo, read.records, range(read.count), LOCAL_RCVRS_MAX)


def add_mrouting_local_rcvrs(instance, value, text=None):
    """Adds a local receiver.

    Args:
        instance: the instance's key, at most 63 bytes
        value: the value that the receiver is under
        text: at most 63 bytes; None: none
    """
    if _AddMRoutingLocalRcvrs(c.text(instance), c.u32(value), c.maybe_text(text)):
        raise failure("add_mrouting_local_rcvrs")


def del_mrouting_local_rcvrs(instance, value, text=None):
    """Deletes a local receiver.

    Args:
        instance: the instance's key, at most 63 bytes
        value: the value that the receiver is under
        text: at most 63 bytes; None: none
    """
    if _DelMRoutingLocalRcvrs(c.text(instance), c.u32(value), c.maybe_text(text)):
        raise failure("del_mrouting_local_rcvrs")


def get_mrouting_remote_rcvrs(instance, value):
    """Reads an instance's remote receivers under a value.

    Args:
        instance: its key, at most 63 bytes
        value: the value

    Returns:
        the table

    Raises:
        Error: EBADMSG: the reply has no count, or is shorter than its count and the entries that this announces: a
            length that is computed in 32 bits and compared as signed, so that of 2 GiB or more not every reply that is
            too short is found
        Error: EOVERFLOW: the entries that the count announces are 2 GiB or more, and neither EBADMSG nor ENOMEM has
            come first
    """
    set_errno(0)
    out = _VtepTable()
    if _GetMRoutingRemoteRcvrs(c.text(instance), c.u32(value), byref(out)):
        raise failure("get_mrouting_remote_rcvrs")
    read = out.contents
    return Records(VtepEntry, read.records, range(read.count))


def add_mrouting_remote_rcvrs(instance, value, key, hwAddr, *, value1=0, value2=0):
    """Adds a remote receiver.

    Args:
        instance: the instance's key, at most 63 bytes
        value: the value that the receiver is under
        key: the receiver's key
        hwAddr: the MAC address
        value1: passed on as it stands
        value2: passed on as it stands
    """
    if _AddMRoutingRemoteRcvrs(c.text(instance), c.u32(value), c.u32(key), c.mac(hwAddr), c.u32(value1), c.u32(value2)):
        raise failure("add_mrouting_remote_rcvrs")


def del_mrouting_remote_rcvrs(instance, value, key):
    """Deletes a remote receiver.

    Of the request, 704 bytes are sent as the stack held them.

    Args:
        instance: the instance's key, at most 63 bytes
        value: the value that the receiver is under
        key: the receiver's key
    """
    if _DelMRoutingRemoteRcvrs(c.text(instance), c.u32(value), c.u32(key)):
        raise failure("del_mrouting_remote_rcvrs")


# Multicast groups, replication and router addresses

_GetMRoutingAllMcastGroups = function("LUMOZEPH_GetMRoutingAllMcastGroups", c_char_p, c_void_p)
_GetMRoutingReplicationIP = function("LUMOZEPH_GetMRoutingReplicationIP", c_char_p, c_uint32, c_void_p)
_GetMRoutingMRouterIP = function("LUMOZEPH_GetMRoutingMRouterIP", c_char_p, c_uint32, c_void_p)
_AddMRoutingMRouter = function("LUMOZEPH_AddMRoutingMRouter", c_char_p, c_uint32)
_DelMRoutingMRouter = function("LUMOZEPH_DelMRoutingMRouter", c_char_p)


class _McastGroupList(Owner):
    __slots__ = ()
    _type_ = header(McastGroupInfo, c_int32)
    free = release("LUMOZEPH_ReleaseMRoutingMcastGroups")


def get_mrouting_all_mcast_groups(instance):
    """Reads an instance's multicast groups.

    A fragment at the end of the module's reply is no error: it counts as a group, whose missing bytes are undefined. If
    the device call fails, 16 bytes stay allocated. EBADMSG can only be the module's own answer.

    Args:
        instance: its key, at most 63 bytes

    Returns:
        the list
    """
    out = _McastGroupList()
    if _GetMRoutingAllMcastGroups(c.text(instance), byref(out)):
        raise failure("get_mrouting_all_mcast_groups")
    read = out.contents
    return RecordList(McastGroupInfo, read.records, range(read.count), MCAST_GROUPS_MAX)


def get_mrouting_replication_ip(instance, value):
    """Reads an instance's replication address under a value.

    Args:
        instance: its key, at most 63 bytes
        value: the value

    Returns:
        the address
    """
    out = c_uint32.__ctype_be__()
    if _GetMRoutingReplicationIP(c.text(instance), c.u32(value), byref(out)):
        raise failure("get_mrouting_replication_ip")
    return IPv4Address(out.value)


def get_mrouting_mrouter_ip(instance, value):
    """Reads the address of an instance's multicast router under a value.

    Args:
        instance: its key, at most 63 bytes
        value: the value

    Returns:
        the address
    """
    out = c_uint32.__ctype_be__()
    if _GetMRoutingMRouterIP(c.text(instance), c.u32(value), byref(out)):
        raise failure("get_mrouting_mrouter_ip")
    return IPv4Address(out.value)


def add_mrouting_mrouter(instance, value):
    """Adds a multicast router to an instance.

    Args:
        instance: its key, at most 63 bytes
        value: passed on as it stands
    """
    if _AddMRoutingMRouter(c.text(instance), c.u32(value)):
        raise failure("add_mrouting_mrouter")


def del_mrouting_mrouter(instance):
    """Removes an instance's multicast router.

    Args:
        instance: its key, at most 63 bytes
    """
    if _DelMRoutingMRouter(c.text(instance)):
        raise failure("del_mrouting_mrouter")


# Software receive-side scaling

_free = release("free")
_SoftRSSGetStats = function("LUMOZEPH_SoftRSSGetStats", c_char_p, c_void_p)
_SoftRSSStatsReset = function("LUMOZEPH_SoftRSSStatsReset", c_char_p)
_SoftRSSGetTunables = function("LUMOZEPH_SoftRSSGetTunables", c_char_p, c_void_p)
_SoftRSSSetTunables = function("LUMOZEPH_SoftRSSSetTunables", c_char_p, POINTER(RssTunables))
_SoftRSSGetIndTable = function("LUMOZEPH_SoftRSSGetIndTable", c_char_p, c_void_p)
_SoftRSSTableSet = function("LUMOZEPH_SoftRSSTableSet", c_char_p, POINTER(RssIndTable))


def soft_rss_get_stats(target):
    """Reads a target's statistics.

    A reply that is too short is no error. EBADMSG can only be the module's own answer.

    Args:
        target: its name, at most 63 bytes

    Returns:
        the record
    """
    out = POINTER(RssStats)()
    if _SoftRSSGetStats(c.text(target), byref(out)):
        raise failure("soft_rss_get_stats")
    return taken(out, _free)


def soft_rss_stats_reset(target):
    """Resets a target's statistics.

    Args:
        target: its name, at most 63 bytes
    """
    if _SoftRSSStatsReset(c.text(target)):
        raise failure("soft_rss_stats_reset")


def soft_rss_get_tunables(target):
    """Reads a target's tunables.

    Args:
        target: its name, at most 63 bytes

    Returns:
        the value

    Raises:
        Error: ENOMEM: the library could not allocate memory for the module's reply
    """
    out = RssTunables()
    if _SoftRSSGetTunables(c.text(target), byref(out)):
        raise failure("soft_rss_get_tunables")
    return out


def soft_rss_set_tunables(target, tunables):
    """Sets a target's tunables: value1 only.

    Args:
        target: its name, at most 63 bytes
        tunables: value1 of which is sent
    """
    if _SoftRSSSetTunables(c.text(target), tunables):
        raise failure("soft_rss_set_tunables")


def soft_rss_get_ind_table(target):
    """Reads a target's indirection table.

    Args:
        target: its name, at most 63 bytes

    Returns:
        RSS_IND_TABLE_SIZE bytes; those that the module has not written are zero

    Raises:
        Error: ENOMEM: the library could not allocate memory for the module's reply
    """
    buffer = create_string_buffer(RSS_IND_TABLE_SIZE)
    if _SoftRSSGetIndTable(c.text(target), buffer):
        raise failure("soft_rss_get_ind_table")
    return buffer.raw


def soft_rss_table_set(target, table):
    """Sets a target's indirection table.

    The size is sent as it stands, also a negative one.

    Args:
        target: its name, at most 63 bytes
        table: the table

    Raises:
        ValueError: table.size is larger than 128
    """
    if table.size > 128:
        raise ValueError("table.size is larger than 128")
    if _SoftRSSTableSet(c.text(target), table):
        raise failure("soft_rss_table_set")
