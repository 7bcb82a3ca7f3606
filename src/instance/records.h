// Reply layouts of router instances, and the shape of their list.
#pragma once

#include "channel/read.h"
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

template <>
inline constexpr auto layout<LumoCPSyncStateEntry> = describe<LumoCPSyncStateEntry>(
    copy(0, AT(LumoCPSyncStateEntry, value1)),
    copy(8, AT(LumoCPSyncStateEntry, value2)),
    copy(12, AT(LumoCPSyncStateEntry, value3)),
    copy(16, AT(LumoCPSyncStateEntry, value4)),
    copy(20, AT(LumoCPSyncStateEntry, value5)),
    copy(24, AT(LumoCPSyncStateEntry, value6)),
    copy(28, AT(LumoCPSyncStateEntry, values7)),
    skip(92, AT(LumoCPSyncStateEntry, uncopied)), // Kept: zero in every decoded entry.
    copy(100, AT(LumoCPSyncStateEntry, values8)));

template <>
inline constexpr auto layout<LumoCPSyncState> = describe<LumoCPSyncState>(
    table<LumoCPSyncStateEntry>(0, AT(LumoCPSyncState, entries)));

// The counters of a statistics record that one of its kinds has.
struct StatsOfKind0;
struct StatsOfKind1;
struct StatsOfKind3;

// So many counters, from the one at the index on.
consteval Member counters(std::size_t index, std::size_t count)
{
    return {offsetof(LumoStats, counters) + index * sizeof(uint64_t), count * sizeof(uint64_t)};
}

template <>
inline constexpr auto layout<StatsOfKind0> = describe<LumoStats>(
    copy(0, AT(LumoStats, statsKind)),
    copy(4, counters(0, 8)),
    skip(68, counters(8, 1)), // Kept: this counter stays zero.
    copy(76, counters(9, 19)),
    skip(228, counters(28, 72)));

template <>
inline constexpr auto layout<StatsOfKind1> = describe<LumoStats>(
    copy(0, AT(LumoStats, statsKind)),
    copy(4, counters(0, 71)),
    skip(572, counters(71, 1)), // Kept: this counter stays zero,
    copy(580, counters(72, 5)),
    skip(620, counters(77, 1)), // and this one.
    copy(628, counters(78, 6)),
    copy_from(668, 676, counters(84, 1)), // Kept: the counter before it arrives twice.
    copy(684, counters(85, 15)));

template <>
inline constexpr auto layout<StatsOfKind3> = describe<LumoStats>(
    copy(0, AT(LumoStats, statsKind)),
    skip(4, counters(0, 1)), // Kept: this counter stays zero.
    copy(12, counters(1, 19)),
    skip(164, counters(20, 80)));
// clang-format on

inline constexpr ListShape instances {.cap = 1000};

// Kept: a record of any other kind has nothing but its kind.
template <>
inline void decode<LumoStats>(char* to, const char* from)
{
    uint32_t kind;
    std::memcpy(&kind, from + offsetof(LumoStats, statsKind), sizeof kind);
    switch (kind) {
    case 0:
        return decode<StatsOfKind0>(to, from);
    case 1:
        return decode<StatsOfKind1>(to, from);
    case 3:
        return decode<StatsOfKind3>(to, from);
    default:
        std::memcpy(to + offsetof(LumoStats, statsKind), &kind, sizeof kind);
    }
}

} // namespace lumo
