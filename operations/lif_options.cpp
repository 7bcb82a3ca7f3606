// Interface addressing and options.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SetLifDIIp),
        .command = 25,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifDIIp", {"inst", "lif", 0x01020304},
            Request().text(0, "inst").text(192, "lif").u32(328, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_SetLifIp),
        .command = 26,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifIp", {"inst", "lif", 0x01020304, 0x11121314},
            Request().text(0, "inst").text(192, "lif").u32(320, 0x01020304).u32(324, 0x11121314)}}},
    {.function = NAMED(LUMOZEPH_DelLifIp),
        .command = 27,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"DelLifIp", {"inst", "lif", 0x01020304, 0x11121314},
            Request().text(0, "inst").text(192, "lif").u32(320, 0x01020304).u32(324, 0x11121314)}}},
    {.function = NAMED(LUMOZEPH_SetLifVxlanCP),
        .command = 28,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifVxlanCP", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_DelLifVxlanCP),
        .command = 29,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"DelLifVxlanCP", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_EnableLif),
        .command = 30,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"EnableLif", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")},
            {"EnableLifWithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_DisableLif),
        .command = 31,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"DisableLif", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_SetLifVxlanMulticastIp),
        .command = 32,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifVxlanMulticastIp", {"inst", "lif", 0x01020304},
            Request().text(0, "inst").text(192, "lif").u32(328, 0x01020304)}}},
    // Kept: the interface's name goes into two fields.
    {.function = NAMED(LUMOZEPH_SetLifIpv6),
        .command = 108,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifIpv6SendsTheNameTwice", {"inst", "lif", 0x0102030405060708, 0x1112131415161718, 64},
                      Request()
                          .text(0, "inst")
                          .u64(64, 0x0102030405060708)
                          .u64(72, 0x1112131415161718)
                          .text(84, "lif")
                          .u8(148, 64)
                          .text(192, "lif")},
            {"SetLifIpv6WithPrefixLengthCutToAByte", {"i", "l", 0, 0, 300},
                Request().text(0, "i").text(84, "l").u8(148, 44).text(192, "l")},
            {"SetLifIpv6WithUnterminatedTexts",
                {text_of<65, 'i'>, text_of<70, 'l'>, 0x0102030405060708, 0x1112131415161718, 128},
                Request()
                    .text(0, text_of<64, 'i'>)
                    .u64(64, 0x0102030405060708)
                    .u64(72, 0x1112131415161718)
                    .text(84, text_of<64, 'l'>)
                    .u8(148, 128)
                    .text(192, text_of<64, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_DelLifIpv6),
        .command = 109,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"DelLifIpv6SendsTheNameTwice", {"inst", "lif", 0x0102030405060708, 0x1112131415161718, 64},
                      Request()
                          .text(0, "inst")
                          .u64(64, 0x0102030405060708)
                          .u64(72, 0x1112131415161718)
                          .text(84, "lif")
                          .u8(148, 64)
                          .text(192, "lif")},
            {"DelLifIpv6WithUnterminatedTexts", {text_of<64, 'i'>, text_of<64, 'l'>, 0, 0, 0},
                Request().text(0, text_of<64, 'i'>).text(84, text_of<64, 'l'>).text(192, text_of<64, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_SetLifMcastRouting),
        .command = 125,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifMcastRoutingOn", {"inst", "lif", 1}, Request().text(0, "inst").text(192, "lif")},
            {"SetLifMcastRoutingOnByAnyFlag", {"inst", "lif", 255}, Request().text(0, "inst").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_SetLifMcastRouting),
        .command = 126,
        .shape = Shape::Send,
        .required = {0, 1},
        .cases = {{"SetLifMcastRoutingOff", {"inst", "lif", 0}, Request().text(0, "inst").text(192, "lif")}}},
    {.function = NAMED(LUMOZEPH_SetMcastRouting),
        .command = 127,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SetMcastRouting", {"inst", "name", 0x01020304, 0x11121314, 0x2122, 0x31},
                      Request()
                          .text(0, "inst")
                          .text(64, "name")
                          .u32(128, 0x01020304)
                          .u32(132, 0x11121314)
                          .u16(136, 0x2122)
                          .u8(138, 0x31)},
            {"SetMcastRoutingWithLongTexts", {text_of<64, 'i'>, text_of<64, 'n'>, 0, 0, 0, 0},
                Request().text(0, text_of<63, 'i'>).text(64, text_of<63, 'n'>)}}},
    {.function = NAMED(LUMOZEPH_RAMTUSetv6),
        .command = 152,
        .shape = Shape::Send,
        .cases =
            {{"RAMTUSetv6",
                 {"inst", "lif", 0x01020304}, Request().text(0, "inst").text(192, "lif").u32(64, 0x01020304)},
                {"RAMTUSetv6WithMtu0", {"inst", "lif", 0}, Request().text(0, "inst").text(192, "lif")},
                {"RAMTUSetv6WithLongNames", {text_of<64, 'i'>, text_of<64, 'l'>, 1500},
                    Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>).u32(64, 1500)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter lif_options {"lif_options", rows};

} // namespace operations
