// Policies in policy tables.
#include "emulator/protocol/policies.h"

#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

auto keys_of(const Exchange& exchange)
{
    return std::tuple(exchange.request[policies::key1], exchange.request[policies::key2]);
}

int get_policies(Exchange& exchange)
{
    const PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    namespace to = policies::record;
    for (const Policy& policy : table->policies) {
        const Record record = exchange.add(to::layout);
        record[to::table] = table->id;
        record[to::key1] = policy.key1;
        record[to::key2] = policy.key2;
        record[to::value] = policy.value;
    }
    return 0;
}

int count_policies(Exchange& exchange)
{
    const PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    exchange.add<policies::count>(static_cast<std::uint32_t>(table->policies.size()));
    return 0;
}

int set_policy(Exchange& exchange)
{
    PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    Policy* policy = table->policies.find(keys_of(exchange));
    if (policy == nullptr) {
        if (table->policies.size() == policies::most)
            return ENOSPC;
        policy = &table->policies.add({exchange.request[policies::key1], exchange.request[policies::key2], 0});
    }
    policy->value = exchange.request[policies::value];
    return done(exchange);
}

int remove_policy(Exchange& exchange)
{
    PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    return table->policies.remove_if_found(keys_of(exchange)) ? done(exchange) : ENOENT;
}

constexpr Handler answers[] = {
    {"GetPolicy", get_policies},
    {"SetPolicy", set_policy},
    {"DelPolicy", remove_policy},
    {"GetPolicyCount", count_policies},
};

} // namespace

const Handlers handlers::policies(policies::commands, answers);

} // namespace emulator
