// Bridge networks and ports.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using testing::ElementsAre;

namespace {

// Kept: a network record that stands alone can be released, though no function returns one.
TEST(Network, ANetworkRecordThatStandsAloneIsReleased)
{
    ScriptedDevice device;
    const Call call = observe(
        device, [] { return LUMOZEPH_ReleaseBridgeNetwork(static_cast<LumoBridgeNetworkInfo*>(calloc(1, 133))); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("calloc(1, 133) = #1", "free(#1)"));
    EXPECT_THAT(observe(device, [] { return LUMOZEPH_ReleaseBridgeNetwork(nullptr); }), DoesNothing());
}

TEST(Network, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value3), 12u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value4), 14u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value5), 18u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value7), 24u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, value8), 28u);
    EXPECT_EQ(offsetof(LumoBridgeNetworkInfo, data), 29u);
    EXPECT_EQ(offsetof(LumoBridgePortInfo, value4), 14u);
    EXPECT_EQ(offsetof(LumoBridgePortInfo, data), 18u);
}

} // namespace
