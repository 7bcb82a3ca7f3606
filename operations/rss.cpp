// Software receive-side scaling.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr LumoRssTunables tunables {0x0102030405060708, 0x11121314};

constexpr LumoRssIndTable table_of(std::int32_t size)
{
    LumoRssIndTable table {};
    for (std::size_t i = 0; i < 128; ++i)
        table.entries[i] = static_cast<std::uint8_t>(i + 1);
    table.size = size;
    return table;
}

constexpr auto entries = [] {
    std::array<std::uint8_t, 128> bytes {};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i + 1);
    return bytes;
}();

constexpr LumoRssIndTable full = table_of(128);
constexpr LumoRssIndTable five = table_of(5);
constexpr LumoRssIndTable empty = table_of(0);
constexpr LumoRssIndTable negative = table_of(-2);

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SoftRSSGetStats),
        .command = 153,
        .shape = Shape::CountedArrays,
        .room = 804,
        .required = {0},
        .cases = {{"SoftRSSGetStats", {"target", out}, Request().text(64, "target")}}},
    {.function = NAMED(LUMOZEPH_SoftRSSStatsReset),
        .command = 154,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SoftRSSStatsReset", {"target"}, Request().text(64, "target")},
            {"SoftRSSStatsResetOfATargetOf64", {text_of<64, 't'>}, Request().text(64, text_of<63, 't'>)}}},
    {.function = NAMED(LUMOZEPH_SoftRSSGetTunables),
        .command = 155,
        .shape = Shape::BufferedRead,
        .room = 12,
        .required = {0},
        .cases = {{"SoftRSSGetTunables", {"target", out}, Request().text(64, "target")}}},
    // Kept: the second value is not sent.
    {.function = NAMED(LUMOZEPH_SoftRSSSetTunables),
        .command = 156,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SoftRSSSetTunablesWithoutTheSecondValue", {"target", block(tunables)},
            Request().text(64, "target").u64(128, 0x0102030405060708)}}},
    {.function = NAMED(LUMOZEPH_SoftRSSGetIndTable),
        .command = 157,
        .shape = Shape::BufferedRead,
        .room = 128,
        .required = {0},
        .cases = {{"SoftRSSGetIndTable", {"target", out}, Request().text(64, "target")}}},
    {.function = NAMED(LUMOZEPH_SoftRSSTableSet),
        .command = 158,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SoftRSSTableSet", {"target", block(full)},
                      Request().text(64, "target").bytes(128, entries).u32(256, 128)},
            {"SoftRSSTableSetOfFive", {"target", block(five)},
                Request().text(64, "target").bytes(128, entries, 5).u32(256, 5)},
            {"SoftRSSTableSetOfNone", {"target", block(empty)}, Request().text(64, "target")},
            {"SoftRSSTableSetOfANegativeSize", {"target", block(negative)},
                Request().text(64, "target").u32(256, 0xfffffffe)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter rss {"rss", rows};

} // namespace operations
