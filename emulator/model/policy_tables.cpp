// Policy tables, and the references from LIFs to them.
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

constexpr std::size_t most_tables = 1000;
constexpr std::size_t most_refs = 20;

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

constexpr Handler answers[] = {
    {143, request_record, get_tables},
    {144, request_record, set_table},
    {145, request_record, remove_table},
    {146, request_record, get_refs},
    {147, request_record, set_refs},
    {148, request_record, remove_refs},
};

} // namespace

const std::span<const Handler> handlers::policy_tables = answers;

} // namespace emulator
