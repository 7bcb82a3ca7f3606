// Flush, full-sync save and preparation for unloading.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_PreUnload), .command = 42, .shape = Shape::Bare, .cases = {{"PreUnload", {}}}},
    // Kept: the bytes lie in the order of the fourth, the second and the third argument.
    {.function = NAMED(LUMOZEPH_GenericFlush),
        .command = 80,
        .shape = Shape::Send,
        .cases =
            {{"GenericFlushCrossesItsBytes", {0x01020304, 1, 2, 3, "text", 0x11121314},
                 Request().u32(64, 0x01020304).u8(68, 3).u8(69, 1).u8(70, 2).text(71, "text").u32(136, 0x11121314)},
                {"GenericFlushWithoutText", {1, 2, 3, 4, nullptr, 5},
                    Request().u32(64, 1).u8(68, 4).u8(69, 2).u8(70, 3).u32(136, 5)},
                {"GenericFlushWithALongText", {0, 0, 0, 0, text_of<70, 't'>, 0},
                    Request().text(71, text_of<63, 't'>)}}},
    {.function = NAMED(LUMOZEPH_PerformFullSyncSave),
        .command = 123,
        .shape = Shape::RawRead,
        .room = 4,
        .cases = {{"PerformFullSyncSave", {255, out}, Request().u8(64, 255)}}},
    {.function = NAMED(LUMOZEPH_GetFullSyncSaveStatus),
        .command = 124,
        .shape = Shape::RawRead,
        .room = 4,
        .cases = {{"GetFullSyncSaveStatus", {out}}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter housekeeping {"housekeeping", rows};

} // namespace operations
