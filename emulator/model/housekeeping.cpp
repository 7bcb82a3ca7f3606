// Flush, full-sync save and preparation for unloading.
#include "emulator/protocol/housekeeping.h"

#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

// While anything is there that was set up, the module is in use.
int prepare_unload(Exchange& exchange)
{
    const State& state = exchange.state;
    const bool is_in_use = !state.instances.empty() || !state.bridges.empty() || !state.clusters.empty() ||
                           !state.endpoints.empty() || !state.connections.empty() || !state.bfd_connections.empty() ||
                           !state.policy_tables.empty();
    return is_in_use ? EBUSY : 0;
}

void flush(Instance& instance)
{
    instance.neighbours.clear();
    for (Lif& lif : instance.lifs)
        lif.neighbours.clear();
}

// The neighbours of instances and the forwarding entries of bridges: of those that the text names, or, without it, of all.
int flush(Exchange& exchange)
{
    State& state = exchange.state;
    const std::string name = exchange.request[housekeeping::text];
    if (name.empty()) {
        for (Instance& instance : state.instances)
            flush(instance);
        for (Bridge& bridge : state.bridges)
            bridge.fdb.clear();
        return 0;
    }
    if (Instance* instance = state.find_instance(name))
        flush(*instance);
    if (Bridge* bridge = state.bridges.find(name))
        bridge->fdb.clear();
    return 0;
}

int save(Exchange& exchange)
{
    if (exchange.room < bare<housekeeping::saved>.size)
        return ENOBUFS;
    exchange.add<housekeeping::saved>(++exchange.state.saves);
    return 0;
}

int save_status(Exchange& exchange)
{
    exchange.add<housekeeping::status>(exchange.state.saves);
    return 0;
}

constexpr Handler answers[] = {
    {"PreUnload", prepare_unload},
    {"GenericFlush", flush},
    {"PerformFullSyncSave", save},
    {"GetFullSyncSaveStatus", save_status},
};

} // namespace

const Handlers handlers::housekeeping(housekeeping::commands, answers);

} // namespace emulator
