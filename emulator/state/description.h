// What a state file holds: each thing that the module keeps, by the names of its members. Every description serves whoever
// goes through it: Saving writes the state, Loading reads it, Schema says what may be written.
//
// A description gives each member's name and place, and what the member is when it is not written. Entries of collections
// have keys, which are described apart, and are added by a function that says what is wrong with them, or nothing.
#pragma once

#include "emulator/model/addresses.h"
#include "emulator/model/lif_users.h"
#include "emulator/model/subnets.h"
#include "emulator/protocol/commands.h"

#include <algorithm>
#include <string>
#include <vector>

namespace emulator::description {

namespace wire = emulator::protocol;

// The longest text that a field of the wire holds.
constexpr std::size_t longest(const wire::Text& field)
{
    return field.width - 1;
}

constexpr std::size_t longest_name = longest(wire::addressed::instance);

// What was set long ago, for what a file does not say it of.
constexpr std::chrono::seconds long_ago {60};

inline const std::vector<std::string> links {"up", "down"};
inline const std::vector<std::string> lif_kinds {"routed", "bridge"};

constexpr std::uint32_t counters_of_statistics = 100;
constexpr std::uint32_t counters_of_queues = 3 * wire::rss::most_queues;

// Nothing is wrong.
inline const std::string fine;

inline const std::string twice = "expected no entry twice";
inline const std::string too_long_a_prefix = "expected a prefix of at most 128 bits";

template <class Key>
void describe_key(Key& key, NextHop& hop)
{
    key.ipv4(hop.gateway);
    key.text(hop.lif, longest_name);
}

template <class Archive>
void describe(Archive&, NextHop&)
{}

template <class Key>
void describe_key(Key& key, Route& route)
{
    key.prefix(route.dest, route.mask);
}

template <class Archive>
void describe(Archive& archive, Route& route)
{
    archive.number("param", route.param);
    archive.collection("nextHops", route.next_hops, [&](NextHop&& hop) -> std::string {
        if (route.next_hops.size() == wire::routes::most_next_hops)
            return "expected at most 8 next hops";
        if (std::find(route.next_hops.begin(), route.next_hops.end(), hop) != route.next_hops.end())
            return "expected no next hop twice";
        route.next_hops.push_back(std::move(hop));
        return fine;
    });
}

template <class Key>
void describe_key(Key& key, Route6& route)
{
    key.prefix(route.dest, route.prefix_length);
    key.ipv6(route.gateway);
    key.text(route.lif, longest_name);
}

template <class Archive>
void describe(Archive&, Route6&)
{}

template <class Key>
void describe_key(Key& key, LifPolicy& policy)
{
    key.number(policy.kind);
    key.prefix(policy.dest, policy.mask);
    key.ipv4(policy.next_hop.gateway);
    key.text(policy.next_hop.lif, longest_name);
    key.text(policy.text, longest(wire::lif_policies::text));
}

template <class Archive>
void describe(Archive& archive, LifPolicy& policy)
{
    archive.number("param", policy.param);
}

template <class Key>
void describe_key(Key& key, Neighbour& neighbour)
{
    if (neighbour.family == Family::Ipv4)
        key.ipv4(neighbour.ipv4_address);
    else
        key.ipv6(neighbour.ipv6_address);
    key.text(neighbour.lif, longest_name);
}

template <class Archive>
void describe(Archive& archive, Neighbour& neighbour)
{
    archive.text("mac", neighbour.mac, wire::neighbours::arp::mac.width);
    archive.learned("learned", neighbour.learned);
}

template <class Key>
void describe_key(Key& key, LifIpv6& address)
{
    key.prefix(address.address, address.prefix_length);
}

template <class Archive>
void describe(Archive&, LifIpv6&)
{}

template <class Archive>
void describe(Archive& archive, DhcpServer& server)
{
    archive.bytes("address", server.address);
    archive.number("family", server.family);
}

template <class Archive>
void describe(Archive& archive, PolicyTableRef& ref)
{
    archive.bytes("bytes", ref);
}

template <class Key>
void describe_key(Key& key, Lif& lif)
{
    key.name(lif.name, longest_name);
}

template <class Archive>
void describe(Archive& archive, Lif& lif)
{
    archive.choice("kind", lif.kind, lif_kinds);
    archive.text("auxName", lif.aux_name, longest_name);
    archive.prefix("address", lif.address, lif.mask);
    archive.ipv4("diAddress", lif.di_address);
    archive.mac("mac", lif.mac);
    archive.number("paramA", lif.param_a);
    archive.number("paramB", lif.param_b);
    archive.number("paramC", lif.param_c);
    archive.ipv4("vxlanMulticast", lif.vxlan_multicast);
    archive.number("raMtu", lif.ra_mtu);
    archive.flag("enabled", lif.enabled);
    archive.flag("vxlanControlPlane", lif.vxlan_control_plane);
    archive.flag("multicastRouting", lif.multicast_routing);
    archive.part("dhcpRelay", [&](Archive& relay) {
        relay.number("count", lif.dhcp_relay.count);
        relay.list("servers", lif.dhcp_relay.servers);
    });
    archive.collection("ipv6", lif.ipv6, [&](LifIpv6&& address) -> std::string {
        if (lif.ipv6.size() == wire::lifs::most_ipv6)
            return "expected at most 10 IPv6 addresses";
        if (archive.state().is_strict() && address.prefix_length > longest_prefix)
            return too_long_a_prefix;
        if (std::any_of(lif.ipv6.begin(), lif.ipv6.end(),
                [&](const LifIpv6& other) { return other.address == address.address; }))
            return "expected no address twice";
        lif.ipv6.push_back(address);
        return fine;
    });
    archive.list("policyTableRefs", lif.policy_table_refs, wire::policy_tables::most_refs);
    archive.counters("statistics", lif.counters, counters_of_statistics);
}

template <class Key>
void describe_key(Key& key, LocalReceiver& receiver)
{
    key.number(receiver.value);
    key.text(receiver.text, longest_name);
}

template <class Archive>
void describe(Archive&, LocalReceiver&)
{}

template <class Key>
void describe_key(Key& key, RemoteReceiver& receiver)
{
    key.number(receiver.value);
    key.number(receiver.key);
}

template <class Archive>
void describe(Archive& archive, RemoteReceiver& receiver)
{
    archive.number("value1", receiver.value1);
    archive.number("value2", receiver.value2);
    archive.mac("hwAddress", receiver.hw_address);
}

// Adds an entry to a collection that has a cap.
template <class Entry>
std::string add_to(Collection<Entry>& all, std::size_t most, Entry entry)
{
    if (all.find(entry.identity()) != nullptr)
        return twice;
    if (all.size() >= most)
        return "expected at most " + std::to_string(most) + " entries";
    all.add(std::move(entry));
    return fine;
}

// Of a vector, whose caller knows what else there may be.
template <class Entry, class Key>
bool is_there(const std::vector<Entry>& all, Key Entry::*key, const Key& value)
{
    return std::any_of(all.begin(), all.end(), [&](const Entry& entry) { return entry.*key == value; });
}

// What names a LIF that must be there.
inline std::string missing_lif(Instance& instance, const std::string& lif)
{
    return instance.lifs.find(lif) != nullptr ? fine : "expected the name of a LIF of this instance, not '" + lif + "'";
}

// What names one or none, and in a lenient module any.
inline std::string missing_lif_or_none(const State& state, Instance& instance, const std::string& lif)
{
    return !state.is_strict() || lif.empty() ? fine : missing_lif(instance, lif);
}

template <class Archive>
void describe_neighbours(Archive& archive, Instance& instance, const char* name, Family family, Entry kind)
{
    std::vector<Neighbour> all;
    for (const Neighbour& neighbour : instance.neighbours)
        if (neighbour.family == family && neighbour.entry == kind)
            all.push_back(neighbour);
    Neighbour blank;
    blank.family = family;
    blank.entry = kind;
    archive.collection(
        name, all,
        [&](Neighbour&& neighbour) -> std::string {
            if (std::string wrong = missing_lif(instance, neighbour.lif); !wrong.empty())
                return wrong;
            const bool needs_mac = kind == Entry::Plain || !neighbour.mac.empty();
            if (archive.state().is_strict() && needs_mac && !parse_mac(neighbour.mac))
                return "expected a MAC address";
            if (neighbour.learned)
                archive.state().next_ageing = Time(0);
            const auto identity = neighbour;
            std::string wrong = add_to(instance.neighbours, wire::neighbours::most, std::move(neighbour));
            if (wrong.empty())
                use_lif<&Lif::neighbours>(instance, identity.lif, *instance.neighbours.find(identity.identity()));
            return wrong;
        },
        blank);
}

template <class Archive>
void describe_lifs(Archive& archive, Instance& instance)
{
    archive.collection("lifs", instance.lifs, [&](Lif&& lif) -> std::string {
        State& state = archive.state();
        if (lif.name.empty())
            return "expected a name";
        if (state.is_strict() && !is_contiguous(lif.mask))
            return "expected a mask of ones and then zeros";
        if (state.is_strict() && !is_ra_mtu(lif.ra_mtu))
            return "expected an raMtu of 0 or at least 1280";
        if (state.is_strict() && lif.kind == LifKind::Bridge && !lif.aux_name.empty() &&
            state.bridges.find(lif.aux_name) == nullptr)
            return "expected the name of a bridge, not '" + lif.aux_name + "'";
        for (const PolicyTableRef& ref : lif.policy_table_refs)
            if (state.is_strict() && state.policy_tables.find(table_of(ref)) == nullptr)
                return "expected references to policy tables, not to " + std::to_string(table_of(ref));
        if (lif.enabled && lif.address != 0 && !has_room_for_a_subnet(instance))
            return "expected at most 8000 routes, with the networks of LIFs";
        if (lif.enabled && !has_room_for_subnets6(instance, lif.ipv6.size()))
            return "expected at most 29999 IPv6 routes, with the networks of LIFs";
        const std::string name = lif.name;
        std::string wrong = add_to(instance.lifs, wire::lifs::most, std::move(lif));
        if (wrong.empty()) {
            Lif& added = *instance.lifs.find(name);
            added.created = instance.lifs_created++;
            join_subnet(instance, added);
        }
        return wrong;
    });
}

template <class Archive>
void describe_routes(Archive& archive, Instance& instance)
{
    archive.collection("routes", instance.routes, [&](Route&& route) -> std::string {
        if ((route.dest & ~route.mask) != 0)
            return "expected no bits outside the mask";
        if (archive.state().is_strict() && !is_contiguous(route.mask))
            return "expected a mask of ones and then zeros";
        if (route.next_hops.empty())
            return "expected a next hop";
        for (const NextHop& hop : route.next_hops)
            if (std::string wrong = hop.lif.empty() ? fine : missing_lif(instance, hop.lif); !wrong.empty())
                return wrong;
        if (!has_room_for_a_subnet(instance))
            return "expected at most 8000 routes, with the networks of LIFs";
        const std::tuple identity(route.dest, route.mask);
        std::string wrong = add_to(instance.routes, wire::routes::most, std::move(route));
        if (wrong.empty()) {
            Route& added = *instance.routes.find(identity);
            count_mask(instance, added.mask);
            for (const NextHop& hop : added.next_hops)
                use_lif<&Lif::routes>(instance, hop.lif, added);
        }
        return wrong;
    });
    archive.collection("routes6", instance.routes6, [&](Route6&& route) -> std::string {
        if (archive.state().is_strict() && route.prefix_length > longest_prefix)
            return too_long_a_prefix;
        if (archive.state().is_strict() && route.dest != network_of(route.dest, route.prefix_length))
            return "expected no bits behind the prefix";
        if (std::string wrong = missing_lif_or_none(archive.state(), instance, route.lif); !wrong.empty())
            return wrong;
        if (!has_room_for_subnets6(instance, 1))
            return "expected at most 29999 IPv6 routes, with the networks of LIFs";
        const Route6 same = route;
        std::string wrong = add_to(instance.routes6, wire::routes6::most, std::move(route));
        if (wrong.empty())
            use_lif<&Lif::routes6>(instance, same.lif, *instance.routes6.find(same.identity()));
        return wrong;
    });
    archive.collection("lifPolicies", instance.lif_policies, [&](LifPolicy&& policy) -> std::string {
        if (std::string wrong = missing_lif_or_none(archive.state(), instance, policy.next_hop.lif); !wrong.empty())
            return wrong;
        if (archive.state().is_strict() && (!is_contiguous(policy.mask) || (policy.dest & ~policy.mask) != 0))
            return "expected a network";
        const LifPolicy same = policy;
        std::string wrong = add_to(instance.lif_policies, wire::lif_policies::most, std::move(policy));
        if (wrong.empty())
            use_lif<&Lif::policies>(instance, same.next_hop.lif, *instance.lif_policies.find(same.identity()));
        return wrong;
    });
}

template <class Key>
void describe_key(Key& key, Instance& instance)
{
    key.name(instance.name, longest_name);
}

template <class Archive>
void describe(Archive& archive, Instance& instance)
{
    archive.text("uuid", instance.uuid, longest_name);
    archive.number("value1", instance.value1);
    archive.text("text", instance.text, wire::instances::text.width);
    archive.number("value2", instance.value2);
    archive.text("tunables", instance.tunables, longest_name + 1);
    archive.number("tunablesValue", instance.tunables_value);
    describe_lifs(archive, instance);
    describe_routes(archive, instance);
    archive.duration("neighbourAgeing", instance.neighbour_ageing, std::chrono::seconds(1200));
    describe_neighbours(archive, instance, "arp", Family::Ipv4, Entry::Plain);
    describe_neighbours(archive, instance, "proxyArp", Family::Ipv4, Entry::Proxy);
    describe_neighbours(archive, instance, "neighbours6", Family::Ipv6, Entry::Plain);
    describe_neighbours(archive, instance, "proxyNeighbours6", Family::Ipv6, Entry::Proxy);
    archive.part("multicast", [&](Archive& multicast) {
        multicast.text("name", instance.multicast.name, longest_name + 1);
        multicast.number("value1", instance.multicast.value1);
        multicast.number("value2", instance.multicast.value2);
        multicast.number("value3", instance.multicast.value3);
        multicast.number("value4", instance.multicast.value4);
    });
    archive.part("multicastRouter", [&](Archive& router) {
        router.flag("present", instance.multicast_router.present);
        router.number("value", instance.multicast_router.value);
    });
    archive.collection("localReceivers", instance.local_receivers, [&](LocalReceiver&& receiver) {
        return add_to(instance.local_receivers, wire::mcast_receivers::most_local, std::move(receiver));
    });
    archive.collection("remoteReceivers", instance.remote_receivers, [&](RemoteReceiver&& receiver) {
        return add_to(instance.remote_receivers, wire::mcast_receivers::most_remote, std::move(receiver));
    });
    archive.ipv4("controlPlaneAddress", instance.control_plane_address);
    archive.number("syncState", instance.sync_state);
    archive.counters("controlPlaneStatistics", instance.control_plane_counters, counters_of_statistics);
}

template <class Key>
void describe_key(Key& key, Policy& policy)
{
    key.number(policy.key1);
    key.number(policy.key2);
}

template <class Archive>
void describe(Archive& archive, Policy& policy)
{
    archive.number("value", policy.value);
}

template <class Key>
void describe_key(Key& key, PolicyTable& table)
{
    key.number(table.id);
}

template <class Archive>
void describe(Archive& archive, PolicyTable& table)
{
    archive.text("name", table.name, longest_name + 1);
    archive.collection("policies", table.policies,
        [&](Policy&& policy) { return add_to(table.policies, wire::policies::most, std::move(policy)); });
}

template <class Key>
void describe_key(Key& key, FdbEntry& entry)
{
    key.number(entry.selectors[0]);
    key.number(entry.selectors[1]);
    key.text(entry.mac, wire::fdb::mac.width);
}

template <class Archive>
void describe(Archive& archive, FdbEntry& entry)
{
    archive.number("value", entry.value);
    archive.number("flags", entry.flags);
    archive.learned("learned", entry.learned);
}

template <class Key>
void describe_key(Key& key, BridgeNetwork& network)
{
    key.number(network.selector1);
    key.number(network.selector2);
}

template <class Archive>
void describe(Archive& archive, BridgeNetwork& network)
{
    archive.number("value1", network.value1);
    archive.number("value2", network.value2);
    archive.number("value5", network.value5);
    archive.number("value6", network.value6);
    archive.number("value7", network.value7);
    archive.number("value8", network.value8);
    archive.counters("data", network.data, static_cast<std::uint32_t>(BridgeNetwork::counters));
}

template <class Key>
void describe_key(Key& key, BridgePort& port)
{
    key.number(port.value1);
}

template <class Archive>
void describe(Archive& archive, BridgePort& port)
{
    archive.number("value2", port.value2);
    archive.number("value3", port.selector1);
    archive.number("value4", port.selector2);
    archive.counters("data", port.data, static_cast<std::uint32_t>(BridgePort::counters));
}

template <class Key>
void describe_key(Key& key, Bridge& bridge)
{
    key.name(bridge.key, longest_name);
}

template <class Archive>
void describe(Archive& archive, Bridge& bridge)
{
    archive.number("value", bridge.value);
    archive.flag("enabled", bridge.enabled);
    archive.number("haState", bridge.ha_state);
    archive.number("replicationMode", bridge.replication_mode);
    archive.duration("fdbAgeing", bridge.fdb_ageing, std::chrono::seconds(300));
    archive.collection("fdb", bridge.fdb, [&](FdbEntry&& entry) -> std::string {
        if (archive.state().is_strict() && !parse_mac(entry.mac))
            return "expected a MAC address";
        if (entry.learned)
            archive.state().next_ageing = Time(0);
        entry.mac = in_lower_case(entry.mac);
        return add_to(bridge.fdb, wire::fdb::most, std::move(entry));
    });
    archive.collection("networks", bridge.networks,
        [&](BridgeNetwork&& network) { return add_to(bridge.networks, wire::networks::most, std::move(network)); });
    archive.collection("ports", bridge.ports,
        [&](BridgePort&& port) { return add_to(bridge.ports, wire::networks::most, std::move(port)); });
}

template <class Key>
void describe_key(Key& key, ClusterNode& node)
{
    key.text(node.name, longest_name + 1);
}

template <class Archive>
void describe(Archive& archive, ClusterNode& node)
{
    archive.mac("mac", node.mac);
    archive.choice("link", node.link, links);
    archive.age("age", node.since, long_ago);
}

template <class Key>
void describe_key(Key& key, Cluster& cluster)
{
    key.name(cluster.key, longest_name);
}

template <class Archive>
void describe(Archive& archive, Cluster& cluster)
{
    archive.number("debugLevel", cluster.debug_level);
    archive.part("profile", [&](Archive& profile) {
        profile.number("flag", cluster.profile_flag);
        profile.number("value1", cluster.profile_value1);
        profile.number("value2", cluster.profile_value2);
    });
    archive.collection("nodes", cluster.nodes, [&](ClusterNode&& node) -> std::string {
        if (is_there(cluster.nodes, &ClusterNode::name, node.name))
            return twice;
        cluster.nodes.push_back(std::move(node));
        return fine;
    });
}

template <class Key>
void describe_key(Key& key, Endpoint& endpoint)
{
    key.name(endpoint.key, longest_name);
}

template <class Archive>
void describe(Archive& archive, Endpoint& endpoint)
{
    archive.text("bridge", endpoint.bridge, longest_name + 1);
    archive.text("name", endpoint.name, longest_name + 1);
    archive.number("value1", endpoint.value1);
    archive.number("value2", endpoint.value2);
    archive.number("value3", endpoint.value3);
    archive.number("flag1", endpoint.flag1);
    archive.number("flag2", endpoint.flag2);
    archive.bytes("statistics", endpoint.statistics);
    archive.bytes("status", endpoint.status);
}

template <class Key>
void describe_key(Key& key, Connection& connection)
{
    key.name(connection.name, longest_name + 1);
}

template <class Archive>
void describe(Archive& archive, Connection& connection)
{
    namespace to = wire::connections::record;
    archive.text("text1", connection.texts[0], to::text1.width);
    archive.text("text2", connection.texts[1], to::text2.width);
    archive.text("text3", connection.texts[2], to::text3.width);
    archive.text("text4", connection.texts[3], wire::connections::text4.width);
    archive.choice("link", connection.link, links);
    archive.age("age", connection.since, long_ago);
}

template <class Key>
void describe_key(Key& key, BfdConnection& connection)
{
    key.name(connection.name, longest_name + 1);
}

template <class Archive>
void describe(Archive& archive, BfdConnection& connection)
{
    archive.text("text", connection.text, wire::bfd::text.width);
    archive.mac("mac", connection.mac);
    archive.choice("link", connection.link, links);
    archive.age("age", connection.since, long_ago);
}

template <class Key>
void describe_key(Key& key, BfdSessions& sessions)
{
    key.name(sessions.name, longest_name);
}

template <class Archive>
void describe(Archive& archive, BfdSessions& sessions)
{
    archive.number("count", sessions.count, std::uint32_t {1});
    archive.text("key", sessions.key, longest_name);
    archive.number("value1", sessions.value1);
    archive.mac("addr1", sessions.addr1);
    archive.number("addr1Step", sessions.addr1_step);
    archive.mac("addr2", sessions.addr2);
    archive.number("addr2Step", sessions.addr2_step);
    archive.number("value2", sessions.value2);
    archive.number("value3", sessions.value3);
    archive.number("value4", sessions.value4);
    archive.number("value5", sessions.value5);
    archive.number("value6", sessions.value6);
}

// Of maps, for the time in which they are gone through.
struct Pmac
{
    MacAddress address {};
    std::uint32_t value = 0;
};

template <class Key>
void describe_key(Key& key, Pmac& pmac)
{
    key.mac(pmac.address);
}

template <class Archive>
void describe(Archive& archive, Pmac& pmac)
{
    archive.number("value", pmac.value);
}

struct NamedTarget
{
    std::string name;
    RssTarget target;
};

template <class Key>
void describe_key(Key& key, NamedTarget& named)
{
    key.name(named.name, longest_name + 1);
}

template <class Archive>
void describe(Archive& archive, NamedTarget& named)
{
    archive.number("tunables", named.target.tunables);
    archive.bytes("table", named.target.table);
    archive.numbers("words", named.target.words);
    archive.counters("statistics", named.target.counters, counters_of_queues);
}

template <class Archive>
void describe_bridging(Archive& archive, State& state)
{
    archive.collection("bridges", state.bridges, [&](Bridge&& bridge) -> std::string {
        return bridge.key.empty() ? "expected a name" : add_to(state.bridges, wire::bridges::most, std::move(bridge));
    });
    archive.collection("clusters", state.clusters, [&](Cluster&& cluster) -> std::string {
        std::size_t nodes = cluster.nodes.size();
        for (const Cluster& other : state.clusters)
            nodes += other.nodes.size();
        if (cluster.key.empty())
            return "expected a name";
        if (is_there(state.clusters, &Cluster::key, cluster.key))
            return twice;
        if (state.clusters.size() == wire::clusters::most || nodes > wire::clusters::most_nodes)
            return "expected at most 10 clusters, and 100 nodes in all of them";
        state.clusters.push_back(std::move(cluster));
        return fine;
    });
    archive.collection("endpoints", state.endpoints, [&](Endpoint&& endpoint) -> std::string {
        Bridge* const bridge = state.bridges.find(endpoint.bridge);
        if (state.is_strict() && !endpoint.bridge.empty() && bridge == nullptr)
            return "expected the name of a bridge, not '" + endpoint.bridge + "'";
        const std::string key = endpoint.key;
        if (key.empty())
            return "expected a key";
        std::string wrong = add_to(state.endpoints, wire::endpoints::most, std::move(endpoint));
        if (wrong.empty() && bridge != nullptr)
            bridge->endpoints.insert(state.endpoints.find(key));
        return wrong;
    });
    std::vector<Pmac> pmacs;
    for (const auto& [address, value] : state.pmacs)
        pmacs.push_back({address, value});
    archive.collection("pmacs", pmacs, [&](Pmac&& pmac) -> std::string {
        if (state.pmacs.size() == wire::fdb::most_pmacs)
            return "expected at most " + std::to_string(wire::fdb::most_pmacs) + " PMACs";
        return state.pmacs.emplace(pmac.address, pmac.value).second ? fine : "expected no address twice";
    });
    archive.part("localTransportNode", [&](Archive& part) {
        TransportNode node;
        bool present = state.local_transport_node.has_value();
        if (present)
            node = *state.local_transport_node;
        part.flag("present", present);
        part.text("text1", node.texts[0], longest_name + 1);
        part.text("text2", node.texts[1], longest_name + 1);
        part.text("text3", node.texts[2], wire::clusters::transport::text3.width);
        part.number("value", node.value);
        part.bytes("block", node.block);
        if (present)
            state.local_transport_node = node;
    });
}

template <class Archive>
void describe_connections(Archive& archive, State& state)
{
    archive.duration("connectionDeletionTime", state.deletion_time, std::chrono::seconds(0));
    archive.deletions("connectionDeletions", state.deletions);
    archive.collection("connections", state.connections, [&](Connection&& connection) -> std::string {
        return connection.name.empty() ? "expected a name"
                                       : add_to(state.connections, wire::connections::most, std::move(connection));
    });
    archive.collection("bfdConnections", state.bfd_connections, [&](BfdConnection&& connection) -> std::string {
        return connection.name.empty() ? "expected a name"
                                       : add_to(state.bfd_connections, wire::bfd::most, std::move(connection));
    });
    archive.collection("bfdSessions", state.bfd_sessions, [&](BfdSessions&& sessions) -> std::string {
        if (is_there(state.bfd_sessions, &BfdSessions::name, sessions.name))
            return twice;
        if (!has_room_for_sessions(state, sessions.count))
            return "expected at most 2867200 BFD sessions";
        state.bfd_sessions.push_back(std::move(sessions));
        return fine;
    });
}

// To those of which no file says it, once all others are known.
inline void give_uuids(State& state)
{
    for (Instance& instance : state.instances)
        if (instance.uuid.empty()) {
            instance.uuid = next_uuid(state);
            state.instances_by_uuid[instance.uuid] = &instance;
        }
}

template <class Archive>
void describe(Archive& archive, State& state)
{
    archive.number("logLevel", state.log_level, std::uint32_t {4});
    archive.number("extendedLogLevel", state.extended_log_level);
    archive.number("statsLevel", state.stats_level, std::uint32_t {1});
    archive.number("txDispQueueSize", state.tx_disp_queue_size, std::uint32_t {1024});
    archive.number("controlPlaneActive", state.control_plane_active);
    archive.number("saves", state.saves);
    archive.number("instancesCreated", state.instances_created);
    archive.counters("statistics", state.counters, counters_of_statistics);
    archive.collection("policyTables", state.policy_tables,
        [&](PolicyTable&& table) { return add_to(state.policy_tables, wire::policy_tables::most, std::move(table)); });
    describe_bridging(archive, state);
    describe_connections(archive, state);
    archive.collection("instances", state.instances, [&](Instance&& instance) -> std::string {
        const std::string name = instance.name;
        if (name.empty())
            return "expected a name";
        if (instance.uuid.empty() && is_uuid_text(name))
            instance.uuid = name;
        const Instance* const namesake = state.find_instance(instance.uuid);
        if (namesake != nullptr && namesake->name != name)
            return "expected no UUID twice";
        if (state.instances_by_uuid.contains(name))
            return "expected no name that is the UUID of another";
        std::string wrong = add_to(state.instances, wire::instances::most, std::move(instance));
        if (wrong.empty()) {
            Instance& added = *state.instances.find(name);
            if (!added.uuid.empty())
                state.instances_by_uuid[added.uuid] = &added;
            for (Lif& lif : added.lifs)
                attach_lif(state, added, lif);
        }
        return wrong;
    });
    give_uuids(state);
    std::vector<NamedTarget> targets;
    for (const auto& [name, target] : state.rss_targets)
        targets.push_back({name, target});
    archive.collection("rssTargets", targets, [&](NamedTarget&& named) -> std::string {
        if (named.name.empty())
            return "expected a name";
        return state.rss_targets.emplace(named.name, named.target).second ? fine : "expected no target twice";
    });
}

} // namespace emulator::description
