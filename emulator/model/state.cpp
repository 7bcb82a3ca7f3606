#include "emulator/model/state.h"

#include "emulator/protocol/bfd.h"

#include <cstdio>

namespace emulator {

Instance* State::find_instance(const std::string& key)
{
    if (Instance* named = instances.find(key))
        return named;
    const auto found = instances_by_uuid.find(key);
    return found == instances_by_uuid.end() ? nullptr : found->second;
}

bool is_uuid_text(const std::string& text)
{
    if (text.size() != 36)
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool hyphen = i == 8 || i == 13 || i == 18 || i == 23;
        const bool digit = (text[i] >= '0' && text[i] <= '9') || (text[i] >= 'a' && text[i] <= 'f');
        if (hyphen ? text[i] != '-' : !digit)
            return false;
    }
    return true;
}

std::string next_uuid(State& state)
{
    std::string uuid;
    do {
        char text[37];
        std::snprintf(text, sizeof text, "10000000-0000-4000-8000-%012llx",
            static_cast<unsigned long long>(++state.instances_created));
        uuid = text;
    } while (state.find_instance(uuid) != nullptr);
    return uuid;
}

bool has_room_for_sessions(const State& state, std::uint64_t more)
{
    std::uint64_t nodes = 0;
    for (const Cluster& cluster : state.clusters)
        nodes += cluster.nodes.size();
    std::uint64_t sessions = nodes * state.bfd_connections.size() + more;
    for (const BfdSessions& others : state.bfd_sessions)
        sessions += others.count;
    return sessions <= protocol::bfd::most_sessions;
}

} // namespace emulator
