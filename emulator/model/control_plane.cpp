// The attachment of instances to their control plane.
#include "emulator/protocol/control_plane.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

int activate(Exchange& exchange)
{
    exchange.state.control_plane_active = exchange.request[control_plane::value];
    return 0;
}

template <std::uint32_t Instance::*Value, const auto& Sent>
int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    instance->*Value = exchange.request[Sent];
    return 0;
}

// The first entry tells what was set, and how many connections are plumbed, and up.
int get_sync_state(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    namespace to = control_plane::entry;
    const Record first = exchange.add(control_plane::record::layout)[control_plane::record::entries][0];
    first[to::state] = instance->sync_state;
    first[to::address] = instance->control_plane_address;
    first[to::active] = exchange.state.control_plane_active;
    const auto& connections = exchange.state.connections;
    first[to::value5] = static_cast<std::uint32_t>(connections.size());
    first[to::value6] = static_cast<std::uint32_t>(std::count_if(connections.begin(), connections.end(),
        [now = exchange.state.stopwatch.now()](const Connection& connection) { return is_up(connection, now); }));
    return 0;
}

constexpr Handler answers[] = {
    {"CPActivate", activate},
    {"SetCPIp", set<&Instance::control_plane_address, control_plane::address>},
    {"GetLumoInstanceCPSyncState", get_sync_state},
    {"SetLumoInstanceCPSyncState", set<&Instance::sync_state, control_plane::state>},
};

} // namespace

const Handlers handlers::control_plane(control_plane::commands, answers);

} // namespace emulator
