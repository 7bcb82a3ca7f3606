// Router instances.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout instance {
    .size = 256, .texts = {{0, 64, Usually::AUuid}, {136, 64, Usually::AUuid}}, .zeroed = {{93, 2}}};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetInstances),
        .command = 0,
        .shape = Shape::ListRead,
        .room = 256000,
        .layouts = {instance},
        .cap = 1000,
        .release = RELEASED_BY(LUMOZEPH_ReleaseInstances),
        .cases = {{"GetInstances", {out}}}},
    {.function = NAMED(LUMOZEPH_GetInstance),
        .command = 1,
        .shape = Shape::SingleRead,
        .room = 256,
        .layouts = {instance},
        .release = RELEASED_BY(LUMOZEPH_ReleaseInstance),
        .required = {0},
        .cases = {{"GetInstance", {"router-1", out}, Request().text(0, "router-1")},
            {"GetInstanceWithKeyCutAt63", {text_of<64, 'k'>, out}, Request().text(0, text_of<63, 'k'>)}}},
    {.function = NAMED(LUMOZEPH_SetLumoInstance),
        .command = 2,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SetLumoInstance", {"router-1", 0x01020304, "eighteen", 0x05060708},
                      Request().text(0, "router-1").u32(64, 0x01020304).text(140, "eighteen").u32(160, 0x05060708)},
            {"SetLumoInstanceWithoutText", {"router-1", 0x01020304, nullptr, 0x05060708},
                Request().text(0, "router-1").u32(64, 0x01020304).u32(160, 0x05060708)},
            {"SetLumoInstanceWithUnterminatedText", {"r", 1, "123456789012345678", 2},
                Request().text(0, "r").u32(64, 1).text(140, "123456789012345678").u32(160, 2)},
            {"SetLumoInstanceWithTextCutAt18", {"r", 1, "1234567890123456789abc", 2},
                Request().text(0, "r").u32(64, 1).text(140, "123456789012345678").u32(160, 2)},
            {"SetLumoInstanceWithKeyCutAt63", {text_of<70, 'k'>, 0, nullptr, 0}, Request().text(0, text_of<63, 'k'>)}}},
    {.function = NAMED(LUMOZEPH_DelLumoInstance),
        .command = 3,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"DelLumoInstance", {"router-1"}, Request().text(0, "router-1")},
            {"DelLumoInstanceWithKeyCutAt63", {text_of<64, 'k'>}, Request().text(0, text_of<63, 'k'>)},
            {"DelLumoInstanceWithEmptyKey", {""}}}},
    {.function = NAMED(LUMOZEPH_SetLumoInstanceTunables),
        .command = 4,
        .shape = Shape::Send,
        .required = {0},
        .cases = {{"SetLumoInstanceTunables", {"router-1", "knobs", 0x0a0b0c0d},
                      Request().text(0, "router-1").text(68, "knobs").u32(132, 0x0a0b0c0d)},
            {"SetLumoInstanceTunablesCutAt63", {"router-1", text_of<64, 't'>, 0xffffffff},
                Request().text(0, "router-1").text(68, text_of<63, 't'>).u32(132, 0xffffffff)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter instances {"instances", rows};

} // namespace operations
