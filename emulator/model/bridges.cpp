// Bridges.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

constexpr std::size_t most_bridges = 4096;

int add(Exchange& exchange)
{
    const std::string key = exchange.request.text(0, 64);
    if (key.empty())
        return EINVAL;
    Bridge* bridge = bridge_of(exchange);
    if (bridge == nullptr) {
        if (exchange.state.bridges.size() == most_bridges)
            return ENOSPC;
        bridge = &exchange.state.bridges.emplace_back();
        bridge->key = key;
    }
    bridge->value = exchange.request.u32(64);
    return 0;
}

int remove(Exchange& exchange)
{
    return on_bridge(exchange, [&](const Bridge& bridge) {
        auto& all = exchange.state.bridges;
        all.erase(all.begin() + (&bridge - all.data()));
        return 0;
    });
}

template <bool Value>
int enable(Exchange& exchange)
{
    return on_bridge(exchange, [](Bridge& bridge) {
        bridge.enabled = Value;
        return 0;
    });
}

template <std::uint32_t Bridge::*Member, std::size_t Offset>
int set_number(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        bridge.*Member = exchange.request.u32(Offset);
        return 0;
    });
}

void write(const Bridge& bridge, Exchange& exchange)
{
    Record(exchange.reply, 393)
        .u32(8, bridge.value)
        .text(12, 64, bridge.key)
        .u32(76, bridge.enabled)
        .u32(80, bridge.ha_state)
        .u32(305, bridge.replication_mode)
        .u32(309, static_cast<std::uint32_t>(bridge.fdb.size()));
}

int get_one(Exchange& exchange)
{
    return on_bridge(exchange, [&](const Bridge& bridge) {
        write(bridge, exchange);
        return 0;
    });
}

int get_all(Exchange& exchange)
{
    for (const Bridge& bridge : exchange.state.bridges)
        write(bridge, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {49, request_record, set_number<&Bridge::replication_mode, 108>},
    {53, request_record, add},
    {54, request_record, remove},
    {55, request_record, enable<true>},
    {56, request_record, enable<false>},
    {61, request_record, get_all},
    {62, request_record, get_one},
    {118, request_record, set_number<&Bridge::ha_state, 64>},
};

} // namespace

const std::span<const Handler> handlers::bridges = answers;

} // namespace emulator
