// Bridge clusters and their nodes.
#include "fake/matchers.h"
#include "operations/request.h"

#include <lumozeph.h>

using namespace fake;
using operations::Request;

namespace {

// Kept: the MAC address is neither read nor sent when the node is removed.
TEST(Cluster, NodeIsRemovedWithoutAMac)
{
    ScriptedDevice device;
    const Call call = observe(device,
        [] { return LUMOZEPH_BridgeClusterNodeSet("cluster", "node", reinterpret_cast<const std::uint8_t*>(1), 0); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).input, Request().text(0, "cluster").text(64, "node").content());
}

TEST(Cluster, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value1), 72u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, block), 76u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value2), 172u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value5), 178u);
    EXPECT_EQ(offsetof(LumoBridgeClusterInfo, value6), 179u);
    EXPECT_EQ(offsetof(LumoBridgeClusterNodeInfo, value1), 64u);
    EXPECT_EQ(offsetof(LumoBridgeClusterNodeInfo, value2), 68u);
    EXPECT_EQ(offsetof(LumoBridgeClusterNodeInfo, value3), 70u);
}

} // namespace
