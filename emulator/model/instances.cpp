// Router instances.
#include "emulator/model/handlers.h"

#include <algorithm>
#include <cstdio>

namespace emulator {

namespace {

constexpr std::size_t most_instances = 1000;
constexpr std::size_t record_size = 256;

bool is_uuid_text(const std::string& text)
{
    if (text.size() != 36)
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool hyphen = i == 8 || i == 13 || i == 18 || i == 23;
        const bool digit = (text[i] >= '0' && text[i] <= '9') || (text[i] >= 'a' && text[i] <= 'f');
        if (hyphen ? text[i] != '-' : !digit)
            return false;
    }
    return true;
}

// The same instances created in the same order have the same UUIDs in every run.
std::string next_uuid(State& state)
{
    char text[37];
    std::snprintf(text, sizeof text, "10000000-0000-4000-8000-%012llx",
        static_cast<unsigned long long>(++state.instances_created));
    return text;
}

std::string key_of(const Exchange& exchange)
{
    return exchange.request.text(0, 64);
}

void write(const Instance& instance, std::vector<std::byte>& reply)
{
    Record record(reply, record_size);
    record.text(0, 64, instance.name);
    record.u32(64, instance.value1);
    record.u32(68, instance.value2);
    record.u32(78, instance.tunables_value);
    record.bytes(97, std::as_bytes(std::span(instance.text)).first(std::min<std::size_t>(13, instance.text.size())));
    record.text(136, 64, instance.uuid);
    record.text(202, 32, instance.tunables);
}

int create_or_update(Exchange& exchange)
{
    const std::string key = key_of(exchange);
    if (key.empty())
        return EINVAL;
    Instance* instance = exchange.state.find_instance(key);
    if (instance == nullptr) {
        if (exchange.state.instances.size() == most_instances)
            return ENOSPC;
        instance = &exchange.state.instances.emplace_back();
        instance->name = key;
        instance->uuid = is_uuid_text(key) ? key : next_uuid(exchange.state);
    }
    instance->value1 = exchange.request.u32(64);
    instance->text = exchange.request.text(140, 18);
    instance->value2 = exchange.request.u32(160);
    return 0;
}

int remove(Exchange& exchange)
{
    Instance* instance = exchange.state.find_instance(key_of(exchange));
    if (instance == nullptr)
        return ENOENT;
    exchange.state.instances.erase(exchange.state.instances.begin() + (instance - exchange.state.instances.data()));
    return 0;
}

int set_tunables(Exchange& exchange)
{
    Instance* instance = exchange.state.find_instance(key_of(exchange));
    if (instance == nullptr)
        return ENOENT;
    instance->tunables = exchange.request.text(68, 64);
    instance->tunables_value = exchange.request.u32(132);
    return 0;
}

int get_one(Exchange& exchange)
{
    const Instance* instance = exchange.state.find_instance(key_of(exchange));
    if (instance == nullptr)
        return ENOENT;
    write(*instance, exchange.reply);
    return 0;
}

int get_all(Exchange& exchange)
{
    for (const Instance& instance : exchange.state.instances)
        write(instance, exchange.reply);
    return 0;
}

constexpr Handler answers[] = {
    {0, request_record, get_all},
    {1, request_record, get_one},
    {2, request_record, create_or_update},
    {3, request_record, remove},
    {4, request_record, set_tunables},
};

} // namespace

const std::span<const Handler> handlers::instances = answers;

} // namespace emulator
