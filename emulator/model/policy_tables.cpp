// Policy tables, and the references from LIFs to them.
#include "emulator/protocol/policy_tables.h"

#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

int get_tables(Exchange& exchange)
{
    namespace to = policy_tables::record;
    for (const PolicyTable& table : exchange.state.policy_tables) {
        const Record record = exchange.add(to::layout);
        record[to::id] = table.id;
        record[to::name] = table.name;
        record[to::policies] = static_cast<std::uint32_t>(table.policies.size());
    }
    return 0;
}

int set_table(Exchange& exchange)
{
    PolicyTable* table = table_of(exchange);
    if (table == nullptr) {
        if (exchange.state.policy_tables.size() == policy_tables::most)
            return ENOSPC;
        table = &exchange.state.policy_tables.add({exchange.request[policy_tables::table], {}, {}, {}});
    }
    table->name = exchange.request[policy_tables::name];
    return done(exchange);
}

int remove_table(Exchange& exchange)
{
    const PolicyTable* table = table_of(exchange);
    if (table == nullptr)
        return ENOENT;
    for (Lif* lif : table->referring)
        std::erase_if(lif->policy_table_refs, [&](const PolicyTableRef& ref) { return table_of(ref) == table->id; });
    exchange.state.policy_tables.remove(*table);
    return done(exchange);
}

int get_refs(Exchange& exchange)
{
    const Lif* lif = lif_of(exchange);
    if (lif == nullptr)
        return ENOENT;
    namespace to = policy_tables::refs_record;
    const Record record = exchange.add(to::layout);
    record[to::lif] = lif->name;
    record[to::count] = static_cast<std::uint16_t>(lif->policy_table_refs.size());
    for (std::size_t i = 0; i < lif->policy_table_refs.size(); ++i)
        record[to::refs][i][policy_tables::ref::bytes] = lif->policy_table_refs[i];
    return 0;
}

void refer(Exchange& exchange, Lif& lif, std::vector<PolicyTableRef> refs)
{
    detach_lif(exchange.state, lif);
    lif.policy_table_refs = std::move(refs);
    attach_lif(exchange.state, *instance_of(exchange), lif);
}

int set_refs(Exchange& exchange)
{
    Lif* lif = lif_of(exchange);
    if (lif == nullptr)
        return ENOENT;
    const std::size_t count = exchange.request[policy_tables::count];
    if (count > policy_tables::most_refs)
        return EINVAL;
    std::vector<PolicyTableRef> refs;
    for (std::size_t i = 0; i < count; ++i)
        refs.push_back(exchange.request[policy_tables::entries][i][policy_tables::ref::bytes]);
    const bool names_no_table = std::any_of(refs.begin(), refs.end(),
        [&](const PolicyTableRef& ref) { return exchange.state.policy_tables.find(table_of(ref)) == nullptr; });
    if (exchange.state.is_strict() && names_no_table)
        return ENOENT;
    refer(exchange, *lif, std::move(refs));
    return done(exchange);
}

int remove_refs(Exchange& exchange)
{
    Lif* lif = lif_of(exchange);
    if (lif == nullptr)
        return ENOENT;
    refer(exchange, *lif, {});
    return done(exchange);
}

constexpr Handler answers[] = {
    {"GetPolicyTable", get_tables},
    {"SetPolicyTable", set_table},
    {"DelPolicyTable", remove_table},
    {"GetLifPolicyTableRef", get_refs},
    {"SetLifPolicyTableRef", set_refs},
    {"DelLifPolicyTableRef", remove_refs},
};

} // namespace

const Handlers handlers::policy_tables(policy_tables::commands, answers);

} // namespace emulator
