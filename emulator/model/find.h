// Finds what a request names: its instance, its LIF, its policy table, its bridge.
#pragma once

#include "emulator/model/exchange.h"

namespace emulator {

// Null if there is none.
Instance* instance_of(Exchange& exchange);
Lif* lif_of(Exchange& exchange);
PolicyTable* table_of(Exchange& exchange);
Bridge* bridge_of(Exchange& exchange);

template <class Change>
int on_instance(Exchange& exchange, Change change)
{
    Instance* instance = instance_of(exchange);
    return instance == nullptr ? ENOENT : change(*instance);
}

template <class Change>
int on_lif(Exchange& exchange, Change change)
{
    Lif* lif = lif_of(exchange);
    return lif == nullptr ? ENOENT : change(*lif);
}

template <class Change>
int on_bridge(Exchange& exchange, Change change)
{
    Bridge* bridge = bridge_of(exchange);
    return bridge == nullptr ? ENOENT : change(*bridge);
}

} // namespace emulator
