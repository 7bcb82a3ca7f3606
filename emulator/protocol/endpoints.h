// Bridge endpoints.
#pragma once

#include "emulator/protocol/bridges.h"

namespace emulator::protocol::endpoints {

inline constexpr std::size_t most = 28672;

inline constexpr Text text1 {"text1", 64, 64};
inline constexpr Text name {"name", 128, 64};
inline constexpr Text key {"key", 192, 64};
inline constexpr Text text2 {"text2", 256, 64};
inline constexpr U32 value1 {"value1", 352};
inline constexpr U32 value2 {"value2", 356};
inline constexpr U16 value3 {"value3", 528};
inline constexpr Text text3 {"text3", 530, 64};
inline constexpr U8 flag1 {"flag1", 594};
inline constexpr U8 flag2 {"flag2", 595};

namespace record {
inline constexpr Text key {"ident", 64, 64};
inline constexpr U16 value3 {"value1", 128};
inline constexpr U8 flag1 {"value2", 130};
inline constexpr U32 value1 {"value3", 131};
inline constexpr U32 value2 {"value4", 135};
inline constexpr Text name {"block.name", 139, 64};
inline constexpr U8 flag2 {"block.flag2", 203};
inline constexpr Layout layout = fields_in<235, key, value3, flag1, value1, value2, name, flag2>;
} // namespace record

namespace stats_record {
inline constexpr Text key {"key", 0, 64};
inline constexpr Bytes<82> rest {"rest", 64};
inline constexpr Layout layout = fields_in<146, key, rest>;
} // namespace stats_record

namespace status_record {
inline constexpr Text key {"key", 0, 64};
inline constexpr Bytes<165> rest {"rest", 64};
inline constexpr Layout layout = fields_in<229, key, rest>;
} // namespace status_record

inline constexpr Command commands[] = {
    {45, "AddBridgeEndpoint", request<text1, name, key, text2, value1, value2, value3, text3, flag1, flag2>, no_reply},
    {46, "DelBridgeEndpoint", request<name, key>, no_reply},
    {47, "FlushBridgeEndpointOn", request<>, no_reply},
    {48, "FlushBridgeEndpointOff", request<>, no_reply},
    {50, "GetBeStats", request<key>, one(stats_record::layout)},
    {51, "GetBeStatus", request<key>, one(status_record::layout)},
    {52, "GetBeAll", request<>, list(record::layout, most)},
    {95, "GetBridgeEndpoints", request<bridges::key>, list(record::layout, most)},
};

} // namespace emulator::protocol::endpoints
