// Statistics.
#include "emulator/protocol/stats.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

// What the first word of a record says its counters are.
enum class CountersOf : std::uint32_t
{
    ControlPlane = 0,
    Interface = 1,
    Distributed = 3
};

void write(CountersOf kind, const Counters& counters, Time at, Exchange& exchange)
{
    namespace to = stats::record;
    const Record record = exchange.add(to::layout);
    record[to::kind] = static_cast<std::uint32_t>(kind);
    for (const auto& [place, counter] : counters)
        record[to::counters][place][element<U64>] = counter.at(at);
}

int get_of_instance(Exchange& exchange)
{
    return on_instance(exchange, [&](const Instance& instance) {
        write(CountersOf::ControlPlane, instance.control_plane_counters, exchange.state.stopwatch.now(), exchange);
        return 0;
    });
}

int reset_of_instance(Exchange& exchange)
{
    return on_instance(exchange, [&](Instance& instance) {
        instance.control_plane_counters.reset(exchange.state.stopwatch.now());
        return 0;
    });
}

// The cache is as old as the last whole second.
int get_of_lif(Exchange& exchange)
{
    return on_lif(exchange, [&](const Lif& lif) {
        const Time now = exchange.state.stopwatch.now();
        write(CountersOf::Interface, lif.counters, exchange.request[stats::cached] ? in_whole_seconds(now) : now,
            exchange);
        return 0;
    });
}

int reset_of_lif(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.counters.reset(exchange.state.stopwatch.now());
        return 0;
    });
}

int get_distributed(Exchange& exchange)
{
    write(CountersOf::Distributed, exchange.state.counters, exchange.state.stopwatch.now(), exchange);
    return 0;
}

int reset_distributed(Exchange& exchange)
{
    exchange.state.counters.reset(exchange.state.stopwatch.now());
    return 0;
}

constexpr Handler answers[] = {
    {"GetLumoInstanceCPStats", get_of_instance},
    {"ResetLumoInstanceCPStats", reset_of_instance},
    {"GetLifStats", get_of_lif},
    {"ResetLifStats", reset_of_lif},
    {"GetLumoDiStats", get_distributed},
    {"ResetLumoDiStats", reset_distributed},
};

} // namespace

const Handlers handlers::stats(stats::commands, answers);

} // namespace emulator
