// Bridges.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout bridge_instance {.size = 393,
    .texts = {{12, 64, Usually::AName}, {84, 128, Usually::AUuid}, {212, 81, Usually::AUuid}},
    .zeroed = {{293, 12}}};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SetBridgeRepMode),
        .command = 49,
        .shape = Shape::Send,
        .cases = {{"SetBridgeRepMode", {"bridge", 0x01020304}, Request().text(0, "bridge").u32(108, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_BridgeAdd),
        .command = 53,
        .shape = Shape::Send,
        .cases = {{"BridgeAdd", {"bridge", 0x01020304}, Request().text(0, "bridge").u32(64, 0x01020304)},
            {"BridgeAddWithALongKey", {text_of<64, 'b'>, 0}, Request().text(0, text_of<63, 'b'>)}}},
    {.function = NAMED(LUMOZEPH_BridgeDel),
        .command = 54,
        .shape = Shape::Send,
        .cases = {{"BridgeDel", {"bridge", 0x01020304}, Request().text(0, "bridge").u32(64, 0x01020304)}}},
    // Kept: one byte, where the other commands have four.
    {.function = NAMED(LUMOZEPH_BridgeEnable),
        .command = 55,
        .shape = Shape::Send,
        .cases = {{"BridgeEnableSendsOneByte", {"bridge", 255}, Request().text(0, "bridge").u8(64, 255)}}},
    {.function = NAMED(LUMOZEPH_BridgeDisable),
        .command = 56,
        .shape = Shape::Send,
        .cases = {{"BridgeDisableSendsOneByte", {"bridge", 254}, Request().text(0, "bridge").u8(64, 254)}}},
    {.function = NAMED(LUMOZEPH_GetBridgeInstances),
        .command = 61,
        .shape = Shape::ListRead,
        .room = 1609728,
        .layouts = {bridge_instance},
        .cap = 4096,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeInstances),
        .cases = {{"GetBridgeInstances", {out}}}},
    {.function = NAMED(LUMOZEPHGetBridgeInstances),
        .command = 61,
        .shape = Shape::ListWorker,
        .room = 1609728,
        .layouts = {bridge_instance},
        .cap = 4096,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeInstances),
        .cases = {{"GetBridgeInstancesWorker", {out}}}},
    {.function = NAMED(LUMOZEPH_GetBridgeInstance),
        .command = 62,
        .shape = Shape::SingleRead,
        .room = 393,
        .layouts = {bridge_instance},
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeInstance),
        .required = {0},
        .cases = {{"GetBridgeInstance", {"bridge", out}, Request().text(0, "bridge")},
            {"GetBridgeInstanceWithALongKey", {text_of<64, 'b'>, out}, Request().text(0, text_of<63, 'b'>)}}},
    // Kept: the number is the caller's.
    {.function = NAMED(LUMOZEPH_BridgeSetConfig),
        .command = 70,
        .shape = Shape::Send,
        .cases = {{"BridgeSetConfigSendsTheCallersNumber", {"bridge", 70, 0x01020304},
            Request().text(0, "bridge").u32(104, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_BridgeSetHAAdminState),
        .command = 118,
        .shape = Shape::Send,
        .cases = {{"BridgeSetHAAdminState", {"bridge", 0x01020304}, Request().text(0, "bridge").u32(64, 0x01020304)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter bridges {"bridges", rows};

} // namespace operations
