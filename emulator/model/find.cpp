#include "emulator/model/find.h"

#include "emulator/protocol/bridges.h"
#include "emulator/protocol/policies.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

Instance* instance_of(Exchange& exchange)
{
    return exchange.state.find_instance(exchange.request[addressed::instance]);
}

Lif* lif_of(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    return instance == nullptr ? nullptr : instance->find_lif(exchange.request[addressed::lif]);
}

PolicyTable* table_of(Exchange& exchange)
{
    auto& tables = exchange.state.policy_tables;
    const auto found = std::find_if(tables.begin(), tables.end(),
        [id = exchange.request[policies::table]](const PolicyTable& table) { return table.id == id; });
    return found == tables.end() ? nullptr : &*found;
}

Bridge* bridge_of(Exchange& exchange)
{
    auto& all = exchange.state.bridges;
    const auto found = std::find_if(all.begin(), all.end(),
        [key = exchange.request[bridges::key]](const Bridge& bridge) { return bridge.key == key; });
    return found == all.end() ? nullptr : &*found;
}

} // namespace emulator
