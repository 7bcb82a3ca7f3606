// The module-wide settings: a bare 32-bit value in, a bare 32-bit value out.
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

template <std::uint32_t State::*Setting>
int get(Exchange& exchange)
{
    Record(exchange.reply, 4).u32(0, exchange.state.*Setting);
    return 0;
}

template <std::uint32_t State::*Setting>
int set(Exchange& exchange)
{
    exchange.state.*Setting = exchange.request.u32(0);
    return 0;
}

constexpr Handler answers[] = {
    {9, 0, get<&State::log_level>},
    {10, 4, set<&State::log_level>},
    {11, 0, get<&State::extended_log_level>},
    {12, 4, set<&State::extended_log_level>},
    {13, 0, get<&State::stats_level>},
    {14, 4, set<&State::stats_level>},
    {159, 0, get<&State::tx_disp_queue_size>},
    {160, 4, set<&State::tx_disp_queue_size>},
};

} // namespace

const std::span<const Handler> handlers::levels = answers;

} // namespace emulator
