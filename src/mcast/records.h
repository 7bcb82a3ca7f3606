// Reply layouts of multicast routing, and the shapes of their lists.
#pragma once

#include "channel/read.h"
#include "lumozeph.h"

namespace lumo {

// clang-format off
template <>
inline constexpr auto layout<LumoMcastDomainInfo> = describe<LumoMcastDomainInfo>(
    text(0, AT(LumoMcastDomainInfo, text1)),
    text(64, AT(LumoMcastDomainInfo, text2)),
    copy(112, AT(LumoMcastDomainInfo, value1)),
    copy(120, AT(LumoMcastDomainInfo, value2)),
    copy(128, AT(LumoMcastDomainInfo, value3)),
    copy(136, AT(LumoMcastDomainInfo, value4)),
    copy(144, AT(LumoMcastDomainInfo, value5)));

template <>
inline constexpr auto layout<LumoLocalRcvrInfo> = describe<LumoLocalRcvrInfo>(
    text(0, AT(LumoLocalRcvrInfo, text1)),
    copy(64, AT(LumoLocalRcvrInfo, value1)),
    copy(68, AT(LumoLocalRcvrInfo, value2)),
    copy(72, AT(LumoLocalRcvrInfo, value3)),
    copy(80, AT(LumoLocalRcvrInfo, value4)));

template <>
inline constexpr auto layout<LumoMcastGroupInfo> = describe<LumoMcastGroupInfo>(
    copy(0, AT(LumoMcastGroupInfo, value1)),
    copy(4, AT(LumoMcastGroupInfo, value2)),
    copy(8, AT(LumoMcastGroupInfo, value3)));
// clang-format on

// Kept: the holder stays allocated when the device call fails, and a fragment at the end of the groups counts as one.
inline constexpr ListShape local_receivers {.cap = 512, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape groups {
    .cap = 4096, .on_device_error = Holder::LeftAllocated, .fragment = Fragment::DecodedAsRecord};

} // namespace lumo
