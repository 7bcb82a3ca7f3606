// Multicast domain and receivers.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::array<std::uint8_t, 6> hw_address {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};

constexpr Layout mcast_domain {.size = 148, .texts = {{0, 64, Usually::AUuid}, {64, 48, Usually::AName}}};

constexpr Layout local_receiver {.size = 88, .texts = {{0, 64, Usually::AUuid}}};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetMRoutingLocalRcvrs),
        .command = 128,
        .shape = Shape::ListRead,
        .room = 45056,
        .layouts = {local_receiver},
        .cap = 512,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseMRoutingLocalRcvrs),
        .cases = {{"GetMRoutingLocalRcvrs", {"inst", 0x01020304, out}, Request().text(0, "inst").u32(64, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_GetMRoutingRemoteRcvrs),
        .command = 129,
        .shape = Shape::CountedTable,
        .room = 139268,
        .release = RELEASED_BY(LUMOZEPH_ReleaseVTEPTable),
        .cases = {{"GetMRoutingRemoteRcvrs", {"inst", 0x01020304, out},
            Request().text(0, "inst").u32(64, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_GetMRoutingDomain),
        .command = 130,
        .shape = Shape::SingleRead,
        .room = 148,
        .layouts = {mcast_domain},
        .release = RELEASED_BY(LUMOZEPH_ReleaseMRoutingDomainData),
        .cases = {{"GetMRoutingDomain", {"inst", out}, Request().text(0, "inst")}}},
    {.function = NAMED(LUMOZEPH_AddMRoutingRemoteRcvrs),
        .command = 131,
        .shape = Shape::Send,
        .cases = {{"AddMRoutingRemoteRcvrs",
            {"inst", 0x01020304, 0x11121314, block(hw_address), 0x21222324, 0x31323334},
            Request()
                .text(0, "inst")
                .u32(64, 0x01020304)
                .u32(80, 0x21222324)
                .u32(84, 0x11121314)
                .bytes(88, hw_address)
                .u32(96, 0x31323334)}}},
    {.function = NAMED(LUMOZEPH_DelMRoutingRemoteRcvrs),
        .command = 132,
        .shape = Shape::Send,
        .remainder = Remainder::Uncleared,
        .cases = {{"DelMRoutingRemoteRcvrs", {"inst", 0x01020304, 0x11121314},
            Request().text(0, "inst", 64).u32(64, 0x01020304).u32(84, 0x11121314)}}},
    {.function = NAMED(LUMOZEPH_AddMRoutingLocalRcvrs),
        .command = 133,
        .shape = Shape::Send,
        .cases = {{"AddMRoutingLocalRcvrs", {"inst", 0x01020304, "text"},
                      Request().text(0, "inst").u32(64, 0x01020304).text(80, "text")},
            {"AddMRoutingLocalRcvrsWithoutText", {"inst", 1, nullptr}, Request().text(0, "inst").u32(64, 1)},
            {"AddMRoutingLocalRcvrsWithTextCutAt63", {"inst", 1, text_of<70, 't'>},
                Request().text(0, "inst").u32(64, 1).text(80, text_of<63, 't'>)}}},
    {.function = NAMED(LUMOZEPH_DelMRoutingLocalRcvrs),
        .command = 134,
        .shape = Shape::Send,
        .cases = {{"DelMRoutingLocalRcvrs", {"inst", 0x01020304, "text"},
                      Request().text(0, "inst").u32(64, 0x01020304).text(80, "text")},
            {"DelMRoutingLocalRcvrsWithoutText", {"inst", 1, nullptr}, Request().text(0, "inst").u32(64, 1)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter mcast_receivers {"mcast_receivers", rows};

} // namespace operations
