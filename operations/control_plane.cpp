// Control-plane attachment.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout sync_state {
    .size = 1420, .tables = {{.offset = 0, .stride = 284, .capacity = 5, .count = {0, 0}, .zeroed = {{92, 8}}}}};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_CPActivate),
        .command = 7,
        .shape = Shape::SetValue,
        .cases = {{"CPActivate", {0x89abcdef}}}},
    {.function = NAMED(LUMOZEPH_SetCPIp),
        .command = 8,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SetCPIp", {"inst", 0x01020304}, Request().text(0, "inst").u32(136, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_GetLumoInstanceCPSyncState),
        .command = 87,
        .shape = Shape::SingleRead,
        .room = 1420,
        .layouts = {sync_state},
        .release = RELEASED_BY(LUMOZEPH_ReleaseStats),
        .required = {0},
        .cases = {{"GetLumoInstanceCPSyncState", {"inst", out}, Request().text(0, "inst")}}},
    {.function = NAMED(LUMOZEPH_SetLumoInstanceCPSyncState),
        .command = 88,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SetLumoInstanceCPSyncState", {"inst", 0x01020304}, Request().text(0, "inst").u32(64, 0x01020304)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter control_plane {"control_plane", rows};

} // namespace operations
