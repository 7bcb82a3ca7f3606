#include "emulator/model/state.h"

namespace emulator {

Instance* State::find_instance(const std::string& key)
{
    if (Instance* named = instances.find(key))
        return named;
    const auto found = instances_by_uuid.find(key);
    return found == instances_by_uuid.end() ? nullptr : found->second;
}

} // namespace emulator
