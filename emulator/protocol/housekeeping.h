// Flush, full-sync save and preparation for unloading.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::housekeeping {

// What a flush selects; the order of the three bytes is crossed.
inline constexpr U32 value1 {"value1", 64};
inline constexpr U8 value4 {"value4", 68};
inline constexpr U8 value2 {"value2", 69};
inline constexpr U8 value3 {"value3", 70};
inline constexpr Text text {"text", 71, 64};
inline constexpr U32 value5 {"value5", 136};

inline constexpr U8 value {"value", 64};
inline constexpr U32 saved {"result", 0};
inline constexpr U32 status {"status", 0};

inline constexpr Command commands[] = {
    {42, "PreUnload", no_input, no_reply},
    {80, "GenericFlush", request<value1, value4, value2, value3, text, value5>, no_reply},
    {123, "PerformFullSyncSave", request<value>, one(bare<saved>)},
    {124, "GetFullSyncSaveStatus", request<>, one(bare<status>)},
};

} // namespace emulator::protocol::housekeeping
