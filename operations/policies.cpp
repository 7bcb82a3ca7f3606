// Policies.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout policy {.size = 28};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetPolicy),
        .command = 119,
        .shape = Shape::ListRead,
        .room = 28000,
        .layouts = {policy},
        .cap = 1000,
        .release = RELEASED_BY(LUMOZEPH_ReleaseAllPolicy),
        .cases = {{"GetPolicy", {0x01020304, out}, Request().u32(220, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_SetPolicy),
        .command = 120,
        .shape = Shape::ResultSend,
        .cases = {{"SetPolicy", {0x01020304, 0x11121314, 0x21222324, 0x31323334, out},
            Request().u32(64, 0x11121314).u32(68, 0x21222324).u32(212, 0x31323334).u32(220, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_DelPolicy),
        .command = 121,
        .shape = Shape::ResultSend,
        .cases = {{"DelPolicy", {0x01020304, 0x11121314, 0x21222324, out},
            Request().u32(64, 0x11121314).u32(68, 0x21222324).u32(220, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_GetPolicyCount),
        .command = 122,
        .shape = Shape::BufferedRead,
        .room = 4,
        .remainder = Remainder::Uncleared,
        .cases = {{"GetPolicyCount", {0x01020304, out}, Request().u32(0, 0).u32(220, 0x01020304)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter policies {"policies", rows};

} // namespace operations
