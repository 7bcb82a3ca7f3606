// Bridges.
#include "emulator/protocol/bridges.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"

#include <utility>

namespace emulator {

using namespace protocol;

namespace {

int add(Exchange& exchange)
{
    const std::string key = exchange.request[bridges::key];
    if (key.empty())
        return EINVAL;
    Bridge* bridge = bridge_of(exchange);
    if (bridge == nullptr) {
        if (exchange.state.bridges.size() == bridges::most)
            return ENOSPC;
        Bridge added;
        added.key = key;
        bridge = &exchange.state.bridges.add(std::move(added));
    }
    bridge->value = exchange.request[bridges::value];
    return 0;
}

int remove(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        for (const Endpoint* endpoint : bridge.endpoints)
            exchange.state.endpoints.remove(*endpoint);
        for (const auto& [lif, instance] : std::exchange(bridge.lifs, {}))
            remove_lif(exchange.state, *instance, *lif);
        exchange.state.bridges.remove(bridge);
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

template <std::uint32_t Bridge::*Member, const auto& Sent>
int set_number(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        bridge.*Member = exchange.request[Sent];
        return 0;
    });
}

void write(const Bridge& bridge, Exchange& exchange)
{
    namespace to = bridges::record;
    const Record record = exchange.add(to::layout);
    record[to::value] = bridge.value;
    record[to::name] = bridge.key;
    record[to::enabled] = bridge.enabled;
    record[to::ha_state] = bridge.ha_state;
    record[to::replication_mode] = bridge.replication_mode;
    record[to::fdb_entries] = static_cast<std::uint32_t>(bridge.fdb.size());
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
    {"SetBridgeRepMode", set_number<&Bridge::replication_mode, bridges::replication_mode>},
    {"BridgeAdd", add},
    {"BridgeDel", remove},
    {"BridgeEnable", enable<true>},
    {"BridgeDisable", enable<false>},
    {"GetBridgeInstances", get_all},
    {"GetBridgeInstance", get_one},
    {"BridgeSetHAAdminState", set_number<&Bridge::ha_state, bridges::ha_state>},
};

} // namespace

const Handlers handlers::bridges(bridges::commands, answers);

} // namespace emulator
