// Policy tables, the policies in them, and the references from LIFs to them.
#include "emulator/model/state.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_tables = 1000;
constexpr std::size_t most_policies = 1000; // of one table
constexpr std::size_t most_refs = 20;

PolicyTable* table_of(Exchange& exchange)
{
    auto& tables = exchange.state.policy_tables;
    const auto found = std::find_if(tables.begin(), tables.end(),
        [id = exchange.request.u32(220)](const PolicyTable& table) { return table.id == id; });
    return found == tables.end() ? nullptr : &*found;
}

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

int get_tables(Exchange& exchange)
{
    for (const PolicyTable& table : exchange.state.policy_tables)
        Record(exchange.reply, 72)
            .u32(0, table.id)
            .text(4, 64, table.name)
            .u32(68, static_cast<std::uint32_t>(table.policies.size()));
    return 0;
}

int set_table(Exchange& exchange)
{
    PolicyTable* table = table_of(exchange);
    if (table == nullptr) {
        if (exchange.state.policy_tables.size() == most_tables)
            return ENOSPC;
        table = &exchange.state.policy_tables.emplace_back();
        table->id = exchange.request.u32(220);
    }
    table->name = exchange.request.text(224, 64);
    return done(exchange);
}

int remove_table(Exchange& exchange)
{
    const PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    auto& tables = exchange.state.policy_tables;
    tables.erase(tables.begin() + (table - tables.data()));
    return done(exchange);
}

Lif* lif_of(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    return instance == nullptr ? nullptr : instance->find_lif(exchange.request.text(192, 64));
}

int get_refs(Exchange& exchange)
{
    const Lif* lif = lif_of(exchange);
    if (lif == nullptr)
        return ENOENT;
    Record record(exchange.reply, 546);
    record.text(0, 64, lif->name).u16(64, static_cast<std::uint16_t>(lif->policy_table_refs.size()));
    for (std::size_t i = 0; i < lif->policy_table_refs.size(); ++i)
        record.bytes(66 + 24 * i, lif->policy_table_refs[i]);
    return 0;
}

int set_refs(Exchange& exchange)
{
    Lif* lif = lif_of(exchange);
    if (lif == nullptr)
        return ENOENT;
    const std::size_t count = exchange.request.u16(288);
    if (count > most_refs)
        return EINVAL;
    lif->policy_table_refs.clear();
    for (std::size_t i = 0; i < count; ++i)
        lif->policy_table_refs.push_back(exchange.request.bytes<24>(292 + 24 * i));
    return done(exchange);
}

int remove_refs(Exchange& exchange)
{
    Lif* lif = lif_of(exchange);
    if (lif == nullptr)
        return ENOENT;
    lif->policy_table_refs.clear();
    return done(exchange);
}

constexpr Command commands[] = {
    {119, request_record, get_policies},
    {120, request_record, set_policy},
    {121, request_record, remove_policy},
    {122, request_record, count_policies},
    {143, request_record, get_tables},
    {144, request_record, set_table},
    {145, request_record, remove_table},
    {146, request_record, get_refs},
    {147, request_record, set_refs},
    {148, request_record, remove_refs},
};

} // namespace

std::span<const Command> policy_commands()
{
    return commands;
}

} // namespace emulator
