// Reply layouts of router instances.
#pragma once

#include "channel/record.h"
#include "lumozeph.h"

namespace lumo {

// clang-format off
template <>
inline constexpr auto layout<LumoInstanceInfo> = describe<LumoInstanceInfo>(
    text(0, AT(LumoInstanceInfo, instanceKey)),
    copy(64, AT(LumoInstanceInfo, value1)),
    copy(68, AT(LumoInstanceInfo, value2)),
    copy(72, AT(LumoInstanceInfo, value3)),
    copy(74, AT(LumoInstanceInfo, value4)),
    copy(76, AT(LumoInstanceInfo, value5)),
    copy(78, AT(LumoInstanceInfo, value6)),
    copy(82, AT(LumoInstanceInfo, value7)),
    copy(86, AT(LumoInstanceInfo, value8)),
    copy(90, AT(LumoInstanceInfo, value9)),
    copy(91, AT(LumoInstanceInfo, value10)),
    skip(93, AT(LumoInstanceInfo, uncopied)), // Kept: zero in every decoded record.
    copy(95, AT(LumoInstanceInfo, value11)),
    copy(96, AT(LumoInstanceInfo, value12)),
    copy(97, AT(LumoInstanceInfo, bytes1)),
    copy(110, AT(LumoInstanceInfo, words)),
    copy(126, AT(LumoInstanceInfo, value13)),
    copy(130, AT(LumoInstanceInfo, value14)),
    copy(132, AT(LumoInstanceInfo, value15)),
    copy(133, AT(LumoInstanceInfo, value16)),
    copy(135, AT(LumoInstanceInfo, value17)),
    text(136, AT(LumoInstanceInfo, text2)),
    copy(200, AT(LumoInstanceInfo, value18)),
    copy(202, AT(LumoInstanceInfo, bytes2)),
    copy(234, AT(LumoInstanceInfo, value19)),
    copy(242, AT(LumoInstanceInfo, value20)),
    copy(246, AT(LumoInstanceInfo, value21)),
    copy(247, AT(LumoInstanceInfo, value22)),
    copy(251, AT(LumoInstanceInfo, value23)),
    copy(255, AT(LumoInstanceInfo, value24)));
// clang-format on

} // namespace lumo
