// Multicast groups, replication and router addresses.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout mcast_group {.size = 12};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetMRoutingAllMcastGroups),
        .command = 135,
        .shape = Shape::ListRead,
        .room = 49152,
        .layouts = {mcast_group},
        .cap = 4096,
        .on_device_error = Holder::LeftAllocated,
        .fragment = Fragment::DecodedAsRecord,
        .release = RELEASED_BY(LUMOZEPH_ReleaseMRoutingMcastGroups),
        .cases = {{"GetMRoutingAllMcastGroups", {text_of<64, 'i'>, out}, Request().text(0, text_of<63, 'i'>)}}},
    {.function = NAMED(LUMOZEPH_GetMRoutingReplicationIP),
        .command = 136,
        .shape = Shape::RawRead,
        .room = 4,
        .cases = {{"GetMRoutingReplicationIP", {"inst", 0x01020304, out},
            Request().text(0, "inst").u32(64, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_AddMRoutingMRouter),
        .command = 137,
        .shape = Shape::Send,
        .cases = {{"AddMRoutingMRouter", {"inst", 0x01020304}, Request().text(0, "inst").u32(64, 0x01020304)}}},
    // Kept: the removal names no value.
    {.function = NAMED(LUMOZEPH_DelMRoutingMRouter),
        .command = 138,
        .shape = Shape::Send,
        .cases = {{"DelMRoutingMRouterNamesNoValue", {"inst"}, Request().text(0, "inst")}}},
    {.function = NAMED(LUMOZEPH_GetMRoutingMRouterIP),
        .command = 139,
        .shape = Shape::RawRead,
        .room = 4,
        .cases = {{"GetMRoutingMRouterIP", {"inst", 0x01020304, out}, Request().text(0, "inst").u32(64, 0x01020304)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter mcast_groups {"mcast_groups", rows};

} // namespace operations
