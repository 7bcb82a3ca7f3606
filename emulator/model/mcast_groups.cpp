// Multicast groups, replication and router addresses.
#include "emulator/protocol/mcast_groups.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

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
        namespace to = mcast_groups::record;
        for (const auto& [value, receivers] : groups) {
            const Record record = exchange.add(to::layout);
            record[to::value] = value;
            record[to::local_receivers] = receivers[0];
            record[to::remote_receivers] = receivers[1];
        }
        return 0;
    });
}

// The model replicates to no address.
int get_replication_address(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance&) {
        exchange.add<mcast_groups::address>(0);
        return 0;
    });
}

int add_router(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        instance.multicast_router = {true, exchange.request[mcast_groups::value]};
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
        exchange.add<mcast_groups::address>(instance.multicast_router.value);
        return 0;
    });
}

constexpr Handler answers[] = {
    {"GetMRoutingAllMcastGroups", get_groups},
    {"GetMRoutingReplicationIP", get_replication_address},
    {"AddMRoutingMRouter", add_router},
    {"DelMRoutingMRouter", remove_router},
    {"GetMRoutingMRouterIP", get_router},
};

} // namespace

const Handlers handlers::mcast_groups(mcast_groups::commands, answers);

} // namespace emulator
