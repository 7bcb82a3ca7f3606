// Statistics. The model counts nothing: every counter is zero.
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

constexpr std::size_t record_size = 804;

// What the first word of a record says its counters are.
enum Kind : std::uint32_t
{
    ControlPlane = 0,
    Interface = 1,
    Distributed = 3
};

void write(Kind kind, Exchange& exchange)
{
    Record(exchange.reply, record_size).u32(0, kind);
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
    {5, request_record, get_of_instance},
    {6, request_record, accepted_for_instance},
    {23, request_record, get_of_lif},
    {24, request_record, reset_of_lif},
    {43, request_record, get_distributed},
    {44, request_record, accepted},
};

} // namespace

const std::span<const Handler> handlers::stats = answers;

} // namespace emulator
