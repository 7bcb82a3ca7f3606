#include "support/sends.h"

namespace world {

TEST_P(Sends, CarryExactlyTheirRequestAndNoReply)
{
    ScriptedDevice device;
    const Call call = observe(device, row.send);
    EXPECT_THAT(call, Succeeds());
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, row.command);
    EXPECT_EQ(call.sent[0].in_len, 776u);
    EXPECT_EQ(call.sent[0].input, row.request);
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
}

TEST_P(Sends, MakeThreeSystemCallsAndAllocateNothing)
{
    ScriptedDevice device;
    EXPECT_THAT(observe(device, row.send).events,
        testing::ElementsAre("getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000",
            "ioctl(5000, " + std::to_string(row.command) + ")", "close(5000)"));
}

TEST_P(Sends, PassTheErrnoOfTheDeviceOn)
{
    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, row.send), Fails(EPERM));
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, row.send), Fails(ENOENT));
}

void expect_rejected(const std::function<std::int32_t()>& call)
{
    ScriptedDevice device;
    const Call rejected = observe(device, call);
    EXPECT_THAT(rejected, Fails(EINVAL));
    EXPECT_THAT(rejected, DoesNothing());
}

} // namespace world
