// Bridge clusters, their nodes and the local transport node.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::array<std::uint8_t, 6> mac {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};

constexpr std::array<std::uint8_t, 64> transport_block = [] {
    std::array<std::uint8_t, 64> bytes {};
    bytes.fill(0xbb);
    return bytes;
}();

constexpr Request transport_node =
    Request().text(64, "text1").text(128, "text2").text(192, "text3").u32(208, 0x01020304).bytes(212, transport_block);

constexpr Layout cluster {.size = 183, .zeroed = {{64, 8}}};

constexpr Layout cluster_node {.size = 71};

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_GetLocaleId),
        .command = 86,
        .shape = Shape::RawRead,
        .room = 16,
        .cases = {{"GetLocaleId", {out}}}},
    // Kept: the idents of clusters, nodes and endpoints get no NUL.
    {.function = NAMED(LUMOZEPH_GetBridgeClusters),
        .command = 89,
        .shape = Shape::ListRead,
        .room = 1830,
        .layouts = {cluster},
        .cap = 10,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeClusters),
        .cases = {{"GetBridgeClusters", {"cluster", out}, Request().text(0, "cluster")},
            {"GetBridgeClustersOfAll", {nullptr, out}}}},
    {.function = NAMED(LUMOZEPHGetBridgeClusters),
        .command = 89,
        .shape = Shape::ListWorker,
        .room = 1830,
        .layouts = {cluster},
        .cap = 10,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeClusters),
        .cases = {{"GetBridgeClustersWorker", {"k", out}, Request().text(0, "k")}}},
    {.function = NAMED(LUMOZEPH_BridgeClusterSet),
        .command = 90,
        .shape = Shape::Send,
        .cases = {{"BridgeClusterSetOn", {"cluster", 1}, Request().text(0, "cluster")},
            {"BridgeClusterSetOnByAnySwitch", {"cluster", -128}, Request().text(0, "cluster")}}},
    {.function = NAMED(LUMOZEPH_BridgeClusterSet),
        .command = 91,
        .shape = Shape::Send,
        .cases = {{"BridgeClusterSetOff", {"cluster", 0}, Request().text(0, "cluster")}}},
    {.function = NAMED(LUMOZEPH_GetBridgeClusterNodes),
        .command = 92,
        .shape = Shape::ListRead,
        .room = 7100,
        .layouts = {cluster_node},
        .cap = 100,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeClusterNodes),
        .cases = {{"GetBridgeClusterNodes", {text_of<64, 'c'>, out}, Request().text(0, text_of<63, 'c'>)},
            {"GetBridgeClusterNodesOfAll", {nullptr, out}}}},
    {.function = NAMED(LUMOZEPHGetBridgeClusterNodes),
        .command = 92,
        .shape = Shape::ListWorker,
        .room = 7100,
        .layouts = {cluster_node},
        .cap = 100,
        .on_device_error = Holder::LeftAllocated,
        .release = RELEASED_BY(LUMOZEPH_ReleaseBridgeClusterNodes),
        .cases = {{"GetBridgeClusterNodesWorker", {nullptr, out}}}},
    {.function = NAMED(LUMOZEPH_BridgeClusterNodeSet),
        .command = 93,
        .shape = Shape::Send,
        .cases = {{"BridgeClusterNodeSetOn", {"cluster", "node", block(mac), 1},
                      Request().text(0, "cluster").text(64, "node").bytes(128, mac)},
            {"BridgeClusterNodeSetOnByAnySwitch", {text_of<64, 'c'>, text_of<64, 'n'>, block(mac), -1},
                Request().text(0, text_of<63, 'c'>).text(64, text_of<63, 'n'>).bytes(128, mac)}}},
    // Kept: the MAC address is not sent when the node is removed.
    {.function = NAMED(LUMOZEPH_BridgeClusterNodeSet),
        .command = 94,
        .shape = Shape::Send,
        .cases = {{"BridgeClusterNodeSetOffSendsNoMac", {"cluster", "node", block(mac), 0},
                      Request().text(0, "cluster").text(64, "node")},
            {"BridgeClusterNodeSetOffWithoutMac", {"cluster", "node", nullptr, 0},
                Request().text(0, "cluster").text(64, "node")}}},
    {.function = NAMED(LUMOZEPH_BridgeLocalTransportNodeSet),
        .command = 100,
        .shape = Shape::Send,
        .cases = {{"BridgeLocalTransportNodeSetOn", {"text1", "text2", "text3", 0x01020304, block(transport_block), 1},
                      transport_node},
            {"BridgeLocalTransportNodeSetWithLongTexts",
                {text_of<64, '1'>, text_of<64, '2'>, text_of<20, '3'>, 0, block(transport_block), 127},
                Request()
                    .text(64, text_of<63, '1'>)
                    .text(128, text_of<63, '2'>)
                    .text(192, text_of<15, '3'>)
                    .bytes(212, transport_block)}}},
    {.function = NAMED(LUMOZEPH_BridgeLocalTransportNodeSet),
        .command = 101,
        .shape = Shape::Send,
        .cases = {{"BridgeLocalTransportNodeSetOff", {"text1", "text2", "text3", 0x01020304, block(transport_block), 0},
            transport_node}}},
    {.function = NAMED(LUMOZEPH_BridgeGetLocalTransportNode),
        .command = 102,
        .shape = Shape::RawRead,
        .room = 2048,
        .cases = {{"BridgeGetLocalTransportNode", {out, 0x01020304}, Request().u32(276, 0x01020304)}}},
    {.function = NAMED(LUMOZEPH_FlushBridgeCluster),
        .command = 103,
        .shape = Shape::Send,
        .cases = {{"FlushBridgeClusterOn", {"cluster", 1}, Request().text(0, "cluster")},
            {"FlushBridgeClusterOnWithoutKey", {nullptr, -1}}}},
    {.function = NAMED(LUMOZEPH_FlushBridgeCluster),
        .command = 104,
        .shape = Shape::Send,
        .cases = {{"FlushBridgeClusterOff", {"cluster", 0}, Request().text(0, "cluster")}}},
    {.function = NAMED(LUMOZEPH_BridgeClusterBfdHAProfileSet),
        .command = 106,
        .shape = Shape::Send,
        .cases = {{"BridgeClusterBfdHAProfileSet", {"cluster", 255, 0x01020304, 0x11121314},
            Request().text(0, "cluster").u8(64, 255).u32(68, 0x01020304).u32(72, 0x11121314)}}},
    {.function = NAMED(LUMOZEPH_SetBridgeClusterDebug),
        .command = 107,
        .shape = Shape::Send,
        .cases = {{"SetBridgeClusterDebug", {"cluster", 255}, Request().text(0, "cluster").u8(64, 255)},
            {"SetBridgeClusterDebugOfAll", {nullptr, 3}, Request().u8(64, 3)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter clusters {"clusters", rows};

} // namespace operations
