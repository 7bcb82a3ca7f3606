// Policies in policy tables.
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_policies = 1000; // of one table

auto find_policy(PolicyTable& table, const Exchange& exchange)
{
    return std::find_if(table.policies.begin(), table.policies.end(),
        [key1 = exchange.request.u32(64), key2 = exchange.request.u32(68)](
            const Policy& policy) { return policy.key1 == key1 && policy.key2 == key2; });
}

int get_policies(Exchange& exchange)
{
    const PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    for (const Policy& policy : table->policies)
        Record(exchange.reply, 28).u32(0, table->id).u32(4, policy.key1).u32(8, policy.key2).u32(12, policy.value);
    return 0;
}

int count_policies(Exchange& exchange)
{
    const PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    Record(exchange.reply, 4).u32(0, static_cast<std::uint32_t>(table->policies.size()));
    return 0;
}

int set_policy(Exchange& exchange)
{
    PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    auto policy = find_policy(*table, exchange);
    if (policy == table->policies.end()) {
        if (table->policies.size() == most_policies)
            return ENOSPC;
        policy = table->policies.insert(policy, {exchange.request.u32(64), exchange.request.u32(68), 0});
    }
    policy->value = exchange.request.u32(212);
    return done(exchange);
}

int remove_policy(Exchange& exchange)
{
    PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    const auto policy = find_policy(*table, exchange);
    if (policy == table->policies.end())
        return ENOENT;
    table->policies.erase(policy);
    return done(exchange);
}

constexpr Handler answers[] = {
    {119, request_record, get_policies},
    {120, request_record, set_policy},
    {121, request_record, remove_policy},
    {122, request_record, count_policies},
};

} // namespace

const std::span<const Handler> handlers::policies = answers;

} // namespace emulator
