// Bridge clusters, their nodes, and the local transport node.
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_clusters = 10;
constexpr std::size_t most_nodes = 100; // of all clusters together

std::string key_of(const Exchange& exchange)
{
    return exchange.request.text(0, 64);
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
    if (exchange.state.clusters.size() == most_clusters)
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
        Record(exchange.reply, 183)
            .text(0, 64, cluster.key)
            .u32(72, static_cast<std::uint32_t>(cluster.nodes.size()))
            .u8(178, cluster.debug_level)
            .u8(76, cluster.profile_flag)
            .u32(77, cluster.profile_value1)
            .u32(81, cluster.profile_value2);
    });
}

int set_node(Exchange& exchange)
{
    Cluster* cluster = cluster_of(exchange);
    if (cluster == nullptr)
        return ENOENT;
    const ClusterNode node {exchange.request.text(64, 64), exchange.request.bytes<6>(128)};
    const auto existing = std::find_if(cluster->nodes.begin(), cluster->nodes.end(),
        [&](const ClusterNode& candidate) { return candidate.name == node.name; });
    if (existing != cluster->nodes.end()) {
        *existing = node;
        return 0;
    }
    std::size_t nodes = 0;
    for (const Cluster& any : exchange.state.clusters)
        nodes += any.nodes.size();
    if (nodes == most_nodes)
        return ENOSPC;
    cluster->nodes.push_back(node);
    return 0;
}

int remove_node(Exchange& exchange)
{
    Cluster* cluster = cluster_of(exchange);
    const auto removed =
        cluster == nullptr ? 0
                           : std::erase_if(cluster->nodes, [name = exchange.request.text(64, 64)](
                                                               const ClusterNode& node) { return node.name == name; });
    return removed == 1 ? 0 : ENOENT;
}

int get_nodes(Exchange& exchange)
{
    return on_clusters(exchange, [&](const Cluster& cluster) {
        for (const ClusterNode& node : cluster.nodes)
            Record(exchange.reply, 71).text(0, 64, node.name).bytes(64, node.mac);
    });
}

// A flushed cluster has no nodes.
int flush(Exchange& exchange)
{
    return on_clusters(exchange, [](Cluster& cluster) { cluster.nodes.clear(); });
}

int set_debug(Exchange& exchange)
{
    return on_clusters(exchange, [&](Cluster& cluster) { cluster.debug_level = exchange.request.u8(64); });
}

int set_profile(Exchange& exchange)
{
    Cluster* cluster = cluster_of(exchange);
    if (cluster == nullptr)
        return ENOENT;
    cluster->profile_flag = exchange.request.u8(64);
    cluster->profile_value1 = exchange.request.u32(68);
    cluster->profile_value2 = exchange.request.u32(72);
    return 0;
}

// The local transport node is reported as it was sent, from its first name on.
constexpr std::size_t transport_offset = 64;
constexpr std::size_t transport_size = 212;

int set_transport(Exchange& exchange)
{
    const auto sent = exchange.request.from(transport_offset, transport_size);
    exchange.state.local_transport_node.assign(sent.begin(), sent.end());
    return 0;
}

int remove_transport(Exchange& exchange)
{
    exchange.state.local_transport_node.clear();
    return 0;
}

int get_transport(Exchange& exchange)
{
    Record(exchange.reply, 2048).bytes(0, exchange.state.local_transport_node);
    return 0;
}

int get_locale_id(Exchange& exchange)
{
    for (std::uint8_t i = 0; i < 16; ++i)
        Record(exchange.reply, 1).u8(0, i);
    return 0;
}

constexpr Handler answers[] = {
    {86, request_record, get_locale_id},
    {89, request_record, get_all},
    {90, request_record, set},
    {91, request_record, remove},
    {92, request_record, get_nodes},
    {93, request_record, set_node},
    {94, request_record, remove_node},
    {100, request_record, set_transport},
    {101, request_record, remove_transport},
    {102, request_record, get_transport},
    {103, request_record, flush},
    {104, request_record, flush},
    {106, request_record, set_profile},
    {107, request_record, set_debug},
};

} // namespace

const std::span<const Handler> handlers::clusters = answers;

} // namespace emulator
