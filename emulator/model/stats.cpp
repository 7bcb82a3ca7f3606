// Statistics. The model counts nothing: every counter is zero.
#include "emulator/protocol/stats.h"

#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

// What the first word of a record says its counters are.
enum Counters : std::uint32_t
{
    ControlPlane = 0,
    Interface = 1,
    Distributed = 3
};

void write(Counters kind, Exchange& exchange)
{
    exchange.add(stats::record::layout)[stats::record::kind] = kind;
}

int get_of_instance(Exchange& exchange)
{
    if (instance_of(exchange) == nullptr)
        return ENOENT;
    write(ControlPlane, exchange);
    return 0;
}

int get_of_lif(Exchange& exchange)
{
    if (lif_of(exchange) == nullptr)
        return ENOENT;
    write(Interface, exchange);
    return 0;
}

int reset_of_lif(Exchange& exchange)
{
    return lif_of(exchange) != nullptr ? 0 : ENOENT;
}

int get_distributed(Exchange& exchange)
{
    write(Distributed, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"GetLumoInstanceCPStats", get_of_instance},
    {"ResetLumoInstanceCPStats", accepted_for_instance},
    {"GetLifStats", get_of_lif},
    {"ResetLifStats", reset_of_lif},
    {"GetLumoDiStats", get_distributed},
    {"ResetLumoDiStats", accepted},
};

} // namespace

const Handlers handlers::stats(stats::commands, answers);

} // namespace emulator
