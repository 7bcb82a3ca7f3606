// Bridge networks and ports.
#pragma once

#include "emulator/protocol/bridges.h"

namespace emulator::protocol::networks {

inline constexpr std::size_t most = 32768; // of each

using bridges::key;

inline constexpr U32 value16 {"value16", 68};
inline constexpr U32 value32 {"value32", 72};
inline constexpr Flag selected {"selected", 76, 4};

namespace network_record {
inline constexpr U64 value1 {"value1", 0};
inline constexpr U32 value2 {"value2", 8};
inline constexpr U16 value3 {"value3", 12};
inline constexpr U32 value4 {"value4", 14};
inline constexpr U16 value5 {"value5", 18};
inline constexpr U32 value6 {"value6", 20};
inline constexpr U32 value7 {"value7", 24};
inline constexpr U8 value8 {"value8", 28};
inline constexpr Table data {"data", 29, elements<U64>, 12};
inline constexpr Layout layout = fields_in<133, value1, value2, value3, value4, value5, value6, value7, value8, data>;
} // namespace network_record

namespace port_record {
inline constexpr U64 value1 {"value1", 0};
inline constexpr U32 value2 {"value2", 8};
inline constexpr U16 value3 {"value3", 12};
inline constexpr U32 value4 {"value4", 14};
inline constexpr Table data {"data", 18, elements<U64>, 16};
inline constexpr Layout layout = fields_in<146, value1, value2, value3, value4, data>;
} // namespace port_record

inline constexpr Command commands[] = {
    {63, "GetBridgeNetworks", request<key>, list(network_record::layout, most)},
    {64, "GetBridgePorts", request<key, value16, value32, selected>, list(port_record::layout, most)},
};

} // namespace emulator::protocol::networks
