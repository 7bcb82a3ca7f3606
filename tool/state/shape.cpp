#include "tool/state/shape.h"

#include "tool/records.h"

#include <algorithm>

namespace tool {
namespace {

constexpr Field fixed(std::string_view member)
{
    return {member, member, Part::Fixed};
}

constexpr Field statistic(std::string_view member)
{
    return {member, member, Part::Statistic};
}

// Of the records that name a LIF's counters.
constexpr Field counter_fields[] {statistic("counters")};

constexpr Level lif_statistics {.name = "statistics",
    .brief = "counters",
    .read = "GetLifStats",
    .fields = counter_fields,
    .part = Part::Statistic};

constexpr Level instance_statistics {.name = "statistics",
    .brief = "counters of the control plane",
    .read = "GetLumoInstanceCPStats",
    .fields = counter_fields,
    .part = Part::Statistic};

constexpr Level host_statistics {.name = "statistics",
    .brief = "counters of all distributed instances",
    .read = "GetLumoDiStats",
    .fields = counter_fields,
    .part = Part::Statistic};

constexpr Field module_fields[] {
    {"logLevel", "GetLogLevel"},
    {"extendedLogLevel", "GetExtendedLogLevel"},
    {"statsLevel", "GetStatsLevel"},
    {"txDispQueueSize", "GetTxDispQueueSize"},
    {"localeId", "GetLocaleId", Part::Fixed},
    {"saves", "GetFullSyncSaveStatus", Part::Statistic},
    {"deletions", "LUMODevCheckConnDeletion", Part::Statistic},
};
constexpr Setter module_setters[] {
    {"SetLogLevel", "logLevel", "level=logLevel"},
    {"SetExtendedLogLevel", "extendedLogLevel", "level=extendedLogLevel"},
    {"SetStatsLevel", "statsLevel", "level=statsLevel"},
    {"SetTxDispQueueSize", "txDispQueueSize", "size=txDispQueueSize"},
};
constexpr Level module_level {
    .name = "module", .brief = "the module itself", .fields = module_fields, .setters = module_setters};

constexpr Field address6_fields[] {{"address", "address"}, {"prefixLen", "prefixLen"}, fixed("value")};
constexpr Level addresses6 {.name = "ipv6",
    .brief = "IPv6 addresses",
    .embedded = "ipv6Addrs",
    .key = "address",
    .fields = address6_fields,
    .creation = {"SetLifIpv6", "prefixLen"},
    .deletion = {"DelLifIpv6"},
    .rank = 6,
    .cap = 10};

constexpr Field reference_fields[] {{"entries", "refs"}};
constexpr Setter reference_setters[] {
    {"SetLifPolicyTableRef", "entries", "", "DelLifPolicyTableRef", ""},
};
constexpr Level references {.name = "policyTableRefs",
    .brief = "references to policy tables",
    .read = "GetLifPolicyTableRef",
    .fields = reference_fields,
    .setters = reference_setters,
    .rank = 7};

constexpr const Level* lif_levels[] {&addresses6, &references, &lif_statistics};

constexpr Field lif_fields[] {
    {"lif", "lifName"},
    {"auxName", "lifSecondName"},
    {"address", "ipAddr"},
    {"mask", "ipMask"},
    {"diAddress", "diIp"},
    {"mac", "lifMac"},
    {"paramA", "lifValue1"},
    {"paramB", "lifValue2"},
    {"paramC", "lifValue3"},
    {"up", "lifFlags", Part::Setting, 0, 1},
    {"vxlanControlPlane", "lifFlags", Part::Setting, 1, 1},
    {"mcastRouting", "lifFlags", Part::Setting, 2, 1},
    {"flag4", "lifFlags", Part::Fixed, 3, 1},
    {"dhcpServers", "dhcpRelay"},
    {"mtu", "lifValue4"},
    statistic("lifState1"),
    statistic("lifState2"),
};
constexpr Setter lif_setters[] {
    {"SetLifIp", "address mask", "", "DelLifIp", "address=was:address mask=was:mask"},
    {"SetLifDIIp", "diAddress", "address=diAddress"},
    {"SetLifVxlanCP", "vxlanControlPlane", "", "DelLifVxlanCP"},
    {"SetLifMcastRouting", "mcastRouting", "on=1", "SetLifMcastRouting", "on=0"},
    {"RAMTUSetv6", "mtu"},
    // The library relays to no servers: it only takes them away.
    {"", "dhcpServers", "", "ConfigureLifDhcpRelay"},
};
constexpr Level lifs {.name = "lifs",
    .brief = "routed LIFs",
    .read = "GetLifs",
    .key = "lif",
    .fields = lif_fields,
    .levels = lif_levels,
    .creation = {"SetLif", "auxName address mask diAddress mac paramA paramB paramC"},
    .deletion = {"DelLif"},
    .setters = lif_setters,
    .rank = 5};
constexpr Level bridge_lifs {.name = "bridgeLifs",
    .brief = "LIFs of bridges",
    .read = "GetBridgeLifs",
    .key = "lif",
    .fields = lif_fields,
    .levels = lif_levels,
    .creation = {"SetBridgeLif", "auxName diAddress paramA paramB", "diValue=diAddress add=1"},
    .deletion = {"SetBridgeLif", "", "add=0"},
    .setters = lif_setters,
    .rank = 5};

constexpr Field next_hop_fields[] {
    {"gateway", "nextHopAddr"},
    {"lif", "nextHopLifName"},
    fixed("nextHopValue"),
};
constexpr Level next_hops {.name = "nextHops",
    .brief = "next hops, by gateway and LIF",
    .embedded = "nextHops",
    .key = "gateway lif",
    .fields = next_hop_fields,
    .creation = {"SetRoute"},
    .deletion = {"DelRoute"},
    .rank = 8,
    .cap = 8};
constexpr const Level* route_levels[] {&next_hops};

constexpr Field route_fields[] {
    {"dest", "routeDest"},
    {"mask", "routeMask"},
    {"param", "routeValue1"},
    fixed("routeValue2"),
    fixed("routeFlags"),
    fixed("routeValue3"),
};
constexpr std::uint64_t route_to_a_network_of_a_lif = 2;
constexpr Level routes {.name = "routes",
    .brief = "IPv4 routes; the networks of LIFs are none",
    .read = "GetRoutes",
    .selection = {"routeFlags", route_to_a_network_of_a_lif, 0},
    .key = "dest/mask",
    .fields = route_fields,
    .levels = route_levels,
    .rank = 8};

constexpr Field route6_fields[] {
    {"dest", "dest"},
    {"prefixLen", "prefixLen"},
    {"gateway", "gateway"},
    {"lif", "lif"},
};
constexpr Level routes6 {.name = "routes6",
    .brief = "IPv6 routes, by destination, gateway and LIF; the networks of LIFs are none",
    .read = "GetRoutesv6",
    .key = "dest/prefixLen gateway lif",
    .fields = route6_fields,
    .creation = {"SetRoutev6"},
    .deletion = {"DelRoutev6"},
    .rank = 8,
    .derived = Derived::NetworksOfLifs};

constexpr Field neighbour_fields[] {{"address", "address"}, {"lif", "lif"}, {"mac", "mac"}};
constexpr Field proxy_fields[] {{"address", "address"}, {"lif", "lif"}};
constexpr Level arp {.name = "arp",
    .brief = "ARP entries, by address and LIF",
    .read = "GetArps",
    .key = "address lif",
    .fields = neighbour_fields,
    .creation = {"SetArp", "mac"},
    .deletion = {"DelArp"},
    .rank = 8};
constexpr Level proxy_arp {.name = "proxyArp",
    .brief = "proxy ARP entries, by address and LIF",
    .read = "GetProxyArps",
    .key = "address lif",
    .fields = proxy_fields,
    .creation = {"SetProxyArp"},
    .deletion = {"DelProxyArp"},
    .rank = 8};
constexpr Level neighbours6 {.name = "neighbours6",
    .brief = "IPv6 neighbours, by address and LIF",
    .read = "GetArpsv6",
    .selection = {"proxy", 1, 0},
    .key = "address lif",
    .fields = neighbour_fields,
    .creation = {"SetArpv6", "mac"},
    .deletion = {"DelArpv6"},
    .rank = 8};
constexpr Level proxy_neighbours6 {.name = "proxyNeighbours6",
    .brief = "IPv6 proxy entries, by address and LIF",
    .read = "GetArpsv6",
    .selection = {"proxy", 1, 1},
    .key = "address lif",
    .fields = proxy_fields,
    .creation = {"SetProxyArpv6"},
    .deletion = {"DelProxyArpv6"},
    .rank = 8};

constexpr Field lif_policy_fields[] {
    {"kind", "", Part::Fixed, 0, 4},
    fixed("routeDest"),
    fixed("routeMask"),
    {"gateway", "nextHops", Part::Fixed, 4, 4, Form::Ipv4},
    {"lif", "nextHops", Part::Fixed, 8, 64, Form::Text},
    {"param", "routeValue1", Part::Fixed},
    fixed("routeValue2"),
    fixed("routeFlags"),
    fixed("routeValue3"),
};
constexpr Level lif_policies {.name = "lifPolicies",
    .brief = "interface policies of the kinds 0 to 3, whose texts are not reported",
    .read = "GetLifPolicies",
    .alternatives = "kind=0 kind=1 kind=2 kind=3",
    .key = "kind routeDest/routeMask gateway lif",
    .fields = lif_policy_fields,
    .part = Part::Fixed};

constexpr Field domain_fields[] {
    {"name", "text1"},
    {"value1", "value1"},
    {"value2", "value2"},
    {"value3", "value3"},
    {"value4", "value4"},
    fixed("text2"),
    fixed("value5"),
};
constexpr Setter domain_setters[] {{"SetMcastRouting", "name value1 value2 value3 value4"}};
constexpr Level domain {.name = "mcastDomain",
    .brief = "multicast routing as a whole",
    .read = "GetMRoutingDomain",
    .fields = domain_fields,
    .setters = domain_setters,
    .rank = 8};

constexpr Field mcast_router_fields[] {{"address", "GetMRoutingMRouterIP"}};
constexpr Setter mcast_router_setters[] {{"AddMRoutingMRouter", "address", "value=address", "DelMRoutingMRouter"}};
constexpr Level mcast_router {.name = "mcastRouter",
    .brief = "the multicast router; 0.0.0.0 if there is none",
    .fields = mcast_router_fields,
    .setters = mcast_router_setters,
    .rank = 8};

constexpr Field local_receiver_fields[] {
    {"value", "value1"},
    {"text", "text1"},
    fixed("value2"),
    fixed("value3"),
    fixed("value4"),
};
constexpr Level local_receivers {.name = "localReceivers",
    .brief = "local receivers, by value and text",
    .read = "GetMRoutingLocalRcvrs",
    .each = "GetMRoutingAllMcastGroups",
    .each_given = "value=value1",
    .key = "value text",
    .fields = local_receiver_fields,
    .creation = {"AddMRoutingLocalRcvrs"},
    .deletion = {"DelMRoutingLocalRcvrs"},
    .rank = 8};

constexpr Field remote_receiver_fields[] {
    {"value", "", Part::Setting, 0, 4},
    {"key", "bytes", Part::Setting, 0, 4},
    {"hwAddr", "bytes", Part::Setting, 4, 6, Form::Mac},
    {"value1", "bytes", Part::Setting, 12, 4},
    {"value2", "bytes", Part::Setting, 16, 4},
    {"rest", "bytes", Part::Fixed, 20, 48, Form::Bytes},
};
constexpr Level remote_receivers {.name = "remoteReceivers",
    .brief = "remote receivers, by value and key",
    .read = "GetMRoutingRemoteRcvrs",
    .each = "GetMRoutingAllMcastGroups",
    .each_given = "value=value1",
    .key = "value key",
    .fields = remote_receiver_fields,
    .creation = {"AddMRoutingRemoteRcvrs", "hwAddr value1 value2"},
    .deletion = {"DelMRoutingRemoteRcvrs"},
    .rank = 8};

constexpr Field control_plane_fields[] {
    {"state", "entries", Part::Setting, 8, 4},
    {"address", "entries", Part::Setting, 12, 4, Form::Ipv4},
    {"activation", "entries", Part::Setting, 16, 4},
    {"entries", "entries", Part::Statistic, 0, 1420, Form::Bytes},
};
constexpr Setter control_plane_setters[] {
    {"SetLumoInstanceCPSyncState", "state"},
    {"SetCPIp", "address"},
    {"CPActivate", "activation", "value=activation"},
};
constexpr Level control_plane {.name = "controlPlane",
    .brief = "the attachment to the control plane; the activation is that of all instances",
    .read = "GetLumoInstanceCPSyncState",
    .fields = control_plane_fields,
    .setters = control_plane_setters,
    .rank = 5};

constexpr const Level* instance_levels[] {&lifs, &bridge_lifs, &routes, &routes6, &arp, &proxy_arp, &neighbours6,
    &proxy_neighbours6, &lif_policies, &domain, &mcast_router, &local_receivers, &remote_receivers, &control_plane,
    &instance_statistics};

constexpr Field instance_fields[] {
    {"instance", "instanceKey"},
    {"value1", "value1"},
    {"text", "bytes1", Part::Setting, 0, 13, Form::Text},
    {"value2", "value2"},
    {"tunables", "bytes2", Part::Setting, 0, 32, Form::Text},
    {"tunablesValue", "value6"},
    {"uuid", "text2", Part::Statistic},
    fixed("value3"),
    fixed("value4"),
    fixed("value5"),
    fixed("value7"),
    fixed("value8"),
    fixed("value9"),
    fixed("value10"),
    fixed("value11"),
    fixed("value12"),
    fixed("words"),
    fixed("value13"),
    fixed("value14"),
    fixed("value15"),
    fixed("value16"),
    fixed("value17"),
    fixed("value18"),
    fixed("value19"),
    fixed("value20"),
    fixed("value21"),
    fixed("value22"),
    fixed("value23"),
    fixed("value24"),
};
constexpr Setter instance_setters[] {
    {"SetLumoInstanceTunables", "tunables tunablesValue", "value=tunablesValue"},
};
constexpr Level instances {.name = "instances",
    .brief = "router instances",
    .read = "GetInstances",
    .key = "instance",
    .fields = instance_fields,
    .levels = instance_levels,
    .creation = {"SetLumoInstance", "value1 text value2"},
    .deletion = {"DelLumoInstance"},
    .setters = instance_setters,
    .rank = 4};

constexpr Field policy_fields[] {
    {"key1", "value2"},
    {"key2", "value3"},
    {"value", "value4"},
    fixed("value5"),
    fixed("value6"),
};
constexpr Level policies {.name = "policies",
    .brief = "policies, by their two keys",
    .read = "GetPolicy",
    .key = "key1 key2",
    .fields = policy_fields,
    .creation = {"SetPolicy", "value"},
    .deletion = {"DelPolicy"},
    .rank = 2};
constexpr const Level* table_levels[] {&policies};
constexpr Field table_fields[] {
    {"table", "policyTableId"},
    {"name", "policyTableName"},
    statistic("value1"),
};
constexpr Level policy_tables {.name = "policyTables",
    .brief = "policy tables",
    .read = "GetPolicyTable",
    .key = "table",
    .fields = table_fields,
    .levels = table_levels,
    .creation = {"SetPolicyTable", "name"},
    .deletion = {"DelPolicyTable"},
    .rank = 1};

constexpr Field network_fields[] {
    {"selector1", "value3", Part::Fixed},
    {"selector2", "value4", Part::Fixed},
    fixed("value1"),
    fixed("value2"),
    fixed("value5"),
    fixed("value6"),
    fixed("value7"),
    fixed("value8"),
    statistic("data"),
};
constexpr Level networks {.name = "networks",
    .brief = "networks, by their two selectors",
    .read = "GetBridgeNetworks",
    .key = "selector1 selector2",
    .fields = network_fields,
    .part = Part::Fixed};

constexpr Field port_fields[] {
    fixed("value1"),
    fixed("value2"),
    fixed("value3"),
    fixed("value4"),
    statistic("data"),
};
constexpr Level ports {.name = "ports",
    .brief = "ports",
    .read = "GetBridgePorts",
    .key = "value1",
    .fields = port_fields,
    .part = Part::Fixed};

constexpr Field fdb_fields[] {
    {"selector1", "value1"},
    {"selector2", "value2"},
    {"mac", "mac"},
    {"flags", "value3"},
    {"value", "value4"},
};
// What has an age was learned and goes by itself.
constexpr Level fdb {.name = "fdb",
    .brief = "forwarding entries that were set, by the selectors of their network and their MAC address",
    .read = "GetBridgeFdbEntries",
    .each = "GetBridgeNetworks",
    .each_given = "value16=value3 value32=value4",
    .selection = {"value5", ~std::uint64_t {0}, 0},
    .key = "selector1 selector2 mac",
    .fields = fdb_fields,
    .creation = {"BridgeSetFdbEntry", "flags value"},
    .rank = 3};

constexpr const Level* bridge_levels[] {&networks, &ports, &fdb};
constexpr Field bridge_fields[] {
    {"key", "name"},
    {"value", "value2"},
    {"enabled", "value3"},
    {"state", "value4"},
    {"mode", "value5"},
    fixed("value1"),
    fixed("text1"),
    fixed("text2"),
    statistic(count_of_entries),
    statistic("data"),
};
constexpr Setter bridge_setters[] {
    {"BridgeEnable", "enabled", "value=0", "BridgeDisable", "value=0"},
    {"BridgeSetHAAdminState", "state"},
    {"SetBridgeRepMode", "mode"},
};
constexpr Level bridges {.name = "bridges",
    .brief = "bridges",
    .read = "GetBridgeInstances",
    .key = "key",
    .fields = bridge_fields,
    .levels = bridge_levels,
    .creation = {"BridgeAdd", "value"},
    .deletion = {"BridgeDel"},
    .setters = bridge_setters,
    .rank = 1};

constexpr Field pmac_fields[] {{"mac", "mac"}, {"value", "value"}};
constexpr Level pmacs {.name = "pmacs",
    .brief = "PMACs",
    .read = "GetPmac",
    .key = "mac",
    .fields = pmac_fields,
    .creation = {"AddPmac", "value"},
    .deletion = {"DelPmac"},
    .rank = 1};

constexpr Field node_fields[] {
    {"node", "ident"},
    {"mac", "value1", Part::Setting, 0, 6, Form::Mac},
    fixed("value3"),
};
constexpr Level nodes {.name = "nodes",
    .brief = "nodes",
    .read = "GetBridgeClusterNodes",
    .key = "node",
    .may_have_no_name = true,
    .fields = node_fields,
    .creation = {"BridgeClusterNodeSet", "mac", "on=1"},
    .deletion = {"BridgeClusterNodeSet", "", "on=0"},
    .rank = 2};
constexpr const Level* cluster_levels[] {&nodes};
constexpr Field cluster_fields[] {
    {"key", "ident"},
    {"profileFlag", "block", Part::Setting, 0, 1},
    {"profileValue1", "block", Part::Setting, 1, 4},
    {"profileValue2", "block", Part::Setting, 5, 4},
    {"level", "value5"},
    {"rest", "block", Part::Fixed, 9, 87, Form::Bytes},
    fixed("value2"),
    fixed("value3"),
    fixed("value4"),
    fixed("value6"),
    statistic("value1"),
};
constexpr Setter cluster_setters[] {
    {"BridgeClusterBfdHAProfileSet", "profileFlag profileValue1 profileValue2",
        "flag=profileFlag value1=profileValue1 value2=profileValue2"},
    {"SetBridgeClusterDebug", "level"},
};
constexpr Level clusters {.name = "clusters",
    .brief = "bridge clusters",
    .read = "GetBridgeClusters",
    .key = "key",
    .fields = cluster_fields,
    .levels = cluster_levels,
    .creation = {"BridgeClusterSet", "", "on=1"},
    .deletion = {"BridgeClusterSet", "", "on=0"},
    .setters = cluster_setters,
    .rank = 1};

constexpr Field transport_fields[] {
    {"text1", "text1"},
    {"text2", "text2"},
    {"text3", "text3"},
    {"value", "value"},
    {"block", "block"},
};
constexpr Setter transport_setters[] {
    {"BridgeLocalTransportNodeSet", "text1 text2 text3 value block", "on=1", "BridgeLocalTransportNodeSet", "on=0"},
};
constexpr Level transport_node {.name = "transportNode",
    .brief = "the local transport node",
    .read = "BridgeGetLocalTransportNode",
    .fields = transport_fields,
    .setters = transport_setters,
    .rank = 1};

constexpr Field endpoint_statistics_fields[] {
    {"stats", "GetBeStats", Part::Statistic},
    {"status", "GetBeStatus", Part::Statistic},
};
constexpr Level endpoint_statistics {.name = "statistics",
    .brief = "counters and states, as bytes",
    .fields = endpoint_statistics_fields,
    .part = Part::Statistic};
constexpr const Level* endpoint_levels[] {&endpoint_statistics};
constexpr Field endpoint_fields[] {
    {"key", "ident"},
    {"name", "name"},
    {"value1", "value3"},
    {"value2", "value4"},
    {"value3", "value1"},
    {"flag1", "value2"},
    {"flag2", "flag2"},
};
constexpr Level endpoints {.name = "endpoints",
    .brief = "bridge endpoints, whose texts are not reported",
    .read = "GetBeAll",
    .key = "key",
    .fields = endpoint_fields,
    .levels = endpoint_levels,
    .creation = {"AddBridgeEndpoint", "name value1 value2 value3 flag1 flag2"},
    .deletion = {"DelBridgeEndpoint"},
    .rank = 3,
    .loss = "its texts, the first of which is its bridge, are not reported and become empty"};

constexpr Field connection_fields[] {
    {"name", "name"},
    {"text1", "text1"},
    {"text2", "text2"},
    {"text3", "text3"},
    {"text4", "text4"},
};
constexpr Level connections {.name = "connections",
    .brief = "port connections",
    .read = "GetConnections",
    .key = "name",
    .fields = connection_fields,
    .creation = {"PlumbLumoConnection", "text1 text2 text3 text4"},
    .deletion = {"UnPlumbLumoConnection"},
    .rank = 1};

constexpr Field bfd_connection_fields[] {{"port", "port"}, {"text", "text"}, {"mac", "mac"}};
constexpr Level bfd_connections {.name = "bfdConnections",
    .brief = "ports that are plumbed for BFD",
    .read = "GetBFDPortConnections",
    .key = "port",
    .fields = bfd_connection_fields,
    .creation = {"PlumbBFDPortConnection", "text mac"},
    .deletion = {"UnPlumbBFDPortConnection"},
    .rank = 1};

constexpr Field bfd_session_fields[] {
    {"addr1", "addr1", Part::Statistic, 0, 6, Form::Mac},
    {"addr2", "addr2", Part::Statistic, 0, 6, Form::Mac},
    statistic("value1"),
    statistic("value2"),
    statistic("value3"),
    statistic("value4"),
    statistic("value5"),
    statistic("value6"),
};
constexpr Level bfd_sessions {.name = "bfdSessions",
    .brief = "BFD sessions, by their addresses and a value",
    .read = "GetBridgeBFDSessions",
    .key = "addr1 addr2 value1",
    .fields = bfd_session_fields,
    .part = Part::Statistic};

constexpr const Level* host_levels[] {&module_level, &policy_tables, &bridges, &pmacs, &clusters, &transport_node,
    &endpoints, &connections, &bfd_connections, &instances, &bfd_sessions, &host_statistics};
constexpr Level host {.name = "", .brief = "the state of a host", .levels = host_levels};

} // namespace

const Level& whole_state()
{
    return host;
}

const Field* find_field(const Level& level, std::string_view name)
{
    const auto found = std::ranges::find(level.fields, name, &Field::name);
    return found == level.fields.end() ? nullptr : &*found;
}

const Record* record_of(const Level& level, const Level* outer)
{
    const bool is_embedded = !level.embedded.empty();
    const Operation* const operation = find_operation(is_embedded ? outer->read : level.read);
    const Record* const record = operation ? record_of(*operation) : nullptr;
    return record && is_embedded ? record->find(level.embedded)->record : record;
}

Member member_of(const Level& level, const Level* outer, const Field& field)
{
    if (field.source.empty())
        return {field.name, "", field.form, 0, field.width, 0, -1, nullptr};
    const Record* const record = record_of(level, outer);
    if (!record) {
        const Operation& operation = *find_operation(field.source);
        const bool is_value = operation.answer == Answer::Value;
        return {field.name, "", is_value ? operation.form : Form::Bytes, 0,
            static_cast<std::uint16_t>(is_value ? sizeof(std::uint32_t) : operation.cap), 0, -1, nullptr};
    }
    Member member = *record->find(field.source);
    if (field.width == 0)
        return member;
    member.form = field.form;
    member.offset = static_cast<std::uint16_t>(member.offset + field.at);
    member.width = field.width;
    member.length = 0;
    member.depends_on = -1;
    member.record = nullptr;
    return member;
}

} // namespace tool
