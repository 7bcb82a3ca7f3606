// IPv4 routes.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::routes {

inline constexpr std::size_t most = 8000;
inline constexpr std::size_t most_next_hops = 8;

using addressed::instance;

inline constexpr Ipv4 dest {"dest", 64};
inline constexpr Ipv4 mask {"mask", 68};
inline constexpr U32 resolve_param {"param", 72};
inline constexpr Ipv4 gateway {"gateway", 76};
inline constexpr U32 param {"param", 80};
inline constexpr Text lif {"lif", 84, 64};

namespace next_hop {
inline constexpr Ipv4 gateway {"nextHopAddr", 4};
inline constexpr Text lif {"nextHopLifName", 8, 64};
inline constexpr Bytes<8> value {"nextHopValue", 72};
inline constexpr Layout layout = fields_in<80, gateway, lif, value>;
} // namespace next_hop

// A route, or an interface policy.
namespace record {
inline constexpr Ipv4 dest {"routeDest", 0};
inline constexpr Ipv4 mask {"routeMask", 4};
inline constexpr U32 param {"routeValue1", 8};
inline constexpr U32 value2 {"routeValue2", 12};
inline constexpr U8 flags {"routeFlags", 16};
inline constexpr U8 next_hop_count {"nextHopCount", 17};
inline constexpr Bytes<8> value3 {"routeValue3", 20};
inline constexpr Table next_hops {"nextHops", 28, next_hop::layout, most_next_hops};
inline constexpr Layout layout = fields_in<668, dest, mask, param, value2, flags, next_hop_count, value3, next_hops>;
} // namespace record

inline constexpr Command commands[] = {
    {34, "SetRoute", request<instance, dest, mask, gateway, param, lif>, result_if_asked},
    {35, "DelRoute", request<instance, dest, mask, gateway, lif>, result_if_asked},
    {36, "GetRoutes", request<instance>, list(record::layout, most)},
    {37, "GetResolveRoute", request<instance, dest, mask, resolve_param>, one(record::layout)},
};

} // namespace emulator::protocol::routes
