// Logical interfaces.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::array<std::uint8_t, 6> mac {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};

constexpr Layout lif {.size = 576,
    .texts = {{0, 64, Usually::AName}, {64, 64, Usually::AUuid}},
    .tables = {{.offset = 326, .stride = 24, .capacity = 10, .count = {566, 4}, .zeroed = {{21, 3}}}}};

// The request of a routed LIF with every field set, and that of a bridge LIF.
constexpr Request routed = Request()
                               .text(0, "inst")
                               .text(64, "aux")
                               .text(192, "lif")
                               .u32(320, 0x01020304)
                               .u32(324, 0x11121314)
                               .u32(328, 0x41424344)
                               .bytes(332, mac)
                               .u32(352, 0x21222324)
                               .u32(356, 0x31323334)
                               .u32(360, 0x51525354);
constexpr Request bridged = Request()
                                .text(0, "inst")
                                .text(64, "aux")
                                .text(192, "lif")
                                .u32(328, 0x31323334)
                                .u32(352, 0x11121314)
                                .u32(356, 0x21222324);

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SetLif),
        .command = 19,
        .shape = Shape::Send,
        .required = {8},
        .cases = {{"SetLif",
                      {"lif", "aux", 0x01020304, 0x11121314, 0x21222324, 0x31323334, 0x41424344, 0x51525354, "inst",
                          block(mac)},
                      routed},
            {"SetLifWithoutMac", {"lif", "aux", 1, 0, 0, 0, 0, 6, "inst", nullptr},
                Request().text(0, "inst").text(64, "aux").text(192, "lif").u32(320, 1).u32(360, 6)},
            {"SetLifWithLongNames", {text_of<80, 'x'>, text_of<80, 'x'>, 0, 0, 0, 0, 0, 0, text_of<80, 'x'>, nullptr},
                Request().text(0, text_of<63, 'x'>).text(64, text_of<63, 'x'>).text(192, text_of<63, 'x'>)},
            {"SetLifWithANameOf64", {text_of<64, 'l'>, "a", 0, 0, 0, 0, 0, 0, "i", nullptr},
                Request().text(0, "i").text(64, "a").text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_DelLif),
        .command = 20,
        .shape = Shape::Send,
        .required = {2},
        .cases = {{"DelLif", {"lif", "aux", "inst"}, Request().text(0, "inst").text(64, "aux").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_GetLifs),
        .command = 21,
        .shape = Shape::ListRead,
        .room = 5760000,
        .layouts = {lif},
        .cap = 10000,
        .release = RELEASED_BY(LUMOZEPH_ReleaseLifs),
        .cases = {{"GetLifs", {"router-1", out}, Request().text(0, "router-1")}}},
    {.function = NAMED(LUMOZEPH_GetLif),
        .command = 22,
        .shape = Shape::SingleRead,
        .room = 576,
        .layouts = {lif},
        .release = RELEASED_BY(LUMOZEPH_ReleaseLif),
        .required = {0, 1},
        .cases = {{"GetLif", {"router-1", "lif-1", out}, Request().text(0, "router-1").text(192, "lif-1")},
            {"GetLifWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_SetBridgeLif),
        .command = 57,
        .shape = Shape::Send,
        .cases = {{"SetBridgeLifOn", {"lif", "aux", 0x11121314, 0x21222324, 0x31323334, "inst", 1}, bridged},
            {"SetBridgeLifOnByAnyFlag", {"lif", "aux", 0x11121314, 0x21222324, 0x31323334, "inst", -256}, bridged}}},
    {.function = NAMED(LUMOZEPH_SetBridgeLif),
        .command = 58,
        .shape = Shape::Send,
        .cases = {{"SetBridgeLifOff", {"lif", "aux", 0x11121314, 0x21222324, 0x31323334, "inst", 0}, bridged}}},
    {.function = NAMED(LUMOZEPH_GetBridgeLifs),
        .command = 59,
        .shape = Shape::ListRead,
        .room = 5760000,
        .layouts = {lif},
        .cap = 10000,
        .on_device_error = Holder::LeftAllocated, // Kept.
        .release = RELEASED_BY(LUMOZEPH_ReleaseLifs),
        .cases = {{"GetBridgeLifs", {"router-1", out}, Request().text(0, "router-1")}}},
    {.function = NAMED(LUMOZEPH_GetBridgeLif),
        .command = 60,
        .shape = Shape::SingleRead,
        .room = 576,
        .layouts = {lif},
        .release = RELEASED_BY(LUMOZEPH_ReleaseLif),
        .required = {0, 1},
        .cases = {{"GetBridgeLif", {"router-1", "lif-1", out}, Request().text(0, "router-1").text(192, "lif-1")}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter lifs {"lifs", rows};

} // namespace operations
