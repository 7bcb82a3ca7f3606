#include "support/sends.h"

namespace world {

void expect_send(const Send& row)
{
    ScriptedDevice accepting;
    const Call accepted = observe(accepting, row.send);
    EXPECT_THAT(accepted, Succeeds());
    EXPECT_THAT(accepted.events,
        testing::ElementsAre("getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000",
            "ioctl(5000, " + std::to_string(row.command) + ")", "close(5000)"));
    ASSERT_EQ(accepted.sent.size(), 1u);
    EXPECT_EQ(accepted.sent[0].in_len, 776u);
    EXPECT_EQ(accepted.sent[0].input, row.request);
    EXPECT_EQ(accepted.sent[0].out_len, 0u);
    EXPECT_EQ(accepted.sent[0].out_ptr, 0u);

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
