// Bridge endpoints.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout endpoint {.size = 235, .zeroed = {{0, 64}}};

constexpr Operation rows[] {
    // Kept: the key lies at 192 and the first field stays empty.
    {.function = NAMED(LUMOZEPH_AddBridgeEndpoint),
        .command = 45,
        .shape = Shape::Send,
        .cases = {{"AddBridgeEndpointHasItsKeyAt192",
                      {"key", "text1", "name", 0x01020304, 0x11121314, "text2", 0x2122, 0x31, "text3", 0x41},
                      Request()
                          .text(64, "text1")
                          .text(128, "name")
                          .text(192, "key")
                          .text(256, "text2")
                          .u32(352, 0x01020304)
                          .u32(356, 0x11121314)
                          .u16(528, 0x2122)
                          .text(530, "text3")
                          .u8(594, 0x31)
                          .u8(595, 0x41)},
            {"AddBridgeEndpointWithLongTexts",
                {text_of<64, 'k'>, text_of<64, '1'>, text_of<64, 'n'>, 0, 0, text_of<64, '2'>, 0, 0, text_of<64, '3'>,
                    0},
                Request()
                    .text(64, text_of<63, '1'>)
                    .text(128, text_of<63, 'n'>)
                    .text(192, text_of<63, 'k'>)
                    .text(256, text_of<63, '2'>)
                    .text(530, text_of<63, '3'>)}}},
    {.function = NAMED(LUMOZEPH_DelBridgeEndpoint),
        .command = 46,
        .shape = Shape::Send,
        .cases = {{"DelBridgeEndpoint", {"key", "name"}, Request().text(128, "name").text(192, "key")}}},
    {.function = NAMED(LUMOZEPH_FlushBridgeEndpoint),
        .command = 47,
        .shape = Shape::Send,
        .cases = {{"FlushBridgeEndpointOn", {1}}, {"FlushBridgeEndpointOnByAnySwitch", {-1}}}},
    {.function = NAMED(LUMOZEPH_FlushBridgeEndpoint),
        .command = 48,
        .shape = Shape::Send,
        .cases = {{"FlushBridgeEndpointOff", {0}}}},
    // Kept: the key lies at 192 and the first field stays empty.
    {.function = NAMED(LUMOZEPH_GetBeStats),
        .command = 50,
        .shape = Shape::RawRead,
        .room = 146,
        .cases = {{"GetBeStatsHasItsKeyAt192", {"key", out}, Request().text(192, "key")}}},
    {.function = NAMED(LUMOZEPH_GetBeStatus),
        .command = 51,
        .shape = Shape::RawRead,
        .room = 229,
        .cases = {{"GetBeStatusHasItsKeyAt192", {text_of<64, 'k'>, out}, Request().text(192, text_of<63, 'k'>)}}},
    {.function = NAMED(LUMOZEPH_GetBeAll),
        .command = 52,
        .shape = Shape::CountedRead,
        .room = 1000,
        .cases = {{"GetBeAll", {out, 1000, count}}}},
    {.function = NAMED(LUMOZEPH_GetBridgeEndpoints),
        .command = 95,
        .shape = Shape::ListRead,
        .room = 6737920,
        .layouts = {endpoint},
        .cap = 28672,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeEndpoints),
        .cases = {{"GetBridgeEndpoints", {"bridge", out}, Request().text(0, "bridge")},
            {"GetBridgeEndpointsOfAll", {nullptr, out}}}},
    {.function = NAMED(LUMOZEPHGetBridgeEndpoints),
        .command = 95,
        .shape = Shape::ListWorker,
        .room = 6737920,
        .layouts = {endpoint},
        .cap = 28672,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeEndpoints),
        .cases = {{"GetBridgeEndpointsWorker", {"k", out}, Request().text(0, "k")}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter endpoints {"endpoints", rows};

} // namespace operations
