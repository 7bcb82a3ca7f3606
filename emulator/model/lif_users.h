// What belongs to LIFs: an entry that names one is known to it, so that it goes when the LIF goes.
#pragma once

#include "emulator/model/state.h"

namespace emulator {

// Adds an entry of the instance to what belongs to the LIF that it names, and takes it away. An entry may name none, or one
// that is not there.
template <auto Users, class Entry>
void use_lif(Instance& instance, const std::string& lif, Entry& entry)
{
    if (Lif* used = instance.lifs.find(lif))
        (used->*Users).insert(&entry);
}

template <auto Users, class Entry>
void leave_lif(Instance& instance, const std::string& lif, Entry& entry)
{
    if (Lif* used = instance.lifs.find(lif))
        (used->*Users).erase(&entry);
}

// What LIFs belong to or refer to knows them: their policy tables, and of a bridge LIF the bridge, which its second name
// names. Before and after that changes, or around their life.
void attach_lif(State& state, Instance& instance, Lif& lif);
void detach_lif(State& state, Lif& lif);

std::uint32_t table_of(const PolicyTableRef& ref);

void remove_lif(State& state, Instance& instance, Lif& lif);

} // namespace emulator
