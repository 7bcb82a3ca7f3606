// Reply layouts of logical interfaces, and the shapes of their lists.
#pragma once

#include "channel/read.h"
#include "lumozeph.h"

namespace lumo {

// clang-format off
template <>
inline constexpr auto layout<LumoLifIpv6Addr> = describe<LumoLifIpv6Addr>(
    copy(0, AT(LumoLifIpv6Addr, address)),
    copy(16, AT(LumoLifIpv6Addr, prefixLen)),
    copy(20, AT(LumoLifIpv6Addr, value)),
    skip(21, AT(LumoLifIpv6Addr, uncopied))); // Kept: zero in every decoded entry.

template <>
inline constexpr auto layout<LumoLifInfo> = describe<LumoLifInfo>(
    text(0, AT(LumoLifInfo, lifName)),
    text(64, AT(LumoLifInfo, lifSecondName)),
    copy(128, AT(LumoLifInfo, ipAddr)),
    copy(132, AT(LumoLifInfo, ipMask)),
    copy(136, AT(LumoLifInfo, diIp)),
    copy(140, AT(LumoLifInfo, lifMac)),
    copy(146, AT(LumoLifInfo, lifValue1)),
    copy(150, AT(LumoLifInfo, lifValue2)),
    copy(154, AT(LumoLifInfo, lifValue3)),
    copy(158, AT(LumoLifInfo, lifFlags)),
    copy(162, AT(LumoLifInfo, dhcpRelay)),
    table<LumoLifIpv6Addr>(326, AT(LumoLifInfo, ipv6Addrs), AT(LumoLifInfo, ipv6Count)),
    copy(566, AT(LumoLifInfo, ipv6Count)), // Kept: as reported, also beyond the table's ten entries.
    copy(570, AT(LumoLifInfo, lifState1)),
    copy(571, AT(LumoLifInfo, lifState2)),
    copy(572, AT(LumoLifInfo, lifValue4)));
// clang-format on

inline constexpr ListShape lifs {.cap = 10000};
// Kept: the holder stays allocated when the device call fails.
inline constexpr ListShape bridge_lifs {.cap = 10000, .on_device_error = Holder::LeftAllocated};

} // namespace lumo
