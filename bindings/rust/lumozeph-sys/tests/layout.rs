//! Records and lists lie as the description of the interface says.
//!
//! Made from `api/lumozeph.json` by `scripts/bindings`: change that, or the templates.

use lumozeph_sys::*;
use std::mem::{align_of, size_of, MaybeUninit};
use std::ptr::addr_of;

/// Where a field begins, and how many bytes it has.
macro_rules! place {
    ($record:ty, $field:ident) => {
        place_in(|record: *const $record| unsafe { addr_of!((*record).$field) })
    };
}

fn place_in<Record, Field>(field_of: impl Fn(*const Record) -> *const Field) -> (usize, usize) {
    let record = MaybeUninit::<Record>::uninit();
    (field_of(record.as_ptr()) as usize - record.as_ptr() as usize, size_of::<Field>())
}

#[test]
fn layout_of_envelope() {
    assert_eq!(size_of::<LumoEnvelope>(), 24);
    assert_eq!(align_of::<LumoEnvelope>(), 1);
    assert_eq!(place!(LumoEnvelope, inLen), (0, 4));
    assert_eq!(place!(LumoEnvelope, inPtr), (4, 8));
    assert_eq!(place!(LumoEnvelope, outLen), (12, 4));
    assert_eq!(place!(LumoEnvelope, outPtr), (16, 8));
}

#[test]
fn layout_of_instance_info() {
    assert_eq!(size_of::<LumoInstanceInfo>(), 256);
    assert_eq!(align_of::<LumoInstanceInfo>(), 1);
    assert_eq!(place!(LumoInstanceInfo, instanceKey), (0, 64));
    assert_eq!(place!(LumoInstanceInfo, value1), (64, 4));
    assert_eq!(place!(LumoInstanceInfo, value2), (68, 4));
    assert_eq!(place!(LumoInstanceInfo, value3), (72, 2));
    assert_eq!(place!(LumoInstanceInfo, value4), (74, 2));
    assert_eq!(place!(LumoInstanceInfo, value5), (76, 2));
    assert_eq!(place!(LumoInstanceInfo, value6), (78, 4));
    assert_eq!(place!(LumoInstanceInfo, value7), (82, 4));
    assert_eq!(place!(LumoInstanceInfo, value8), (86, 4));
    assert_eq!(place!(LumoInstanceInfo, value9), (90, 1));
    assert_eq!(place!(LumoInstanceInfo, value10), (91, 2));
    assert_eq!(place!(LumoInstanceInfo, uncopied), (93, 2));
    assert_eq!(place!(LumoInstanceInfo, value11), (95, 1));
    assert_eq!(place!(LumoInstanceInfo, value12), (96, 1));
    assert_eq!(place!(LumoInstanceInfo, bytes1), (97, 13));
    assert_eq!(place!(LumoInstanceInfo, words), (110, 16));
    assert_eq!(place!(LumoInstanceInfo, value13), (126, 4));
    assert_eq!(place!(LumoInstanceInfo, value14), (130, 2));
    assert_eq!(place!(LumoInstanceInfo, value15), (132, 1));
    assert_eq!(place!(LumoInstanceInfo, value16), (133, 2));
    assert_eq!(place!(LumoInstanceInfo, value17), (135, 1));
    assert_eq!(place!(LumoInstanceInfo, text2), (136, 64));
    assert_eq!(place!(LumoInstanceInfo, value18), (200, 2));
    assert_eq!(place!(LumoInstanceInfo, bytes2), (202, 32));
    assert_eq!(place!(LumoInstanceInfo, value19), (234, 8));
    assert_eq!(place!(LumoInstanceInfo, value20), (242, 4));
    assert_eq!(place!(LumoInstanceInfo, value21), (246, 1));
    assert_eq!(place!(LumoInstanceInfo, value22), (247, 4));
    assert_eq!(place!(LumoInstanceInfo, value23), (251, 4));
    assert_eq!(place!(LumoInstanceInfo, value24), (255, 1));
}

#[test]
fn layout_of_instance_list() {
    assert_eq!(size_of::<LumoInstanceList>(), 16);
    assert_eq!(align_of::<LumoInstanceList>(), 8);
    assert_eq!(place!(LumoInstanceList, count), (0, 4));
    assert_eq!(place!(LumoInstanceList, records), (8, 8));
}

#[test]
fn layout_of_stats() {
    assert_eq!(size_of::<LumoStats>(), 804);
    assert_eq!(align_of::<LumoStats>(), 1);
    assert_eq!(place!(LumoStats, statsKind), (0, 4));
    assert_eq!(place!(LumoStats, counters), (4, 800));
}

#[test]
fn layout_of_cp_sync_state_entry() {
    assert_eq!(size_of::<LumoCPSyncStateEntry>(), 284);
    assert_eq!(align_of::<LumoCPSyncStateEntry>(), 1);
    assert_eq!(place!(LumoCPSyncStateEntry, value1), (0, 8));
    assert_eq!(place!(LumoCPSyncStateEntry, value2), (8, 4));
    assert_eq!(place!(LumoCPSyncStateEntry, value3), (12, 4));
    assert_eq!(place!(LumoCPSyncStateEntry, value4), (16, 4));
    assert_eq!(place!(LumoCPSyncStateEntry, value5), (20, 4));
    assert_eq!(place!(LumoCPSyncStateEntry, value6), (24, 4));
    assert_eq!(place!(LumoCPSyncStateEntry, values7), (28, 64));
    assert_eq!(place!(LumoCPSyncStateEntry, uncopied), (92, 8));
    assert_eq!(place!(LumoCPSyncStateEntry, values8), (100, 184));
}

#[test]
fn layout_of_cp_sync_state() {
    assert_eq!(size_of::<LumoCPSyncState>(), 1420);
    assert_eq!(align_of::<LumoCPSyncState>(), 1);
    assert_eq!(place!(LumoCPSyncState, entries), (0, 1420));
}

#[test]
fn layout_of_lif_ipv6_addr() {
    assert_eq!(size_of::<LumoLifIpv6Addr>(), 24);
    assert_eq!(align_of::<LumoLifIpv6Addr>(), 1);
    assert_eq!(place!(LumoLifIpv6Addr, address), (0, 16));
    assert_eq!(place!(LumoLifIpv6Addr, prefixLen), (16, 4));
    assert_eq!(place!(LumoLifIpv6Addr, value), (20, 1));
    assert_eq!(place!(LumoLifIpv6Addr, uncopied), (21, 3));
}

#[test]
fn layout_of_dhcp_relay_server() {
    assert_eq!(size_of::<LumoDhcpRelayServer>(), 20);
    assert_eq!(align_of::<LumoDhcpRelayServer>(), 1);
    assert_eq!(place!(LumoDhcpRelayServer, address), (0, 16));
    assert_eq!(place!(LumoDhcpRelayServer, family), (16, 4));
}

#[test]
fn layout_of_dhcp_relay() {
    assert_eq!(size_of::<LumoDhcpRelay>(), 164);
    assert_eq!(align_of::<LumoDhcpRelay>(), 1);
    assert_eq!(place!(LumoDhcpRelay, relayCount), (0, 4));
    assert_eq!(place!(LumoDhcpRelay, servers), (4, 160));
}

#[test]
fn layout_of_lif_info() {
    assert_eq!(size_of::<LumoLifInfo>(), 576);
    assert_eq!(align_of::<LumoLifInfo>(), 1);
    assert_eq!(place!(LumoLifInfo, lifName), (0, 64));
    assert_eq!(place!(LumoLifInfo, lifSecondName), (64, 64));
    assert_eq!(place!(LumoLifInfo, ipAddr), (128, 4));
    assert_eq!(place!(LumoLifInfo, ipMask), (132, 4));
    assert_eq!(place!(LumoLifInfo, diIp), (136, 4));
    assert_eq!(place!(LumoLifInfo, lifMac), (140, 6));
    assert_eq!(place!(LumoLifInfo, lifValue1), (146, 4));
    assert_eq!(place!(LumoLifInfo, lifValue2), (150, 4));
    assert_eq!(place!(LumoLifInfo, lifValue3), (154, 4));
    assert_eq!(place!(LumoLifInfo, lifFlags), (158, 4));
    assert_eq!(place!(LumoLifInfo, dhcpRelay), (162, 164));
    assert_eq!(place!(LumoLifInfo, ipv6Addrs), (326, 240));
    assert_eq!(place!(LumoLifInfo, ipv6Count), (566, 4));
    assert_eq!(place!(LumoLifInfo, lifState1), (570, 1));
    assert_eq!(place!(LumoLifInfo, lifState2), (571, 1));
    assert_eq!(place!(LumoLifInfo, lifValue4), (572, 4));
}

#[test]
fn layout_of_lif_list() {
    assert_eq!(size_of::<LumoLifList>(), 16);
    assert_eq!(align_of::<LumoLifList>(), 8);
    assert_eq!(place!(LumoLifList, count), (0, 4));
    assert_eq!(place!(LumoLifList, records), (8, 8));
}

#[test]
fn layout_of_cmd_result() {
    assert_eq!(size_of::<LumoCmdResult>(), 88);
    assert_eq!(align_of::<LumoCmdResult>(), 1);
    assert_eq!(place!(LumoCmdResult, bytes), (0, 88));
}

#[test]
fn layout_of_next_hop() {
    assert_eq!(size_of::<LumoNextHop>(), 80);
    assert_eq!(align_of::<LumoNextHop>(), 1);
    assert_eq!(place!(LumoNextHop, uncopied), (0, 4));
    assert_eq!(place!(LumoNextHop, nextHopAddr), (4, 4));
    assert_eq!(place!(LumoNextHop, nextHopLifName), (8, 64));
    assert_eq!(place!(LumoNextHop, nextHopValue), (72, 8));
}

#[test]
fn layout_of_route_info() {
    assert_eq!(size_of::<LumoRouteInfo>(), 668);
    assert_eq!(align_of::<LumoRouteInfo>(), 1);
    assert_eq!(place!(LumoRouteInfo, routeDest), (0, 4));
    assert_eq!(place!(LumoRouteInfo, routeMask), (4, 4));
    assert_eq!(place!(LumoRouteInfo, routeValue1), (8, 4));
    assert_eq!(place!(LumoRouteInfo, routeValue2), (12, 4));
    assert_eq!(place!(LumoRouteInfo, routeFlags), (16, 1));
    assert_eq!(place!(LumoRouteInfo, nextHopCount), (17, 1));
    assert_eq!(place!(LumoRouteInfo, uncopied), (18, 2));
    assert_eq!(place!(LumoRouteInfo, routeValue3), (20, 8));
    assert_eq!(place!(LumoRouteInfo, nextHops), (28, 640));
}

#[test]
fn layout_of_route_list() {
    assert_eq!(size_of::<LumoRouteList>(), 16);
    assert_eq!(align_of::<LumoRouteList>(), 8);
    assert_eq!(place!(LumoRouteList, count), (0, 4));
    assert_eq!(place!(LumoRouteList, records), (8, 8));
}

#[test]
fn layout_of_policy_info() {
    assert_eq!(size_of::<LumoPolicyInfo>(), 28);
    assert_eq!(align_of::<LumoPolicyInfo>(), 1);
    assert_eq!(place!(LumoPolicyInfo, value1), (0, 4));
    assert_eq!(place!(LumoPolicyInfo, value2), (4, 4));
    assert_eq!(place!(LumoPolicyInfo, value3), (8, 4));
    assert_eq!(place!(LumoPolicyInfo, value4), (12, 4));
    assert_eq!(place!(LumoPolicyInfo, value5), (16, 4));
    assert_eq!(place!(LumoPolicyInfo, value6), (20, 8));
}

#[test]
fn layout_of_policy_list() {
    assert_eq!(size_of::<LumoPolicyList>(), 16);
    assert_eq!(align_of::<LumoPolicyList>(), 8);
    assert_eq!(place!(LumoPolicyList, count), (0, 4));
    assert_eq!(place!(LumoPolicyList, records), (8, 8));
}

#[test]
fn layout_of_policy_table_info() {
    assert_eq!(size_of::<LumoPolicyTableInfo>(), 72);
    assert_eq!(align_of::<LumoPolicyTableInfo>(), 1);
    assert_eq!(place!(LumoPolicyTableInfo, policyTableId), (0, 4));
    assert_eq!(place!(LumoPolicyTableInfo, policyTableName), (4, 64));
    assert_eq!(place!(LumoPolicyTableInfo, value1), (68, 4));
}

#[test]
fn layout_of_policy_table_list() {
    assert_eq!(size_of::<LumoPolicyTableList>(), 16);
    assert_eq!(align_of::<LumoPolicyTableList>(), 8);
    assert_eq!(place!(LumoPolicyTableList, count), (0, 4));
    assert_eq!(place!(LumoPolicyTableList, records), (8, 8));
}

#[test]
fn layout_of_policy_table_ref_entry() {
    assert_eq!(size_of::<LumoPolicyTableRefEntry>(), 24);
    assert_eq!(align_of::<LumoPolicyTableRefEntry>(), 1);
    assert_eq!(place!(LumoPolicyTableRefEntry, bytes), (0, 24));
}

#[test]
fn layout_of_lif_policy_table_ref() {
    assert_eq!(size_of::<LumoLifPolicyTableRef>(), 546);
    assert_eq!(align_of::<LumoLifPolicyTableRef>(), 1);
    assert_eq!(place!(LumoLifPolicyTableRef, text1), (0, 64));
    assert_eq!(place!(LumoLifPolicyTableRef, refCount), (64, 2));
    assert_eq!(place!(LumoLifPolicyTableRef, refs), (66, 480));
}

#[test]
fn layout_of_bridge_instance_info() {
    assert_eq!(size_of::<LumoBridgeInstanceInfo>(), 393);
    assert_eq!(align_of::<LumoBridgeInstanceInfo>(), 1);
    assert_eq!(place!(LumoBridgeInstanceInfo, value1), (0, 8));
    assert_eq!(place!(LumoBridgeInstanceInfo, value2), (8, 4));
    assert_eq!(place!(LumoBridgeInstanceInfo, name), (12, 64));
    assert_eq!(place!(LumoBridgeInstanceInfo, value3), (76, 4));
    assert_eq!(place!(LumoBridgeInstanceInfo, value4), (80, 4));
    assert_eq!(place!(LumoBridgeInstanceInfo, text1), (84, 128));
    assert_eq!(place!(LumoBridgeInstanceInfo, text2), (212, 81));
    assert_eq!(place!(LumoBridgeInstanceInfo, uncopied), (293, 12));
    assert_eq!(place!(LumoBridgeInstanceInfo, value5), (305, 4));
    assert_eq!(place!(LumoBridgeInstanceInfo, value6), (309, 4));
    assert_eq!(place!(LumoBridgeInstanceInfo, data), (313, 80));
}

#[test]
fn layout_of_bridge_instance_list() {
    assert_eq!(size_of::<LumoBridgeInstanceList>(), 16);
    assert_eq!(align_of::<LumoBridgeInstanceList>(), 8);
    assert_eq!(place!(LumoBridgeInstanceList, count), (0, 4));
    assert_eq!(place!(LumoBridgeInstanceList, records), (8, 8));
}

#[test]
fn layout_of_bridge_network_info() {
    assert_eq!(size_of::<LumoBridgeNetworkInfo>(), 133);
    assert_eq!(align_of::<LumoBridgeNetworkInfo>(), 1);
    assert_eq!(place!(LumoBridgeNetworkInfo, value1), (0, 8));
    assert_eq!(place!(LumoBridgeNetworkInfo, value2), (8, 4));
    assert_eq!(place!(LumoBridgeNetworkInfo, value3), (12, 2));
    assert_eq!(place!(LumoBridgeNetworkInfo, value4), (14, 4));
    assert_eq!(place!(LumoBridgeNetworkInfo, value5), (18, 2));
    assert_eq!(place!(LumoBridgeNetworkInfo, value6), (20, 4));
    assert_eq!(place!(LumoBridgeNetworkInfo, value7), (24, 4));
    assert_eq!(place!(LumoBridgeNetworkInfo, value8), (28, 1));
    assert_eq!(place!(LumoBridgeNetworkInfo, data), (29, 96));
    assert_eq!(place!(LumoBridgeNetworkInfo, uncopied), (125, 8));
}

#[test]
fn layout_of_bridge_network_list() {
    assert_eq!(size_of::<LumoBridgeNetworkList>(), 16);
    assert_eq!(align_of::<LumoBridgeNetworkList>(), 8);
    assert_eq!(place!(LumoBridgeNetworkList, count), (0, 4));
    assert_eq!(place!(LumoBridgeNetworkList, records), (8, 8));
}

#[test]
fn layout_of_bridge_port_info() {
    assert_eq!(size_of::<LumoBridgePortInfo>(), 146);
    assert_eq!(align_of::<LumoBridgePortInfo>(), 1);
    assert_eq!(place!(LumoBridgePortInfo, value1), (0, 8));
    assert_eq!(place!(LumoBridgePortInfo, value2), (8, 4));
    assert_eq!(place!(LumoBridgePortInfo, value3), (12, 2));
    assert_eq!(place!(LumoBridgePortInfo, value4), (14, 4));
    assert_eq!(place!(LumoBridgePortInfo, data), (18, 128));
}

#[test]
fn layout_of_bridge_port_list() {
    assert_eq!(size_of::<LumoBridgePortList>(), 16);
    assert_eq!(align_of::<LumoBridgePortList>(), 8);
    assert_eq!(place!(LumoBridgePortList, count), (0, 4));
    assert_eq!(place!(LumoBridgePortList, records), (8, 8));
}

#[test]
fn layout_of_bridge_fdb_entry() {
    assert_eq!(size_of::<LumoBridgeFdbEntry>(), 20);
    assert_eq!(align_of::<LumoBridgeFdbEntry>(), 1);
    assert_eq!(place!(LumoBridgeFdbEntry, mac), (0, 6));
    assert_eq!(place!(LumoBridgeFdbEntry, value1), (6, 2));
    assert_eq!(place!(LumoBridgeFdbEntry, value4), (12, 4));
    assert_eq!(place!(LumoBridgeFdbEntry, value5), (16, 4));
    let mut record = LumoBridgeFdbEntry::default();
    record.set_value2(u32::MAX);
    assert_eq!(record.value2(), 0xffffff);
    assert_eq!(bytes_set(&record), 8..11);
    record.set_value2(0);
    assert_eq!(bytes_set(&record), 0..0);
    record.set_value3(u32::MAX);
    assert_eq!(record.value3(), 0xff);
    assert_eq!(bytes_set(&record), 11..12);
    record.set_value3(0);
    assert_eq!(bytes_set(&record), 0..0);
}

#[test]
fn layout_of_bridge_fdb_list() {
    assert_eq!(size_of::<LumoBridgeFdbList>(), 16);
    assert_eq!(align_of::<LumoBridgeFdbList>(), 8);
    assert_eq!(place!(LumoBridgeFdbList, count), (0, 4));
    assert_eq!(place!(LumoBridgeFdbList, records), (8, 8));
}

#[test]
fn layout_of_bridge_cluster_info() {
    assert_eq!(size_of::<LumoBridgeClusterInfo>(), 183);
    assert_eq!(align_of::<LumoBridgeClusterInfo>(), 1);
    assert_eq!(place!(LumoBridgeClusterInfo, ident), (0, 64));
    assert_eq!(place!(LumoBridgeClusterInfo, uncopied), (64, 8));
    assert_eq!(place!(LumoBridgeClusterInfo, value1), (72, 4));
    assert_eq!(place!(LumoBridgeClusterInfo, block), (76, 96));
    assert_eq!(place!(LumoBridgeClusterInfo, value2), (172, 2));
    assert_eq!(place!(LumoBridgeClusterInfo, value3), (174, 2));
    assert_eq!(place!(LumoBridgeClusterInfo, value4), (176, 2));
    assert_eq!(place!(LumoBridgeClusterInfo, value5), (178, 1));
    assert_eq!(place!(LumoBridgeClusterInfo, value6), (179, 4));
}

#[test]
fn layout_of_bridge_cluster_list() {
    assert_eq!(size_of::<LumoBridgeClusterList>(), 16);
    assert_eq!(align_of::<LumoBridgeClusterList>(), 8);
    assert_eq!(place!(LumoBridgeClusterList, count), (0, 4));
    assert_eq!(place!(LumoBridgeClusterList, records), (8, 8));
}

#[test]
fn layout_of_bridge_cluster_node_info() {
    assert_eq!(size_of::<LumoBridgeClusterNodeInfo>(), 71);
    assert_eq!(align_of::<LumoBridgeClusterNodeInfo>(), 1);
    assert_eq!(place!(LumoBridgeClusterNodeInfo, ident), (0, 64));
    assert_eq!(place!(LumoBridgeClusterNodeInfo, value1), (64, 4));
    assert_eq!(place!(LumoBridgeClusterNodeInfo, value2), (68, 2));
    assert_eq!(place!(LumoBridgeClusterNodeInfo, value3), (70, 1));
}

#[test]
fn layout_of_bridge_cluster_node_list() {
    assert_eq!(size_of::<LumoBridgeClusterNodeList>(), 16);
    assert_eq!(align_of::<LumoBridgeClusterNodeList>(), 8);
    assert_eq!(place!(LumoBridgeClusterNodeList, count), (0, 4));
    assert_eq!(place!(LumoBridgeClusterNodeList, records), (8, 8));
}

#[test]
fn layout_of_bridge_endpoint_info() {
    assert_eq!(size_of::<LumoBridgeEndpointInfo>(), 235);
    assert_eq!(align_of::<LumoBridgeEndpointInfo>(), 1);
    assert_eq!(place!(LumoBridgeEndpointInfo, uncopied), (0, 64));
    assert_eq!(place!(LumoBridgeEndpointInfo, ident), (64, 64));
    assert_eq!(place!(LumoBridgeEndpointInfo, value1), (128, 2));
    assert_eq!(place!(LumoBridgeEndpointInfo, value2), (130, 1));
    assert_eq!(place!(LumoBridgeEndpointInfo, value3), (131, 4));
    assert_eq!(place!(LumoBridgeEndpointInfo, value4), (135, 4));
    assert_eq!(place!(LumoBridgeEndpointInfo, block), (139, 96));
}

#[test]
fn layout_of_bridge_endpoint_list() {
    assert_eq!(size_of::<LumoBridgeEndpointList>(), 16);
    assert_eq!(align_of::<LumoBridgeEndpointList>(), 8);
    assert_eq!(place!(LumoBridgeEndpointList, count), (0, 4));
    assert_eq!(place!(LumoBridgeEndpointList, records), (8, 8));
}

#[test]
fn layout_of_bridge_bfd_session_info() {
    assert_eq!(size_of::<LumoBridgeBfdSessionInfo>(), 39);
    assert_eq!(align_of::<LumoBridgeBfdSessionInfo>(), 1);
    assert_eq!(place!(LumoBridgeBfdSessionInfo, value1), (0, 2));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, addr1), (2, 6));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, addr2), (8, 6));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, value2), (14, 4));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, value3), (18, 1));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, value4), (19, 4));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, value5), (23, 8));
    assert_eq!(place!(LumoBridgeBfdSessionInfo, value6), (31, 8));
}

#[test]
fn layout_of_bridge_bfd_session_list() {
    assert_eq!(size_of::<LumoBridgeBfdSessionList>(), 16);
    assert_eq!(align_of::<LumoBridgeBfdSessionList>(), 8);
    assert_eq!(place!(LumoBridgeBfdSessionList, count), (0, 4));
    assert_eq!(place!(LumoBridgeBfdSessionList, records), (8, 8));
}

#[test]
fn layout_of_mcast_domain_info() {
    assert_eq!(size_of::<LumoMcastDomainInfo>(), 148);
    assert_eq!(align_of::<LumoMcastDomainInfo>(), 1);
    assert_eq!(place!(LumoMcastDomainInfo, text1), (0, 64));
    assert_eq!(place!(LumoMcastDomainInfo, text2), (64, 48));
    assert_eq!(place!(LumoMcastDomainInfo, value1), (112, 8));
    assert_eq!(place!(LumoMcastDomainInfo, value2), (120, 8));
    assert_eq!(place!(LumoMcastDomainInfo, value3), (128, 8));
    assert_eq!(place!(LumoMcastDomainInfo, value4), (136, 8));
    assert_eq!(place!(LumoMcastDomainInfo, value5), (144, 4));
}

#[test]
fn layout_of_local_rcvr_info() {
    assert_eq!(size_of::<LumoLocalRcvrInfo>(), 88);
    assert_eq!(align_of::<LumoLocalRcvrInfo>(), 1);
    assert_eq!(place!(LumoLocalRcvrInfo, text1), (0, 64));
    assert_eq!(place!(LumoLocalRcvrInfo, value1), (64, 4));
    assert_eq!(place!(LumoLocalRcvrInfo, value2), (68, 4));
    assert_eq!(place!(LumoLocalRcvrInfo, value3), (72, 8));
    assert_eq!(place!(LumoLocalRcvrInfo, value4), (80, 8));
}

#[test]
fn layout_of_local_rcvr_list() {
    assert_eq!(size_of::<LumoLocalRcvrList>(), 16);
    assert_eq!(align_of::<LumoLocalRcvrList>(), 8);
    assert_eq!(place!(LumoLocalRcvrList, count), (0, 4));
    assert_eq!(place!(LumoLocalRcvrList, records), (8, 8));
}

#[test]
fn layout_of_vtep_entry() {
    assert_eq!(size_of::<LumoVtepEntry>(), 68);
    assert_eq!(align_of::<LumoVtepEntry>(), 1);
    assert_eq!(place!(LumoVtepEntry, bytes), (0, 68));
}

#[test]
fn layout_of_vtep_table() {
    assert_eq!(size_of::<LumoVtepTable>(), 16);
    assert_eq!(align_of::<LumoVtepTable>(), 8);
    assert_eq!(place!(LumoVtepTable, count), (0, 4));
    assert_eq!(place!(LumoVtepTable, records), (8, 8));
}

#[test]
fn layout_of_mcast_group_info() {
    assert_eq!(size_of::<LumoMcastGroupInfo>(), 12);
    assert_eq!(align_of::<LumoMcastGroupInfo>(), 1);
    assert_eq!(place!(LumoMcastGroupInfo, value1), (0, 4));
    assert_eq!(place!(LumoMcastGroupInfo, value2), (4, 4));
    assert_eq!(place!(LumoMcastGroupInfo, value3), (8, 4));
}

#[test]
fn layout_of_mcast_group_list() {
    assert_eq!(size_of::<LumoMcastGroupList>(), 16);
    assert_eq!(align_of::<LumoMcastGroupList>(), 8);
    assert_eq!(place!(LumoMcastGroupList, count), (0, 4));
    assert_eq!(place!(LumoMcastGroupList, records), (8, 8));
}

#[test]
fn layout_of_rss_stats() {
    assert_eq!(size_of::<LumoRssStats>(), 804);
    assert_eq!(align_of::<LumoRssStats>(), 1);
    assert_eq!(place!(LumoRssStats, uncopied1), (0, 4));
    assert_eq!(place!(LumoRssStats, rssEntryCount), (4, 4));
    assert_eq!(place!(LumoRssStats, rssWord), (8, 64));
    assert_eq!(place!(LumoRssStats, uncopied2), (72, 4));
    assert_eq!(place!(LumoRssStats, rssCounter1), (76, 128));
    assert_eq!(place!(LumoRssStats, rssCounter2), (204, 128));
    assert_eq!(place!(LumoRssStats, rssCounter3), (332, 128));
    assert_eq!(place!(LumoRssStats, uncopied3), (460, 344));
}

#[test]
fn layout_of_rss_tunables() {
    assert_eq!(size_of::<LumoRssTunables>(), 12);
    assert_eq!(align_of::<LumoRssTunables>(), 1);
    assert_eq!(place!(LumoRssTunables, value1), (0, 8));
    assert_eq!(place!(LumoRssTunables, value2), (8, 4));
}

#[test]
fn layout_of_rss_ind_table() {
    assert_eq!(size_of::<LumoRssIndTable>(), 132);
    assert_eq!(align_of::<LumoRssIndTable>(), 1);
    assert_eq!(place!(LumoRssIndTable, entries), (0, 128));
    assert_eq!(place!(LumoRssIndTable, size), (128, 4));
}

/// The bytes that are not zero, all of which are 0xff.
fn bytes_set<Record: Copy>(record: &Record) -> std::ops::Range<usize> {
    let bytes = unsafe { std::slice::from_raw_parts((record as *const Record).cast::<u8>(), size_of::<Record>()) };
    let set: Vec<usize> = (0..bytes.len()).filter(|&at| bytes[at] != 0).collect();
    assert!(set.iter().all(|&at| bytes[at] == 0xff));
    assert!(set.windows(2).all(|pair| pair[0] + 1 == pair[1]));
    set.first().map_or(0..0, |&first| first..first + set.len())
}

#[test]
fn constants_have_the_values_of_the_header() {
    assert_eq!(LUMOZEPH_VERSION_MAJOR, 1);
    assert_eq!(LUMOZEPH_VERSION_MINOR, 0);
    assert_eq!(LUMOZEPH_VERSION_PATCH, 0);
    assert_eq!(LUMOZEPH_VERSION_NUMBER, 10000);
    assert_eq!(LUMOZEPH_REQUEST_SIZE, 776);
    assert_eq!(LUMOZEPH_KEY_SIZE, 64);
    assert_eq!(LUMOZEPH_MAC_SIZE, 6);
    assert_eq!(LUMOZEPH_INSTANCES_MAX, 1000);
    assert_eq!(LUMOZEPH_STATS_COUNTERS, 100);
    assert_eq!(LUMOZEPH_CP_SYNC_STATE_ENTRIES, 5);
    assert_eq!(LUMOZEPH_CONNECTIONS_SIZE, 131072);
    assert_eq!(LUMOZEPH_CONNECTION_SIZE, 152);
    assert_eq!(LUMOZEPH_LIFS_MAX, 10000);
    assert_eq!(LUMOZEPH_LIF_IPV6_ADDRS_MAX, 10);
    assert_eq!(LUMOZEPH_DHCP_RELAY_SERVERS_MAX, 8);
    assert_eq!(LUMOZEPH_ROUTES_MAX, 8000);
    assert_eq!(LUMOZEPH_NEXT_HOPS_MAX, 8);
    assert_eq!(LUMOZEPH_CMD_RESULT_SIZE, 88);
    assert_eq!(LUMOZEPH_ROUTE6_SIZE, 776);
    assert_eq!(LUMOZEPH_ARP_TABLE_SIZE, 7471104);
    assert_eq!(LUMOZEPH_POLICIES_MAX, 1000);
    assert_eq!(LUMOZEPH_POLICY_TABLES_MAX, 1000);
    assert_eq!(LUMOZEPH_POLICY_TABLE_REFS_MAX, 20);
    assert_eq!(LUMOZEPH_BRIDGES_MAX, 4096);
    assert_eq!(LUMOZEPH_BRIDGE_NETWORKS_MAX, 32768);
    assert_eq!(LUMOZEPH_BRIDGE_PORTS_MAX, 32768);
    assert_eq!(LUMOZEPH_BRIDGE_FDB_ENTRIES_MAX, 4096);
    assert_eq!(LUMOZEPH_FL_TABLE_SIZE, 426080);
    assert_eq!(LUMOZEPH_PMAC_TABLE_SIZE, 131072);
    assert_eq!(LUMOZEPH_BRIDGE_CLUSTERS_MAX, 10);
    assert_eq!(LUMOZEPH_BRIDGE_CLUSTER_NODES_MAX, 100);
    assert_eq!(LUMOZEPH_LOCALE_ID_SIZE, 16);
    assert_eq!(LUMOZEPH_LOCAL_TRANSPORT_NODE_SIZE, 2048);
    assert_eq!(LUMOZEPH_LOCAL_TRANSPORT_BLOCK_SIZE, 64);
    assert_eq!(LUMOZEPH_BRIDGE_ENDPOINTS_MAX, 28672);
    assert_eq!(LUMOZEPH_BE_STATS_SIZE, 146);
    assert_eq!(LUMOZEPH_BE_STATUS_SIZE, 229);
    assert_eq!(LUMOZEPH_BE_SIZE, 235);
    assert_eq!(LUMOZEPH_BRIDGE_BFD_SESSIONS_MAX, 2867200);
    assert_eq!(LUMOZEPH_BFD_PORT_CONNECTIONS_SIZE, 131072);
    assert_eq!(LUMOZEPH_LOCAL_RCVRS_MAX, 512);
    assert_eq!(LUMOZEPH_VTEPS_MAX, 2048);
    assert_eq!(LUMOZEPH_MCAST_GROUPS_MAX, 4096);
    assert_eq!(LUMOZEPH_RSS_ENTRIES_MAX, 16);
    assert_eq!(LUMOZEPH_RSS_IND_TABLE_SIZE, 128);
}

#[test]
fn the_crate_is_of_the_release_that_it_declares() {
    let version = format!("{LUMOZEPH_VERSION_MAJOR}.{LUMOZEPH_VERSION_MINOR}.{LUMOZEPH_VERSION_PATCH}");
    assert_eq!(env!("CARGO_PKG_VERSION"), version);
}

/// An exported function is one that this library has.
#[test]
fn the_library_has_every_function() {
    let functions = [
        LUMOZEPHIoctl as *const (),
        LUMOZEPHGetUuidOrName as *const (),
        LUMOZEPH_SetLumoInstance as *const (),
        LUMOZEPH_DelLumoInstance as *const (),
        LUMOZEPH_SetLumoInstanceTunables as *const (),
        LUMOZEPH_GetInstance as *const (),
        LUMOZEPH_GetInstances as *const (),
        LUMOZEPH_ReleaseInstance as *const (),
        LUMOZEPH_ReleaseInstances as *const (),
        LUMOZEPH_GetLogLevel as *const (),
        LUMOZEPH_SetLogLevel as *const (),
        LUMOZEPH_GetExtendedLogLevel as *const (),
        LUMOZEPH_SetExtendedLogLevel as *const (),
        LUMOZEPH_GetStatsLevel as *const (),
        LUMOZEPH_SetStatsLevel as *const (),
        LUMOZEPH_GetTxDispQueueSize as *const (),
        LUMOZEPH_SetTxDispQueueSize as *const (),
        LUMOZEPH_GetLumoInstanceCPStats as *const (),
        LUMOZEPH_ResetLumoInstanceCPStats as *const (),
        LUMOZEPH_GetLifStats as *const (),
        LUMOZEPH_GetLifStatsCached as *const (),
        LUMOZEPH_ResetLifStats as *const (),
        LUMOZEPH_GetLumoDiStats as *const (),
        LUMOZEPH_ResetLumoDiStats as *const (),
        LUMOZEPH_ReleaseStats as *const (),
        LUMOZEPH_CPActivate as *const (),
        LUMOZEPH_SetCPIp as *const (),
        LUMOZEPH_GetLumoInstanceCPSyncState as *const (),
        LUMOZEPH_SetLumoInstanceCPSyncState as *const (),
        LUMOZEPH_GetConnections as *const (),
        LUMOZEPH_GetConnection as *const (),
        LUMOZEPH_GetVMAC as *const (),
        LUMOZEPH_PlumbLumoConnection as *const (),
        LUMOZEPH_UnPlumbLumoConnection as *const (),
        LUMOZEPH_LUMODevCheckConnDeletion as *const (),
        LUMOZEPH_GenericFlush as *const (),
        LUMOZEPH_PreUnload as *const (),
        LUMOZEPH_PerformFullSyncSave as *const (),
        LUMOZEPH_GetFullSyncSaveStatus as *const (),
        LUMOZEPH_SetLif as *const (),
        LUMOZEPH_DelLif as *const (),
        LUMOZEPH_SetBridgeLif as *const (),
        LUMOZEPH_GetLif as *const (),
        LUMOZEPH_GetBridgeLif as *const (),
        LUMOZEPH_GetLifs as *const (),
        LUMOZEPH_GetBridgeLifs as *const (),
        LUMOZEPH_ReleaseLif as *const (),
        LUMOZEPH_ReleaseLifs as *const (),
        LUMOZEPH_SetLifIp as *const (),
        LUMOZEPH_DelLifIp as *const (),
        LUMOZEPH_SetLifDIIp as *const (),
        LUMOZEPH_SetLifVxlanMulticastIp as *const (),
        LUMOZEPH_SetLifVxlanCP as *const (),
        LUMOZEPH_DelLifVxlanCP as *const (),
        LUMOZEPH_EnableLif as *const (),
        LUMOZEPH_DisableLif as *const (),
        LUMOZEPH_SetLifMcastRouting as *const (),
        LUMOZEPH_RAMTUSetv6 as *const (),
        LUMOZEPH_SetLifIpv6 as *const (),
        LUMOZEPH_DelLifIpv6 as *const (),
        LUMOZEPH_SetMcastRouting as *const (),
        LUMOZEPH_ConfigureLifDhcpRelay as *const (),
        LUMOZEPH_SetRoute as *const (),
        LUMOZEPH_DelRoute as *const (),
        LUMOZEPH_GetRoutes as *const (),
        LUMOZEPH_GetResolveRoute as *const (),
        LUMOZEPH_ReleaseRoute as *const (),
        LUMOZEPH_ReleaseRoutes as *const (),
        LUMOZEPH_SetRoutev6 as *const (),
        LUMOZEPH_DelRoutev6 as *const (),
        LUMOZEPH_GetRoutesv6 as *const (),
        LUMOZEPH_PMTUTableCearv6 as *const (),
        LUMOZEPH_SetArp as *const (),
        LUMOZEPH_DelArp as *const (),
        LUMOZEPH_SetProxyArp as *const (),
        LUMOZEPH_DelProxyArp as *const (),
        LUMOZEPH_GetArps as *const (),
        LUMOZEPH_GetProxyArps as *const (),
        LUMOZEPH_ClearArp as *const (),
        LUMOZEPH_ClearArpv6 as *const (),
        LUMOZEPH_SetArpv6 as *const (),
        LUMOZEPH_DelArpv6 as *const (),
        LUMOZEPH_SetProxyArpv6 as *const (),
        LUMOZEPH_DelProxyArpv6 as *const (),
        LUMOZEPH_GetArpsv6 as *const (),
        LUMOZEPH_SetLifPolicy as *const (),
        LUMOZEPH_DelLifPolicy as *const (),
        LUMOZEPH_GetLifPolicies as *const (),
        LUMOZEPH_GetPolicy as *const (),
        LUMOZEPH_GetPolicyCount as *const (),
        LUMOZEPH_SetPolicy as *const (),
        LUMOZEPH_DelPolicy as *const (),
        LUMOZEPH_ReleaseAllPolicy as *const (),
        LUMOZEPH_GetPolicyTable as *const (),
        LUMOZEPH_SetPolicyTable as *const (),
        LUMOZEPH_DelPolicyTable as *const (),
        LUMOZEPH_ReleaseAllPolicyTable as *const (),
        LUMOZEPH_GetLifPolicyTableRef as *const (),
        LUMOZEPH_SetLifPolicyTableRef as *const (),
        LUMOZEPH_DelLifPolicyTableRef as *const (),
        LUMOZEPH_ReleaseLifPolicyTableRef as *const (),
        LUMOZEPH_GetBridgeInstance as *const (),
        LUMOZEPH_GetBridgeInstances as *const (),
        LUMOZEPHGetBridgeInstances as *const (),
        LUMOZEPH_ReleaseBridgeInstance as *const (),
        LUMOZEPH_ReleaseBridgeInstances as *const (),
        LUMOZEPH_BridgeAdd as *const (),
        LUMOZEPH_BridgeDel as *const (),
        LUMOZEPH_BridgeEnable as *const (),
        LUMOZEPH_BridgeDisable as *const (),
        LUMOZEPH_BridgeSetHAAdminState as *const (),
        LUMOZEPH_SetBridgeRepMode as *const (),
        LUMOZEPH_BridgeSetConfig as *const (),
        LUMOZEPH_GetBridgeNetworks as *const (),
        LUMOZEPHGetBridgeNetworks as *const (),
        LUMOZEPH_GetBridgePorts as *const (),
        LUMOZEPHGetBridgePorts as *const (),
        LUMOZEPH_ReleaseBridgeNetwork as *const (),
        LUMOZEPH_ReleaseBridgeNetworks as *const (),
        LUMOZEPH_ReleaseBridgePorts as *const (),
        LUMOZEPH_GetBridgeFdbEntries as *const (),
        LUMOZEPHGetBridgeFdbEntries as *const (),
        LUMOZEPH_ReleaseBridgeFdbEntries as *const (),
        LUMOZEPH_BridgeSetFdbEntry as *const (),
        LUMOZEPH_BridgeClearFdbTable as *const (),
        LUMOZEPH_DumpFLTable as *const (),
        LUMOZEPH_GetPmac as *const (),
        LUMOZEPH_AddPmac as *const (),
        LUMOZEPH_DelPmac as *const (),
        LUMOZEPH_GetLocaleId as *const (),
        LUMOZEPH_GetBridgeClusters as *const (),
        LUMOZEPHGetBridgeClusters as *const (),
        LUMOZEPH_ReleaseBridgeClusters as *const (),
        LUMOZEPH_BridgeClusterSet as *const (),
        LUMOZEPH_GetBridgeClusterNodes as *const (),
        LUMOZEPHGetBridgeClusterNodes as *const (),
        LUMOZEPH_ReleaseBridgeClusterNodes as *const (),
        LUMOZEPH_BridgeClusterNodeSet as *const (),
        LUMOZEPH_BridgeLocalTransportNodeSet as *const (),
        LUMOZEPH_BridgeGetLocalTransportNode as *const (),
        LUMOZEPH_FlushBridgeCluster as *const (),
        LUMOZEPH_SetBridgeClusterDebug as *const (),
        LUMOZEPH_BridgeClusterBfdHAProfileSet as *const (),
        LUMOZEPH_AddBridgeEndpoint as *const (),
        LUMOZEPH_DelBridgeEndpoint as *const (),
        LUMOZEPH_FlushBridgeEndpoint as *const (),
        LUMOZEPH_GetBridgeEndpoints as *const (),
        LUMOZEPHGetBridgeEndpoints as *const (),
        LUMOZEPH_ReleaseBridgeEndpoints as *const (),
        LUMOZEPH_GetBeStats as *const (),
        LUMOZEPH_GetBeStatus as *const (),
        LUMOZEPH_GetBeAll as *const (),
        LUMOZEPH_GetBridgeBFDSessions as *const (),
        LUMOZEPHGetBridgeBFDSessions as *const (),
        LUMOZEPH_ReleaseBridgeBFDSessions as *const (),
        LUMOZEPH_PlumbBFDPortConnection as *const (),
        LUMOZEPH_UnPlumbBFDPortConnection as *const (),
        LUMOZEPH_GetBFDPortConnections as *const (),
        LUMOZEPH_GetMRoutingDomain as *const (),
        LUMOZEPH_ReleaseMRoutingDomainData as *const (),
        LUMOZEPH_GetMRoutingLocalRcvrs as *const (),
        LUMOZEPH_AddMRoutingLocalRcvrs as *const (),
        LUMOZEPH_DelMRoutingLocalRcvrs as *const (),
        LUMOZEPH_ReleaseMRoutingLocalRcvrs as *const (),
        LUMOZEPH_GetMRoutingRemoteRcvrs as *const (),
        LUMOZEPH_AddMRoutingRemoteRcvrs as *const (),
        LUMOZEPH_DelMRoutingRemoteRcvrs as *const (),
        LUMOZEPH_ReleaseVTEPTable as *const (),
        LUMOZEPH_GetMRoutingAllMcastGroups as *const (),
        LUMOZEPH_ReleaseMRoutingMcastGroups as *const (),
        LUMOZEPH_GetMRoutingReplicationIP as *const (),
        LUMOZEPH_GetMRoutingMRouterIP as *const (),
        LUMOZEPH_AddMRoutingMRouter as *const (),
        LUMOZEPH_DelMRoutingMRouter as *const (),
        LUMOZEPH_SoftRSSGetStats as *const (),
        LUMOZEPH_SoftRSSStatsReset as *const (),
        LUMOZEPH_SoftRSSGetTunables as *const (),
        LUMOZEPH_SoftRSSSetTunables as *const (),
        LUMOZEPH_SoftRSSGetIndTable as *const (),
        LUMOZEPH_SoftRSSTableSet as *const (),
    ];
    assert_eq!(functions.len(), 180);
    assert!(functions.iter().all(|function| !function.is_null()));
}
