// Every kind of operation beside its limit.
#include "compare.h"
#include "kernel.h"
#include "limit.h"
#include "replies.h"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <lumozeph.h>
#include <malloc.h>
#include <string>
#include <sys/resource.h>
#include <type_traits>

namespace {

using namespace bench;

void expect(bool holds)
{
    if (!holds)
        std::abort();
}

constexpr char instance[] = "0000002a-51b3-4f0e-9c1d-00005e00532a";
constexpr char lif[] = "lif-0000-17";

// --- operations that read nothing

struct Set
{
    const char* name;
    std::int32_t (*send)();
};

constexpr Set sets[] = {
    {"no_text", [] { return LUMOZEPH_DelPolicyTable(7, nullptr); }},
    {"one_text", [] { return LUMOZEPH_SetRoute(0x0a000000, 0xff000000, 0x0a000001, nullptr, instance, 1, nullptr); }},
    {"two_texts", [] { return LUMOZEPH_SetRoute(0x0a000000, 0xff000000, 0x0a000001, lif, instance, 1, nullptr); }},
};

void compare_set(benchmark::State& state, Kernel kernel, std::int32_t (*send)())
{
    answer_calls(kernel);
    compare(
        state, [send] { benchmark::DoNotOptimize(send()); }, [] { benchmark::DoNotOptimize(limit_send(89)); });
    answer_calls(Kernel::Real);
}

// --- reads of one record

template <class Record>
void compare_get(benchmark::State& state, std::int32_t (*get)(Record**), std::int32_t (*release)(Record*))
{
    const std::vector<Record> reply = reply_of<Record>(1);
    answer_calls(Kernel::Instant, {reply.data(), sizeof(Record)});
    compare(
        state,
        [=] {
            Record* record = nullptr;
            expect(get(&record) == 0);
            release(record);
        },
        [] {
            char* record = nullptr;
            expect(limit_get(38, sizeof(Record), &record) == 0);
            free(record);
        });
    answer_calls(Kernel::Real);
}

std::int32_t release_stats(LumoStats* stats)
{
    return LUMOZEPH_ReleaseStats(stats);
}

std::int32_t release_sync_state(LumoCPSyncState* state)
{
    return LUMOZEPH_ReleaseStats(state);
}

template <class Record>
void add_get(const char* name, std::int32_t (*get)(Record**), std::int32_t (*release)(Record*))
{
    benchmark::RegisterBenchmark((std::string("get/") + name).c_str(), [=](benchmark::State& state) {
        compare_get<Record>(state, get, release);
    })->UseManualTime();
}

void add_gets()
{
    add_get<LumoInstanceInfo>(
        "instance", [](auto** out) { return LUMOZEPH_GetInstance(instance, out); }, LUMOZEPH_ReleaseInstance);
    add_get<LumoLifInfo>(
        "lif", [](auto** out) { return LUMOZEPH_GetLif(instance, lif, out); }, LUMOZEPH_ReleaseLif);
    add_get<LumoLifInfo>(
        "bridge_lif", [](auto** out) { return LUMOZEPH_GetBridgeLif(instance, lif, out); }, LUMOZEPH_ReleaseLif);
    add_get<LumoRouteInfo>(
        "resolve_route", [](auto** out) { return LUMOZEPH_GetResolveRoute(instance, 0x0a000001, ~0u, 0, out); },
        LUMOZEPH_ReleaseRoute);
    add_get<LumoStats>(
        "control_plane_stats", [](auto** out) { return LUMOZEPH_GetLumoInstanceCPStats(instance, out); },
        release_stats);
    add_get<LumoStats>(
        "lif_stats", [](auto** out) { return LUMOZEPH_GetLifStats(instance, lif, out); }, release_stats);
    add_get<LumoStats>(
        "lif_stats_cached", [](auto** out) { return LUMOZEPH_GetLifStatsCached(instance, lif, out); }, release_stats);
    add_get<LumoStats>("di_stats", LUMOZEPH_GetLumoDiStats, release_stats);
    add_get<LumoCPSyncState>(
        "sync_state", [](auto** out) { return LUMOZEPH_GetLumoInstanceCPSyncState(instance, out); },
        release_sync_state);
    add_get<LumoLifPolicyTableRef>(
        "lif_policy_table_ref", [](auto** out) { return LUMOZEPH_GetLifPolicyTableRef(instance, lif, out); },
        LUMOZEPH_ReleaseLifPolicyTableRef);
    add_get<LumoBridgeInstanceInfo>(
        "bridge_instance", [](auto** out) { return LUMOZEPH_GetBridgeInstance(instance, out); },
        LUMOZEPH_ReleaseBridgeInstance);
    add_get<LumoMcastDomainInfo>(
        "mcast_domain", [](auto** out) { return LUMOZEPH_GetMRoutingDomain(instance, out); },
        LUMOZEPH_ReleaseMRoutingDomainData);
    benchmark::RegisterBenchmark("get/log_level", [](benchmark::State& state) {
        constexpr std::uint32_t level = 7;
        answer_calls(Kernel::Instant, {&level, sizeof level});
        std::uint32_t got;
        compare(
            state, [&] { expect(LUMOZEPH_GetLogLevel(&got) == 0); }, [&] { expect(limit_get_value(20, &got) == 0); });
        answer_calls(Kernel::Real);
    })->UseManualTime();
}

// --- lists

template <class List>
using RecordOf = std::remove_pointer_t<decltype(List::records)>;

template <class List>
struct ListCalls
{
    std::size_t cap;
    std::int32_t (*get)(List**);
    std::int32_t (*release)(List*);
};

// Pages of this process's memory, in KiB, as the kernel names them.
long memory(const char* name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    long size = 0;
    while (status >> word)
        if (word == name)
            status >> size;
    return size;
}

// What a call adds to the process's memory while it runs, when none is kept from earlier calls.
template <class Work>
long peak_memory(Work& work)
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5; // The peak is what it is now.
    const long before = memory("VmRSS:");
    work();
    return memory("VmHWM:") - before;
}

long minor_faults()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

template <class List>
void compare_list(benchmark::State& state, const ListCalls<List>& calls, std::size_t count)
{
    using Record = RecordOf<List>;
    const std::vector<Record> reply = reply_of<Record>(count);
    answer_calls(Kernel::Instant, {reply.data(), static_cast<std::uint32_t>(count * sizeof(Record))});
    const auto read = [&] {
        List* list = nullptr;
        expect(calls.get(&list) == 0 && list->count == static_cast<std::int32_t>(count));
        calls.release(list);
    };
    compare(state, read, [&] {
        LimitList* list = nullptr;
        expect(limit_get_list(38, sizeof(Record), calls.cap, &list) == 0);
        limit_release_list(list);
    });
    read();
    const long faults = minor_faults();
    constexpr int reads = 4;
    for (int i = 0; i < reads; ++i)
        read();
    state.counters["faults"] = static_cast<double>(minor_faults() - faults) / reads;
    state.counters["peak_kib"] = static_cast<double>(peak_memory(read));
    state.counters["records"] = static_cast<double>(count);
    answer_calls(Kernel::Real);
}

template <class List>
void add_list(const char* name, std::size_t cap, std::int32_t (*get)(List**), std::int32_t (*release)(List*))
{
    const ListCalls<List> calls {cap, get, release};
    const auto add = [&](const std::string& fill, std::size_t count) {
        const auto run = [=](benchmark::State& state) { compare_list(state, calls, count); };
        auto* added = benchmark::RegisterBenchmark((std::string("list/") + name + "/" + fill).c_str(), run);
        added->UseManualTime();
        // Seconds each: as many turns as a median needs.
        if (cap * sizeof(RecordOf<List>) > 100'000'000)
            added->Iterations(15);
    };
    add("empty", 0);
    add("1%", (cap + 99) / 100);
    add("full", cap);
}

// The cost of a record, over how many there are.
template <class List>
void add_growth(const char* name, std::size_t cap, std::int32_t (*get)(List**), std::int32_t (*release)(List*))
{
    const ListCalls<List> calls {cap, get, release};
    for (std::size_t count = 1; count < cap * 10; count *= 10) {
        const std::size_t records = std::min(count, cap);
        benchmark::RegisterBenchmark((std::string("growth/") + name + "/" + std::to_string(records)).c_str(),
            [=](benchmark::State& state) { compare_list(state, calls, records); })
            ->UseManualTime();
    }
}

void add_lists()
{
    const auto get_lifs = [](LumoLifList** out) { return LUMOZEPH_GetLifs(instance, out); };
    const auto get_routes = [](LumoRouteList** out) { return LUMOZEPH_GetRoutes(instance, out); };
    const auto get_ports = [](LumoBridgePortList** out) {
        return LUMOZEPH_GetBridgePorts(instance, instance, 1, 1, out);
    };

    add_list<LumoInstanceList>("instances", 1000, LUMOZEPH_GetInstances, LUMOZEPH_ReleaseInstances);
    add_list<LumoLifList>("lifs", 10000, get_lifs, LUMOZEPH_ReleaseLifs);
    add_list<LumoLifList>(
        "bridge_lifs", 10000, [](auto** out) { return LUMOZEPH_GetBridgeLifs(instance, out); }, LUMOZEPH_ReleaseLifs);
    add_list<LumoRouteList>("routes", 8000, get_routes, LUMOZEPH_ReleaseRoutes);
    add_list<LumoRouteList>(
        "lif_policies", 8000, [](auto** out) { return LUMOZEPH_GetLifPolicies(instance, 0, lif, out); },
        LUMOZEPH_ReleaseRoutes);
    add_list<LumoPolicyList>(
        "policies", 1000, [](auto** out) { return LUMOZEPH_GetPolicy(7, out); }, LUMOZEPH_ReleaseAllPolicy);
    add_list<LumoPolicyTableList>("policy_tables", 1000, LUMOZEPH_GetPolicyTable, LUMOZEPH_ReleaseAllPolicyTable);
    add_list<LumoBridgeInstanceList>(
        "bridge_instances", 4096, LUMOZEPH_GetBridgeInstances, LUMOZEPH_ReleaseBridgeInstances);
    add_list<LumoBridgeNetworkList>(
        "bridge_networks", 32768, [](auto** out) { return LUMOZEPH_GetBridgeNetworks(instance, instance, out); },
        LUMOZEPH_ReleaseBridgeNetworks);
    add_list<LumoBridgePortList>("bridge_ports", 32768, get_ports, LUMOZEPH_ReleaseBridgePorts);
    add_list<LumoBridgeFdbList>(
        "forwarding_table", 4096, [](auto** out) { return LUMOZEPH_GetBridgeFdbEntries(instance, 1, 1, out); },
        LUMOZEPH_ReleaseBridgeFdbEntries);
    add_list<LumoBridgeClusterList>(
        "clusters", 10, [](auto** out) { return LUMOZEPH_GetBridgeClusters(instance, out); },
        LUMOZEPH_ReleaseBridgeClusters);
    add_list<LumoBridgeClusterNodeList>(
        "nodes", 100, [](auto** out) { return LUMOZEPH_GetBridgeClusterNodes(instance, out); },
        LUMOZEPH_ReleaseBridgeClusterNodes);
    add_list<LumoBridgeEndpointList>(
        "endpoints", 28672, [](auto** out) { return LUMOZEPH_GetBridgeEndpoints(instance, out); },
        LUMOZEPH_ReleaseBridgeEndpoints);
    add_list<LumoBridgeBfdSessionList>(
        "bfd_sessions", 2867200, [](auto** out) { return LUMOZEPH_GetBridgeBFDSessions(instance, out); },
        LUMOZEPH_ReleaseBridgeBFDSessions);
    add_list<LumoLocalRcvrList>(
        "local_receivers", 512, [](auto** out) { return LUMOZEPH_GetMRoutingLocalRcvrs(instance, 1, out); },
        LUMOZEPH_ReleaseMRoutingLocalRcvrs);
    add_list<LumoMcastGroupList>(
        "groups", 4096, [](auto** out) { return LUMOZEPH_GetMRoutingAllMcastGroups(instance, out); },
        LUMOZEPH_ReleaseMRoutingMcastGroups);

    add_growth<LumoRouteList>("routes", 8000, get_routes, LUMOZEPH_ReleaseRoutes);
    add_growth<LumoLifList>("lifs", 10000, get_lifs, LUMOZEPH_ReleaseLifs);
    add_growth<LumoBridgePortList>("bridge_ports", 32768, get_ports, LUMOZEPH_ReleaseBridgePorts);
}

} // namespace

int main(int argc, char** argv)
{
    for (const Set& set : sets) {
        for (const auto& [kernel, name] : {std::pair(Kernel::Instant, "user_part"), {Kernel::DevNull, "system_calls"}})
            benchmark::RegisterBenchmark((std::string("set/") + set.name + "/" + name).c_str(),
                [kernel = kernel, send = set.send](benchmark::State& state) { compare_set(state, kernel, send); })
                ->UseManualTime();
    }
    add_gets();
    add_lists();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
}
