#include "emulator/model/find.h"

#include "emulator/protocol/bridges.h"
#include "emulator/protocol/policies.h"

namespace emulator {

using namespace protocol;

Instance* instance_of(Exchange& exchange)
{
    return exchange.state.find_instance(exchange.request[addressed::instance]);
}

Lif* lif_of(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    return instance == nullptr ? nullptr : instance->lifs.find(exchange.request[addressed::lif]);
}

PolicyTable* table_of(Exchange& exchange)
{
    return exchange.state.policy_tables.find(exchange.request[policies::table]);
}

Bridge* bridge_of(Exchange& exchange)
{
    return exchange.state.bridges.find(exchange.request[bridges::key]);
}

} // namespace emulator
