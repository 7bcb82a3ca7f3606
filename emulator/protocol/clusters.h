// Bridge clusters, their nodes and the local transport node.
#pragma once

#include "emulator/protocol/bridges.h"

namespace emulator::protocol::clusters {

inline constexpr std::size_t most = 10;
inline constexpr std::size_t most_nodes = 100; // of all clusters together

using bridges::key;

inline constexpr Text node {"node", 64, 64};
inline constexpr Mac mac {"mac", 128};

inline constexpr U8 level {"level", 64};

inline constexpr U8 flag {"flag", 64};
inline constexpr U32 value1 {"value1", 68};
inline constexpr U32 value2 {"value2", 72};

namespace record {
inline constexpr Text key {"ident", 0, 64};
inline constexpr U32 nodes {"value1", 72};
inline constexpr U8 profile_flag {"block.flag", 76};
inline constexpr U32 profile_value1 {"block.value1", 77};
inline constexpr U32 profile_value2 {"block.value2", 81};
inline constexpr U16 value2 {"value2", 172};
inline constexpr U16 value3 {"value3", 174};
inline constexpr U16 value4 {"value4", 176};
inline constexpr U8 debug_level {"value5", 178};
inline constexpr U32 value6 {"value6", 179};
inline constexpr Layout layout = fields_in<183, key, nodes, profile_flag, profile_value1, profile_value2, value2,
    value3, value4, debug_level, value6>;
} // namespace record

namespace node_record {
inline constexpr Text name {"ident", 0, 64};
inline constexpr Mac mac {"mac", 64}; // value1 and value2 of the public record
inline constexpr U8 value3 {"value3", 70};
inline constexpr Layout layout = fields_in<71, name, mac, value3>;
} // namespace node_record

namespace transport {
inline constexpr Text text1 {"text1", 64, 64};
inline constexpr Text text2 {"text2", 128, 64};
inline constexpr Text text3 {"text3", 192, 16};
inline constexpr U32 value {"value", 208};
inline constexpr Bytes<64> block {"block", 212};
inline constexpr U32 selector {"selector", 276};
} // namespace transport

// What was sent.
namespace transport_record {
inline constexpr Text text1 {"text1", 0, 64};
inline constexpr Text text2 {"text2", 64, 64};
inline constexpr Text text3 {"text3", 128, 16};
inline constexpr U32 value {"value", 144};
inline constexpr Bytes<64> block {"block", 148};
inline constexpr Layout layout = fields_in<2048, text1, text2, text3, value, block>;
} // namespace transport_record

inline constexpr Bytes<16> locale_id {"localeId", 0};

inline constexpr Command commands[] = {
    {86, "GetLocaleId", request<>, one(bare<locale_id>)},
    {89, "GetBridgeClusters", request<key>, list(record::layout, most)},
    {90, "BridgeClusterSetOn", request<key>, no_reply},
    {91, "BridgeClusterSetOff", request<key>, no_reply},
    {92, "GetBridgeClusterNodes", request<key>, list(node_record::layout, most_nodes)},
    {93, "BridgeClusterNodeSetOn", request<key, node, mac>, no_reply},
    {94, "BridgeClusterNodeSetOff", request<key, node>, no_reply},
    {100, "BridgeLocalTransportNodeSetOn",
        request<transport::text1, transport::text2, transport::text3, transport::value, transport::block>, no_reply},
    {101, "BridgeLocalTransportNodeSetOff",
        request<transport::text1, transport::text2, transport::text3, transport::value, transport::block>, no_reply},
    {102, "BridgeGetLocalTransportNode", request<transport::selector>, one(transport_record::layout)},
    {103, "FlushBridgeClusterOn", request<key>, no_reply},
    {104, "FlushBridgeClusterOff", request<key>, no_reply},
    {106, "BridgeClusterBfdHAProfileSet", request<key, flag, value1, value2>, no_reply},
    {107, "SetBridgeClusterDebug", request<key, level>, no_reply},
};

} // namespace emulator::protocol::clusters
