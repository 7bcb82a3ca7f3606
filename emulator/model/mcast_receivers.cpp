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

auto same_local(const Exchange& exchange)
{
    return [value = value_of(exchange), text = exchange.request[mcast_receivers::text]](
               const LocalReceiver& receiver) { return receiver.value == value && receiver.text == text; };
}

int add_local(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        auto& all = instance.local_receivers;
        if (std::any_of(all.begin(), all.end(), same_local(exchange)))
            return 0;
        if (all.size() == mcast_receivers::most_local)
            return ENOSPC;
        all.push_back({value_of(exchange), exchange.request[mcast_receivers::text]});
        return 0;
    });
}

int remove_local(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        return std::erase_if(instance.local_receivers, same_local(exchange)) == 1 ? 0 : ENOENT;
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

auto same_remote(const Exchange& exchange)
{
    return [value = value_of(exchange), key = exchange.request[mcast_receivers::key]](
               const RemoteReceiver& receiver) { return receiver.value == value && receiver.key == key; };
}

int add_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        auto& all = instance.remote_receivers;
        std::erase_if(all, same_remote(exchange));
        if (all.size() == mcast_receivers::most_remote)
            return ENOSPC;
        const Input& request = exchange.request;
        all.push_back({value_of(exchange), request[mcast_receivers::key], request[mcast_receivers::value1],
            request[mcast_receivers::value2], request[mcast_receivers::hw_addr]});
        return 0;
    });
}

int remove_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        return std::erase_if(instance.remote_receivers, same_remote(exchange)) == 1 ? 0 : ENOENT;
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
