// Brings a host to the state that a file describes, and keeps at it whatever fails meanwhile.
//
//     reconciler FILE
//
// A line of FILE is one of
//
//     lif INSTANCE LIF ADDRESS/LENGTH MAC
//     route INSTANCE PREFIX GATEWAY
//     bridge BRIDGE
//
// Instances are created, and LIFs enabled. Each instance has a thread of its own, the bridges have another. A thread
// compares what is there with what should be, changes what differs, and begins again until nothing does: what a failed
// call has left behind, or someone else has undone, is found by the next comparison. LIFs that are not described are
// removed, and so are routes that this program has made, which it knows by their mark.
//
// Exits 0 when all is as described, 1 if that was not so after 1000 attempts, 2 on wrong usage.
#include <chrono>
#include <fstream>
#include <functional>
#include <iostream>
#include <lumozeph.hpp>
#include <map>
#include <mutex>
#include <set>
#include <sstream>
#include <thread>
#include <vector>

namespace {

// The routes of this program.
constexpr std::uint32_t mark = 4711;

struct Lif
{
    lumozeph::ipv4_prefix address;
    lumozeph::mac mac;
    bool enabled = true;

    friend bool operator==(const Lif& a, const Lif& b)
    {
        return a.address == b.address && a.mac == b.mac && a.enabled == b.enabled;
    }
};

struct Route
{
    lumozeph::ipv4_prefix dest;
    lumozeph::ipv4 gateway;

    friend bool operator<(const Route& a, const Route& b)
    {
        return a.dest != b.dest ? a.dest < b.dest : a.gateway < b.gateway;
    }
};

struct Instance
{
    std::map<std::string, Lif> lifs;
    std::set<Route> routes;
};

struct State
{
    std::map<std::string, Instance> instances;
    std::set<std::string> bridges;
};

State read(std::istream& file)
{
    State state;
    std::string line;
    while (std::getline(file, line)) {
        std::istringstream words(line);
        std::string kind, first, second, third, fourth;
        words >> kind >> first >> second >> third >> fourth;
        if (kind == "lif")
            state.instances[first].lifs[second] = {lumozeph::ipv4_prefix(third), lumozeph::mac(fourth), true};
        else if (kind == "route")
            state.instances[first].routes.insert({lumozeph::ipv4_prefix(second), lumozeph::ipv4(third)});
        else if (kind == "bridge")
            state.bridges.insert(first);
        else if (!kind.empty())
            throw std::invalid_argument("not understood: " + line);
    }
    return state;
}

Instance present(const std::string& name)
{
    Instance instance;
    // The first of the module's flags says that the LIF is enabled.
    for (const auto& lif : lumozeph::get_lifs(name))
        instance.lifs[std::string(lumozeph::text(lif.lifName))] = {
            {lumozeph::ipv4(lif.ipAddr), lumozeph::ipv4_mask(lif.ipMask)}, lumozeph::mac(lif.lifMac),
            lif.lifFlags[0] != 0};
    for (const auto& route : lumozeph::get_routes(name))
        if (route.routeValue1 == mark)
            for (const auto& hop : lumozeph::next_hops(route))
                instance.routes.insert({{lumozeph::ipv4(route.routeDest), lumozeph::ipv4_mask(route.routeMask)},
                    lumozeph::ipv4(hop.nextHopAddr)});
    return instance;
}

bool exists(const std::string& instance)
{
    for (const auto& one : lumozeph::get_instances())
        if (lumozeph::text(one.instanceKey) == instance)
            return true;
    return false;
}

// How many changes it took.
int reconcile(const std::string& name, const Instance& desired)
{
    int changes = 0;
    if (!exists(name)) {
        lumozeph::set_lumo_instance({.instance = name});
        ++changes;
    }
    const Instance now = present(name);
    for (const auto& [lif, is] : now.lifs)
        if (desired.lifs.count(lif) == 0) {
            lumozeph::del_lif(lif, "", name);
            ++changes;
        }
    for (const auto& [lif, should] : desired.lifs)
        if (const auto known = now.lifs.find(lif); known == now.lifs.end() || !(known->second == should)) {
            lumozeph::set_lif({.lif = lif,
                .aux_name = "",
                .address = should.address,
                .di_address {},
                .instance = name,
                .mac = should.mac});
            lumozeph::enable_lif(name, lif);
            ++changes;
        }
    for (const Route& route : now.routes)
        if (desired.routes.count(route) == 0) {
            lumozeph::del_route({.dest = route.dest, .gateway = route.gateway, .instance = name});
            ++changes;
        }
    for (const Route& route : desired.routes)
        if (now.routes.count(route) == 0) {
            lumozeph::set_route({.dest = route.dest, .gateway = route.gateway, .instance = name, .param = mark});
            ++changes;
        }
    return changes;
}

int reconcile_bridges(const std::set<std::string>& desired)
{
    std::set<std::string> now;
    for (const auto& bridge : lumozeph::get_bridge_instances())
        now.emplace(lumozeph::text(bridge.name));
    int changes = 0;
    for (const std::string& bridge : desired)
        if (now.count(bridge) == 0) {
            lumozeph::bridge_add(bridge, 0);
            ++changes;
        }
    return changes;
}

// Lines of several threads do not mix.
void say(const std::string& line)
{
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    std::cerr << "reconciler: " << line << '\n';
}

// Until there is nothing to change. Whether that was reached.
bool keep_at(const std::string& what, const std::function<int()>& work)
{
    for (int attempt = 0; attempt < 1000; ++attempt) {
        try {
            if (work() == 0)
                return true;
        } catch (const lumozeph::error& error) {
            say(what + ": " + error.what());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    return false;
}

bool reconcile_all(const State& state)
{
    std::vector<std::thread> threads;
    // One for each thread, which no other touches.
    std::map<std::string, int> reached;
    const auto start = [&](const std::string& what, std::function<int()> work) {
        int& result = reached[what];
        threads.emplace_back([&result, what, work = std::move(work)] { result = keep_at(what, work) ? 1 : 0; });
    };
    for (const auto& [name, instance] : state.instances)
        start("instance " + name, [&name = name, &instance = instance] { return reconcile(name, instance); });
    start("bridges", [&state] { return reconcile_bridges(state.bridges); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& [what, done] : reached)
        if (done == 0)
            return false;
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: reconciler FILE\n";
        return 2;
    }
    try {
        std::ifstream file(argv[1]);
        if (!file)
            throw std::system_error(errno, std::generic_category(), argv[1]);
        return reconcile_all(read(file)) ? 0 : 1;
    } catch (const std::exception& error) {
        say(error.what());
        return 2;
    }
}
