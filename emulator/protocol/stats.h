// Statistics.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::stats {

using addressed::instance;
using addressed::lif;

inline constexpr Flag cached {"cached", 360, 4};

namespace record {
inline constexpr U32 kind {"statsKind", 0};
inline constexpr Table counters {"counters", 4, elements<U64>, 100};
inline constexpr Layout layout = fields_in<804, kind, counters>;
} // namespace record

inline constexpr Command commands[] = {
    {5, "GetLumoInstanceCPStats", request<instance>, one(record::layout)},
    {6, "ResetLumoInstanceCPStats", request<instance>, no_reply},
    {23, "GetLifStats", request<instance, lif, cached>, one(record::layout)},
    {24, "ResetLifStats", request<instance, lif>, no_reply},
    {43, "GetLumoDiStats", request<>, one(record::layout)},
    {44, "ResetLumoDiStats", request<>, no_reply},
};

} // namespace emulator::protocol::stats
