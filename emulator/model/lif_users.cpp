#include "emulator/model/lif_users.h"

#include "emulator/model/subnets.h"

#include <cstring>

namespace emulator {

void attach_lif(State& state, Instance& instance, Lif& lif)
{
    for (const PolicyTableRef& ref : lif.policy_table_refs)
        if (PolicyTable* table = state.policy_tables.find(table_of(ref)))
            table->referring.insert(&lif);
    if (lif.kind == LifKind::Bridge)
        if (Bridge* bridge = state.bridges.find(lif.aux_name))
            bridge->lifs[&lif] = &instance;
}

void detach_lif(State& state, Lif& lif)
{
    for (const PolicyTableRef& ref : lif.policy_table_refs)
        if (PolicyTable* table = state.policy_tables.find(table_of(ref)))
            table->referring.erase(&lif);
    if (lif.kind == LifKind::Bridge)
        if (Bridge* bridge = state.bridges.find(lif.aux_name))
            bridge->lifs.erase(&lif);
}

std::uint32_t table_of(const PolicyTableRef& ref)
{
    std::uint32_t table = 0;
    std::memcpy(&table, ref.data(), sizeof table);
    return table;
}

void remove_lif(State& state, Instance& instance, Lif& lif)
{
    detach_lif(state, lif);
    for (Route* route : lif.routes) {
        std::erase_if(route->next_hops, [&](const NextHop& hop) { return hop.lif == lif.name; });
        if (route->next_hops.empty()) {
            discount_mask(instance, route->mask);
            instance.routes.remove(*route);
        }
    }
    for (const Route6* route : lif.routes6)
        instance.routes6.remove(*route);
    for (const LifPolicy* policy : lif.policies)
        instance.lif_policies.remove(*policy);
    for (const Neighbour* neighbour : lif.neighbours)
        instance.neighbours.remove(*neighbour);
    leave_subnet(instance, lif);
    instance.lifs.remove(lif);
}

} // namespace emulator
