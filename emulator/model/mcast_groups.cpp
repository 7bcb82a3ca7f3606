// Multicast groups, replication and router addresses.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

// One group for each value that has receivers: the value, and how many local and remote ones.
int get_groups(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        std::map<std::uint32_t, std::array<std::uint32_t, 2>> groups;
        for (const LocalReceiver& receiver : instance.local_receivers)
            ++groups[receiver.value][0];
        for (const RemoteReceiver& receiver : instance.remote_receivers)
            ++groups[receiver.value][1];
        for (const auto& [value, receivers] : groups)
            Record(exchange.reply, 12).u32(0, value).u32(4, receivers[0]).u32(8, receivers[1]);
        return 0;
    });
}

// The model replicates to no address.
int get_replication_address(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance&) {
        Record(exchange.reply, 4);
        return 0;
    });
}

int add_router(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        instance.multicast_router = {true, exchange.request.u32(64)};
        return 0;
    });
}

int remove_router(Exchange& exchange)
{
    return on_instance(exchange, [](Instance& instance) {
        if (!instance.multicast_router.present)
            return ENOENT;
        instance.multicast_router = {};
        return 0;
    });
}

// The value is the router's address.
int get_router(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        if (!instance.multicast_router.present)
            return ENOENT;
        Record(exchange.reply, 4).u32(0, instance.multicast_router.value);
        return 0;
    });
}

constexpr Handler answers[] = {
    {135, request_record, get_groups},
    {136, request_record, get_replication_address},
    {137, request_record, add_router},
    {138, request_record, remove_router},
    {139, request_record, get_router},
};

} // namespace

const std::span<const Handler> handlers::mcast_groups = answers;

} // namespace emulator
