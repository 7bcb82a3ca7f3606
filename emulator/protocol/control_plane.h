// The attachment of instances to their control plane.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::control_plane {

using addressed::instance;

inline constexpr U32 value {"value", 0};
inline constexpr Ipv4 address {"address", 136};
inline constexpr U32 state {"state", 64};

namespace entry {
inline constexpr U64 value1 {"value1", 0};
inline constexpr U32 state {"value2", 8};
inline constexpr Ipv4 address {"value3", 12};
inline constexpr U32 active {"value4", 16};
inline constexpr U32 value5 {"value5", 20};
inline constexpr U32 value6 {"value6", 24};
inline constexpr Table values7 {"values7", 28, elements<U64>, 8};
inline constexpr Table values8 {"values8", 100, elements<U64>, 23};
inline constexpr Layout layout = fields_in<284, value1, state, address, active, value5, value6, values7, values8>;
} // namespace entry

namespace record {
inline constexpr Table entries {"entries", 0, entry::layout, 5};
inline constexpr Layout layout = fields_in<1420, entries>;
} // namespace record

inline constexpr Command commands[] = {
    {7, "CPActivate", bare<value>, no_reply},
    {8, "SetCPIp", request<instance, address>, no_reply},
    {87, "GetLumoInstanceCPSyncState", request<instance>, one(record::layout)},
    {88, "SetLumoInstanceCPSyncState", request<instance, state>, no_reply},
};

} // namespace emulator::protocol::control_plane
