// Bridges.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::bridges {

inline constexpr std::size_t most = 4096;

inline constexpr Text key {"key", 0, 64};
inline constexpr U32 value {"value", 64};
inline constexpr U8 switch_value {"value", 64};
inline constexpr U32 ha_state {"state", 64};
inline constexpr U32 replication_mode {"mode", 108};

namespace record {
inline constexpr U64 value1 {"value1", 0};
inline constexpr U32 value {"value2", 8};
inline constexpr Text name {"name", 12, 64};
inline constexpr U32 enabled {"value3", 76};
inline constexpr U32 ha_state {"value4", 80};
inline constexpr Text text1 {"text1", 84, 128};
inline constexpr Text text2 {"text2", 212, 81};
inline constexpr U32 replication_mode {"value5", 305};
inline constexpr U32 fdb_entries {"value6", 309};
inline constexpr Table data {"data", 313, elements<U64>, 10};
inline constexpr Layout layout =
    fields_in<393, value1, value, name, enabled, ha_state, text1, text2, replication_mode, fdb_entries, data>;
} // namespace record

inline constexpr Command commands[] = {
    {49, "SetBridgeRepMode", request<key, replication_mode>, no_reply},
    {53, "BridgeAdd", request<key, value>, no_reply},
    {54, "BridgeDel", request<key, value>, no_reply},
    {55, "BridgeEnable", request<key, switch_value>, no_reply},
    {56, "BridgeDisable", request<key, switch_value>, no_reply},
    {61, "GetBridgeInstances", request<>, list(record::layout, most)},
    {62, "GetBridgeInstance", request<key>, one(record::layout)},
    {118, "BridgeSetHAAdminState", request<key, ha_state>, no_reply},
};

} // namespace emulator::protocol::bridges
