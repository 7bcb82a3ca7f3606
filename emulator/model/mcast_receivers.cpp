// Multicast domains of instances, and their receivers.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_local = 512;
constexpr std::size_t most_remote = 2048;

std::uint32_t value_of(const Exchange& exchange)
{
    return exchange.request.u32(64);
}

// What was set for the instance as a whole.
int get_domain(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        Record(exchange.reply, 148)
            .text(0, 64, instance.multicast.name)
            .u64(112, instance.multicast.value1)
            .u64(120, instance.multicast.value2)
            .u64(128, instance.multicast.value3)
            .u64(136, instance.multicast.value4);
        return 0;
    });
}

auto same_local(const Exchange& exchange)
{
    return [value = value_of(exchange), text = exchange.request.text(80, 64)](
               const LocalReceiver& receiver) { return receiver.value == value && receiver.text == text; };
}

int add_local(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        auto& all = instance.local_receivers;
        if (std::any_of(all.begin(), all.end(), same_local(exchange)))
            return 0;
        if (all.size() == most_local)
            return ENOSPC;
        all.push_back({value_of(exchange), exchange.request.text(80, 64)});
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
        for (const LocalReceiver& receiver : instance.local_receivers)
            if (receiver.value == value_of(exchange))
                Record(exchange.reply, 88).text(0, 64, receiver.text).u32(64, receiver.value);
        return 0;
    });
}

auto same_remote(const Exchange& exchange)
{
    return [value = value_of(exchange), key = exchange.request.u32(84)](
               const RemoteReceiver& receiver) { return receiver.value == value && receiver.key == key; };
}

int add_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        auto& all = instance.remote_receivers;
        std::erase_if(all, same_remote(exchange));
        if (all.size() == most_remote)
            return ENOSPC;
        const Request& request = exchange.request;
        all.push_back({value_of(exchange), request.u32(84), request.u32(80), request.u32(96), request.bytes<6>(88)});
        return 0;
    });
}

int remove_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        return std::erase_if(instance.remote_receivers, same_remote(exchange)) == 1 ? 0 : ENOENT;
    });
}

// The number of entries, then 68 bytes for each: key, hardware address, and the two values.
int get_remote(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        std::uint32_t count = 0;
        Record(exchange.reply, 4);
        for (const RemoteReceiver& receiver : instance.remote_receivers) {
            if (receiver.value != value_of(exchange))
                continue;
            ++count;
            Record(exchange.reply, 68)
                .u32(0, receiver.key)
                .bytes(4, receiver.hw_address)
                .u32(12, receiver.value1)
                .u32(16, receiver.value2);
        }
        std::memcpy(exchange.reply.data(), &count, sizeof count);
        return 0;
    });
}

constexpr Handler answers[] = {
    {128, request_record, get_local},
    {129, request_record, get_remote},
    {130, request_record, get_domain},
    {131, request_record, add_remote},
    {132, request_record, remove_remote},
    {133, request_record, add_local},
    {134, request_record, remove_local},
};

} // namespace

const std::span<const Handler> handlers::mcast_receivers = answers;

} // namespace emulator
