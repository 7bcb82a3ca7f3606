// Tells which bridges appear, change and go.
//
//     bridge_monitor MILLISECONDS COUNT
//
// Looks COUNT times, every so many milliseconds; at first, all bridges appear. A look that fails is told and changes
// nothing. Exits 0 if the last look succeeded, 1 if not, 2 on wrong usage.
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <lumozeph.hpp>
#include <map>
#include <thread>

namespace {

using Bridges = std::map<std::string, lumozeph::bridge_instance_info, std::less<>>;

Bridges by_name(const lumozeph::bridge_instance_list& list)
{
    Bridges bridges;
    for (const auto& bridge : list)
        bridges.emplace(lumozeph::text(bridge.name), bridge);
    return bridges;
}

void tell_changes(const Bridges& before, const Bridges& now)
{
    for (const auto& [name, bridge] : before)
        if (now.count(name) == 0)
            std::cout << "gone: " << name << '\n';
    for (const auto& [name, bridge] : now) {
        const auto known = before.find(name);
        if (known == before.end())
            std::cout << "new: " << name << '\n';
        else if (std::memcmp(&known->second, &bridge, sizeof bridge) != 0)
            std::cout << "changed: " << name << '\n';
    }
    std::cout.flush();
}

} // namespace

int main(int argc, char** argv)
{
    const int milliseconds = argc == 3 ? std::atoi(argv[1]) : 0;
    const int count = argc == 3 ? std::atoi(argv[2]) : 0;
    if (milliseconds <= 0 || count <= 0) {
        std::cerr << "usage: bridge_monitor MILLISECONDS COUNT\n";
        return 2;
    }
    Bridges known;
    lumozeph::bridge_instance_list list;
    std::error_code code;
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        code = lumozeph::try_get_bridge_instances(list);
        if (code) {
            std::cerr << "bridge_monitor: " << code.message() << '\n';
            continue;
        }
        Bridges now = by_name(list);
        tell_changes(known, now);
        known = std::move(now);
    }
    return code || !std::cout ? 1 : 0;
}
