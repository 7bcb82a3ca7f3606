// Runtime levels and queue tunables: bare 32-bit values.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::levels {

inline constexpr U32 level {"level", 0};
inline constexpr U32 size {"size", 0};

inline constexpr Command commands[] = {
    {9, "GetLogLevel", no_input, one(bare<level>)},
    {10, "SetLogLevel", bare<level>, no_reply},
    {11, "GetExtendedLogLevel", no_input, one(bare<level>)},
    {12, "SetExtendedLogLevel", bare<level>, no_reply},
    {13, "GetStatsLevel", no_input, one(bare<level>)},
    {14, "SetStatsLevel", bare<level>, no_reply},
    {159, "GetTxDispQueueSize", no_input, one(bare<size>)},
    {160, "SetTxDispQueueSize", bare<size>, no_reply},
};

} // namespace emulator::protocol::levels
