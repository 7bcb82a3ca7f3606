// Reply layouts of IPv4 routes and interface policies, and the shape of their list.
#pragma once

#include "channel/read.h"
#include "lumozeph.h"

namespace lumo {

// clang-format off
template <>
inline constexpr auto layout<LumoNextHop> = describe<LumoNextHop>(
    skip(0, AT(LumoNextHop, uncopied)), // Kept: zero in every decoded slot.
    copy(4, AT(LumoNextHop, nextHopAddr)),
    text(8, AT(LumoNextHop, nextHopLifName)),
    copy(72, AT(LumoNextHop, nextHopValue)));

template <>
inline constexpr auto layout<LumoRouteInfo> = describe<LumoRouteInfo>(
    copy(0, AT(LumoRouteInfo, routeDest)),
    copy(4, AT(LumoRouteInfo, routeMask)),
    copy(8, AT(LumoRouteInfo, routeValue1)),
    copy(12, AT(LumoRouteInfo, routeValue2)),
    copy(16, AT(LumoRouteInfo, routeFlags)),
    copy(17, AT(LumoRouteInfo, nextHopCount)), // Kept: as reported, also beyond the eight slots.
    skip(18, AT(LumoRouteInfo, uncopied)),     // Kept: zero in every decoded record.
    copy(20, AT(LumoRouteInfo, routeValue3)),
    table<LumoNextHop>(28, AT(LumoRouteInfo, nextHops), AT(LumoRouteInfo, nextHopCount)));
// clang-format on

// Routes and interface policies come as the same list.
inline constexpr ListShape routes {.cap = 8000};

} // namespace lumo
