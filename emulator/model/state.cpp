#include "emulator/model/state.h"

#include <algorithm>

namespace emulator {

Instance* State::find_instance(const std::string& key)
{
    const auto found = std::find_if(instances.begin(), instances.end(),
        [&](const Instance& instance) { return instance.name == key || instance.uuid == key; });
    return found == instances.end() ? nullptr : &*found;
}

Lif* Instance::find_lif(const std::string& lif_name)
{
    const auto found = std::find_if(lifs.begin(), lifs.end(), [&](const Lif& lif) { return lif.name == lif_name; });
    return found == lifs.end() ? nullptr : &*found;
}

} // namespace emulator
