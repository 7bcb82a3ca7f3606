// Router instances.
#include "emulator/protocol/instances.h"

#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"

namespace emulator {

using namespace protocol;

namespace {

std::string key_of(const Exchange& exchange)
{
    return exchange.request[instances::instance];
}

void write(const Instance& instance, Exchange& exchange)
{
    namespace to = instances::record;
    const Record record = exchange.add(to::layout);
    record[to::name] = instance.name;
    record[to::value1] = instance.value1;
    record[to::value2] = instance.value2;
    record[to::tunables_value] = instance.tunables_value;
    record[to::text] = instance.text;
    record[to::uuid] = instance.uuid;
    record[to::tunables] = instance.tunables;
}

int create_or_update(Exchange& exchange)
{
    const std::string key = key_of(exchange);
    if (key.empty())
        return EINVAL;
    Instance* instance = exchange.state.find_instance(key);
    if (instance == nullptr) {
        if (exchange.state.instances.size() == instances::most)
            return ENOSPC;
        Instance created;
        created.name = key;
        created.uuid = is_uuid_text(key) ? key : next_uuid(exchange.state);
        instance = &exchange.state.instances.add(std::move(created));
        exchange.state.instances_by_uuid[instance->uuid] = instance;
    }
    instance->value1 = exchange.request[instances::value1];
    instance->text = exchange.request[instances::text];
    instance->value2 = exchange.request[instances::value2];
    return 0;
}

int remove(Exchange& exchange)
{
    Instance* instance = exchange.state.find_instance(key_of(exchange));
    if (instance == nullptr)
        return ENOENT;
    for (Lif& lif : instance->lifs)
        detach_lif(exchange.state, lif);
    exchange.state.instances_by_uuid.erase(instance->uuid);
    exchange.state.instances.remove(*instance);
    return 0;
}

int set_tunables(Exchange& exchange)
{
    Instance* instance = exchange.state.find_instance(key_of(exchange));
    if (instance == nullptr)
        return ENOENT;
    instance->tunables = exchange.request[instances::tunables];
    instance->tunables_value = exchange.request[instances::tunables_value];
    return 0;
}

int get_one(Exchange& exchange)
{
    const Instance* instance = exchange.state.find_instance(key_of(exchange));
    if (instance == nullptr)
        return ENOENT;
    write(*instance, exchange);
    return 0;
}

int get_all(Exchange& exchange)
{
    for (const Instance& instance : exchange.state.instances)
        write(instance, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"GetInstances", get_all},
    {"GetInstance", get_one},
    {"SetLumoInstance", create_or_update},
    {"DelLumoInstance", remove},
    {"SetLumoInstanceTunables", set_tunables},
};

} // namespace

const Handlers handlers::instances(instances::commands, answers);

} // namespace emulator
