// IPv6 routes and path MTU.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::routes6 {

inline constexpr std::size_t most = 29999;

using addressed::instance;

inline constexpr Ipv6 dest {"dest", 68};
inline constexpr U8 prefix_len {"prefixLen", 84};
inline constexpr Ipv6 gateway {"gateway", 101};
inline constexpr Text lif {"lif", 117, 64};

// A route is reported as the request that adds it.
inline constexpr const Layout& entry = request<instance, dest, prefix_len, gateway, lif>;

inline constexpr U32 count {"count", 0};

inline constexpr Command commands[] = {
    {110, "SetRoutev6", request<instance, dest, prefix_len, gateway, lif>, no_reply},
    {111, "DelRoutev6", request<instance, dest, prefix_len, gateway, lif>, no_reply},
    {114, "GetRoutesv6", request<instance>, list(entry, most)},
    {115, "GetRoutesv6Count", request<instance>, one(bare<count>)},
    {151, "PMTUTableCearv6", no_input, no_reply},
};

} // namespace emulator::protocol::routes6
