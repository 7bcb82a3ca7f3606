// The attachment of instances to their control plane.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

int activate(Exchange& exchange)
{
    exchange.state.control_plane_active = exchange.request.u32(0);
    return 0;
}

template <std::uint32_t Instance::*Value, std::size_t Offset>
int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    instance->*Value = exchange.request.u32(Offset);
    return 0;
}

// Five entries of 284 bytes; the first tells what was set.
int get_sync_state(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    Record(exchange.reply, 1420)
        .u32(8, instance->sync_state)
        .u32(12, instance->control_plane_address)
        .u32(16, exchange.state.control_plane_active);
    return 0;
}

constexpr Handler answers[] = {
    {7, 4, activate},
    {8, request_record, set<&Instance::control_plane_address, 136>},
    {87, request_record, get_sync_state},
    {88, request_record, set<&Instance::sync_state, 64>},
};

} // namespace

const std::span<const Handler> handlers::control_plane = answers;

} // namespace emulator
