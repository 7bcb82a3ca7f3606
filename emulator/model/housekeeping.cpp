// Flush, full-sync save and preparation for unloading.
#include "emulator/model/answers.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

int save(Exchange& exchange)
{
    Record(exchange.reply, 4).u32(0, ++exchange.state.saves);
    return 0;
}

int save_status(Exchange& exchange)
{
    Record(exchange.reply, 4).u32(0, exchange.state.saves);
    return 0;
}

constexpr Handler answers[] = {
    {42, 0, accepted},
    {80, request_record, accepted},
    {123, request_record, save},
    {124, request_record, save_status},
};

} // namespace

const std::span<const Handler> handlers::housekeeping = answers;

} // namespace emulator
