// Statistics.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

// The kind of the record chooses which counters arrive.
constexpr Few<Layout> kinds {
    // Kept: the counter at 68 stays zero.
    {.size = 804, .zeroed = {{68, 8}, {228, 576}}, .pinned = {{0, 4, 0}}, .name = "OfKind0"},
    // Kept: the counters at 572 and 620 stay zero, and that at 668 arrives twice.
    {.size = 804,
        .zeroed = {{572, 8}, {620, 8}},
        .repeated = {{668, 676, 8}},
        .pinned = {{0, 4, 1}},
        .name = "OfKind1"},
    // Kept: the first counter stays zero.
    {.size = 804, .zeroed = {{4, 8}, {164, 640}}, .pinned = {{0, 4, 3}}, .name = "OfKind3"},
    // Kept: of any other kind, the kind alone arrives.
    {.size = 804, .zeroed = {{4, 800}}, .name = "OfAnotherKind"},
};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetLumoInstanceCPStats),
        .command = 5,
        .shape = Shape::SingleRead,
        .room = 804,
        .layouts = kinds,
        .release = RELEASED_BY(LUMOZEPH_ReleaseStats),
        .required = {0},
        .cases = {{"GetLumoInstanceCPStats", {"inst", out}, Request().text(0, "inst")}}},
    {.function = NAMED(LUMOZEPH_ResetLumoInstanceCPStats),
        .command = 6,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"ResetLumoInstanceCPStats", {"inst"}, Request().text(0, "inst")}}},
    {.function = NAMED(LUMOZEPH_GetLifStats),
        .command = 23,
        .shape = Shape::SingleRead,
        .room = 804,
        .layouts = kinds,
        .release = RELEASED_BY(LUMOZEPH_ReleaseStats),
        .required = {0},
        .cases = {{"GetLifStats", {"inst", "lif", out}, Request().text(0, "inst").text(192, "lif")},
            {"GetLifStatsWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_GetLifStatsCached),
        .command = 23,
        .shape = Shape::SingleRead,
        .room = 804,
        .layouts = kinds,
        .release = RELEASED_BY(LUMOZEPH_ReleaseStats),
        .required = {0},
        .cases = {{"GetLifStatsCached", {"inst", "lif", out}, Request().text(0, "inst").text(192, "lif").u32(360, 1)}}},
    {.function = NAMED(LUMOZEPH_ResetLifStats),
        .command = 24,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"ResetLifStats", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_GetLumoDiStats),
        .command = 43,
        .shape = Shape::SingleRead,
        .room = 804,
        .layouts = kinds,
        .release = RELEASED_BY(LUMOZEPH_ReleaseStats),
        .cases = {{"GetLumoDiStats", {out}}}},
    {.function = NAMED(LUMOZEPH_ResetLumoDiStats),
        .command = 44,
        .shape = Shape::Send,
        .cases = {{"ResetLumoDiStats", {}}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter stats {"stats", rows};

} // namespace operations
