// Bridge clusters, their nodes, and the local transport node.
#include "emulator/protocol/clusters.h"

#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

std::string key_of(const Exchange& exchange)
{
    return exchange.request[clusters::key];
}

Cluster* cluster_of(Exchange& exchange)
{
    auto& all = exchange.state.clusters;
    const auto found = std::find_if(
        all.begin(), all.end(), [key = key_of(exchange)](const Cluster& cluster) { return cluster.key == key; });
    return found == all.end() ? nullptr : &*found;
}

// The clusters that a request means: the one that it names, or all.
template <class Visit>
int on_clusters(Exchange& exchange, Visit visit)
{
    const std::string key = key_of(exchange);
    if (!key.empty() && cluster_of(exchange) == nullptr)
        return ENOENT;
    for (Cluster& cluster : exchange.state.clusters)
        if (key.empty() || cluster.key == key)
            visit(cluster);
    return 0;
}

int set(Exchange& exchange)
{
    if (key_of(exchange).empty())
        return EINVAL;
    if (cluster_of(exchange) != nullptr)
        return 0;
    if (exchange.state.clusters.size() == clusters::most)
        return ENOSPC;
    exchange.state.clusters.emplace_back().key = key_of(exchange);
    return 0;
}

int remove(Exchange& exchange)
{
    const auto removed = std::erase_if(
        exchange.state.clusters, [key = key_of(exchange)](const Cluster& cluster) { return cluster.key == key; });
    return removed == 1 ? 0 : ENOENT;
}

int get_all(Exchange& exchange)
{
    return on_clusters(exchange, [&](const Cluster& cluster) {
        namespace to = clusters::record;
        const Record record = exchange.add(to::layout);
        record[to::key] = cluster.key;
        record[to::nodes] = static_cast<std::uint32_t>(cluster.nodes.size());
        record[to::profile_flag] = cluster.profile_flag;
        record[to::profile_value1] = cluster.profile_value1;
        record[to::profile_value2] = cluster.profile_value2;
        record[to::debug_level] = cluster.debug_level;
    });
}

int set_node(Exchange& exchange)
{
    Cluster* cluster = cluster_of(exchange);
    if (cluster == nullptr)
        return ENOENT;
    const ClusterNode node {exchange.request[clusters::node], exchange.request[clusters::mac], LinkState::Up,
        exchange.state.stopwatch.now()};
    const auto existing = std::find_if(cluster->nodes.begin(), cluster->nodes.end(),
        [&](const ClusterNode& candidate) { return candidate.name == node.name; });
    if (existing != cluster->nodes.end()) {
        *existing = node;
        return 0;
    }
    std::size_t nodes = 0;
    for (const Cluster& any : exchange.state.clusters)
        nodes += any.nodes.size();
    const bool has_room =
        nodes < clusters::most_nodes && has_room_for_sessions(exchange.state, exchange.state.bfd_connections.size());
    if (!has_room)
        return ENOSPC;
    cluster->nodes.push_back(node);
    return 0;
}

int remove_node(Exchange& exchange)
{
    Cluster* cluster = cluster_of(exchange);
    const auto removed =
        cluster == nullptr ? 0
                           : std::erase_if(cluster->nodes, [name = exchange.request[clusters::node]](
                                                               const ClusterNode& node) { return node.name == name; });
    return removed == 1 ? 0 : ENOENT;
}

int get_nodes(Exchange& exchange)
{
    return on_clusters(exchange, [&](const Cluster& cluster) {
        for (const ClusterNode& node : cluster.nodes) {
            const Record record = exchange.add(clusters::node_record::layout);
            record[clusters::node_record::name] = node.name;
            record[clusters::node_record::mac] = node.mac;
        }
    });
}

// A flushed cluster has no nodes.
int flush(Exchange& exchange)
{
    return on_clusters(exchange, [](Cluster& cluster) { cluster.nodes.clear(); });
}

int set_debug(Exchange& exchange)
{
    return on_clusters(exchange, [&](Cluster& cluster) { cluster.debug_level = exchange.request[clusters::level]; });
}

int set_profile(Exchange& exchange)
{
    Cluster* cluster = cluster_of(exchange);
    if (cluster == nullptr)
        return ENOENT;
    cluster->profile_flag = exchange.request[clusters::flag];
    cluster->profile_value1 = exchange.request[clusters::value1];
    cluster->profile_value2 = exchange.request[clusters::value2];
    return 0;
}

int set_transport(Exchange& exchange)
{
    namespace from = clusters::transport;
    const Input& request = exchange.request;
    exchange.state.local_transport_node = TransportNode {
        {request[from::text1], request[from::text2], request[from::text3]}, request[from::value], request[from::block]};
    return 0;
}

int remove_transport(Exchange& exchange)
{
    exchange.state.local_transport_node.reset();
    return 0;
}

int get_transport(Exchange& exchange)
{
    namespace to = clusters::transport_record;
    const Record record = exchange.add(to::layout);
    if (const auto& node = exchange.state.local_transport_node) {
        record[to::text1] = node->texts[0];
        record[to::text2] = node->texts[1];
        record[to::text3] = node->texts[2];
        record[to::value] = node->value;
        record[to::block] = node->block;
    }
    return 0;
}

int get_locale_id(Exchange& exchange)
{
    ValueOf<clusters::locale_id> counting {};
    for (std::size_t i = 0; i < counting.size(); ++i)
        counting[i] = static_cast<std::byte>(i);
    exchange.add<clusters::locale_id>(counting);
    return 0;
}

constexpr Handler answers[] = {
    {"GetLocaleId", get_locale_id},
    {"GetBridgeClusters", get_all},
    {"BridgeClusterSetOn", set},
    {"BridgeClusterSetOff", remove},
    {"GetBridgeClusterNodes", get_nodes},
    {"BridgeClusterNodeSetOn", set_node},
    {"BridgeClusterNodeSetOff", remove_node},
    {"BridgeLocalTransportNodeSetOn", set_transport},
    {"BridgeLocalTransportNodeSetOff", remove_transport},
    {"BridgeGetLocalTransportNode", get_transport},
    {"FlushBridgeClusterOn", flush},
    {"FlushBridgeClusterOff", flush},
    {"BridgeClusterBfdHAProfileSet", set_profile},
    {"SetBridgeClusterDebug", set_debug},
};

} // namespace

const Handlers handlers::clusters(clusters::commands, answers);

} // namespace emulator
