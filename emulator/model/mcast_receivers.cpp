// Multicast domains of instances, and their receivers.
#include "emulator/protocol/mcast_receivers.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

std::uint32_t value_of(const Exchange& exchange)
{
    return exchange.request[mcast_receivers::value];
}

// What was set for the instance as a whole.
int get_domain(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        namespace to = mcast_receivers::domain_record;
        const Record record = exchange.add(to::layout);
        record[to::name] = instance.multicast.name;
        record[to::value1] = instance.multicast.value1;
        record[to::value2] = instance.multicast.value2;
        record[to::value3] = instance.multicast.value3;
        record[to::value4] = instance.multicast.value4;
        return 0;
    });
}

LocalReceiver local_of(const Exchange& exchange)
{
    return {value_of(exchange), exchange.request[mcast_receivers::text]};
}

int add_local(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        auto& all = instance.local_receivers;
        const LocalReceiver receiver = local_of(exchange);
        if (all.find(receiver.identity()) != nullptr)
            return 0;
        if (all.size() == mcast_receivers::most_local)
            return ENOSPC;
        all.add(receiver);
        return 0;
    });
}

int remove_local(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        return instance.local_receivers.remove_if_found(local_of(exchange).identity()) ? 0 : ENOENT;
    });
}

int get_local(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        namespace to = mcast_receivers::local_record;
        for (const LocalReceiver& receiver : instance.local_receivers) {
            if (receiver.value != value_of(exchange))
                continue;
            const Record record = exchange.add(to::layout);
            record[to::text] = receiver.text;
            record[to::value] = receiver.value;
        }
        return 0;
    });
}

auto remote_identity(const Exchange& exchange)
{
    return std::tuple(value_of(exchange), exchange.request[mcast_receivers::key]);
}

int add_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        auto& all = instance.remote_receivers;
        all.remove_if_found(remote_identity(exchange));
        if (all.size() == mcast_receivers::most_remote)
            return ENOSPC;
        const Input& request = exchange.request;
        all.add({value_of(exchange), request[mcast_receivers::key], request[mcast_receivers::value1],
            request[mcast_receivers::value2], request[mcast_receivers::hw_addr]});
        return 0;
    });
}

int remove_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        return instance.remote_receivers.remove_if_found(remote_identity(exchange)) ? 0 : ENOENT;
    });
}

int get_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        const auto under_value = [value = value_of(exchange)](
                                     const RemoteReceiver& receiver) { return receiver.value == value; };
        const auto& all = instance.remote_receivers;
        exchange.add<mcast_receivers::count>(
            static_cast<std::uint32_t>(std::count_if(all.begin(), all.end(), under_value)));
        namespace to = mcast_receivers::remote_record;
        for (const RemoteReceiver& receiver : all) {
            if (!under_value(receiver))
                continue;
            const Record record = exchange.add(to::layout);
            record[to::key] = receiver.key;
            record[to::hw_addr] = receiver.hw_address;
            record[to::value1] = receiver.value1;
            record[to::value2] = receiver.value2;
        }
        return 0;
    });
}

constexpr Handler answers[] = {
    {"GetMRoutingLocalRcvrs", get_local},
    {"GetMRoutingRemoteRcvrs", get_remote},
    {"GetMRoutingDomain", get_domain},
    {"AddMRoutingRemoteRcvrs", add_remote},
    {"DelMRoutingRemoteRcvrs", remove_remote},
    {"AddMRoutingLocalRcvrs", add_local},
    {"DelMRoutingLocalRcvrs", remove_local},
};

} // namespace

const Handlers handlers::mcast_receivers(mcast_receivers::commands, answers);

} // namespace emulator
