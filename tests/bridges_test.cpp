// Bridges.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;

namespace {

TEST(Bridge, ConfigNumbersAreSentUnchecked)
{
    for (const std::int32_t command : {0, 68, 105, 161, INT32_MAX, -1, INT32_MIN}) {
        ScriptedDevice device;
        const Call call = observe(device, [&] { return LUMOZEPH_BridgeSetConfig("bridge", command, 1); });
        EXPECT_THAT(call, Succeeds());
        EXPECT_EQ(call.sent.at(0).number, static_cast<unsigned long>(static_cast<long>(command)));
        EXPECT_EQ(call.sent.at(0).out_len, 0u);
    }
}

TEST(Bridge, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, name), 12u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, value3), 76u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, text1), 84u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, text2), 212u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, value5), 305u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, value6), 309u);
    EXPECT_EQ(offsetof(LumoBridgeInstanceInfo, data), 313u);
}

} // namespace
