// Bridge networks and ports.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr Layout bridge_network {.size = 133, .zeroed = {{125, 8}}};

constexpr Layout bridge_port {.size = 146};

constexpr Operation rows[] {
    // Kept: of the two texts that are copied into the key, the second is sent.
    {.function = NAMED(LUMOZEPH_GetBridgeNetworks),
        .command = 63,
        .shape = Shape::ListRead,
        .room = 4358144,
        .layouts = {bridge_network},
        .cap = 32768,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeNetworks),
        .cases = {{"GetBridgeNetworksSendsTheSecondKey", {"f", "k", out}, Request().text(0, "k")}}},
    {.function = NAMED(LUMOZEPHGetBridgeNetworks),
        .command = 63,
        .shape = Shape::ListWorker,
        .room = 4358144,
        .layouts = {bridge_network},
        .cap = 32768,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeNetworks),
        .cases = {{"GetBridgeNetworksWorker", {"f", "k", out}, Request().text(0, "k")}}},
    {.function = NAMED(LUMOZEPH_GetBridgePorts),
        .command = 64,
        .shape = Shape::ListRead,
        .room = 4784128,
        .layouts = {bridge_port},
        .cap = 32768,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgePorts),
        .cases = {{"GetBridgePortsSendsTheSecondKey", {"a longer first", "k", 65535, 0x01020304, out},
            Request().text(0, "k").u32(68, 65535).u32(72, 0x01020304).u32(76, 1)}}},
    {.function = NAMED(LUMOZEPHGetBridgePorts),
        .command = 64,
        .shape = Shape::ListWorker,
        .room = 4784128,
        .layouts = {bridge_port},
        .cap = 32768,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgePorts),
        .cases = {{"GetBridgePortsWorker", {"f", "k", 1, 2, out},
            Request().text(0, "k").u32(68, 1).u32(72, 2).u32(76, 1)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter networks {"networks", rows};

} // namespace operations
