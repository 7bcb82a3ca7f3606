// The module-wide settings: a bare 32-bit value in, a bare 32-bit value out.
#include "emulator/protocol/levels.h"

#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

template <std::uint32_t State::*Setting, const auto& Value>
int get(Exchange& exchange)
{
    exchange.add<Value>(exchange.state.*Setting);
    return 0;
}

template <std::uint32_t State::*Setting, const auto& Value>
int set(Exchange& exchange)
{
    exchange.state.*Setting = exchange.request[Value];
    return 0;
}

constexpr Handler answers[] = {
    {"GetLogLevel", get<&State::log_level, levels::level>},
    {"SetLogLevel", set<&State::log_level, levels::level>},
    {"GetExtendedLogLevel", get<&State::extended_log_level, levels::level>},
    {"SetExtendedLogLevel", set<&State::extended_log_level, levels::level>},
    {"GetStatsLevel", get<&State::stats_level, levels::level>},
    {"SetStatsLevel", set<&State::stats_level, levels::level>},
    {"GetTxDispQueueSize", get<&State::tx_disp_queue_size, levels::size>},
    {"SetTxDispQueueSize", set<&State::tx_disp_queue_size, levels::size>},
};

} // namespace

const Handlers handlers::levels(levels::commands, answers);

} // namespace emulator
