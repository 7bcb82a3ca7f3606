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

TEST_P(ResultSends, OfferNoReplyWithoutAnArea)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.send(nullptr); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events.size(), 4u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, row.command);
    EXPECT_EQ(call.sent[0].in_len, 776u);
    EXPECT_EQ(call.sent[0].input, row.request);
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
}

TEST_P(ResultSends, OfferTheZeroedAreaAndLeaveItToTheModule)
{
    Bytes area(90, '\x77');
    const auto send = [&] { return row.send(reinterpret_cast<LumoCmdResult*>(area.data() + 1)); };
    ScriptedDevice device(reports("module", 88));
    const Call call = observe(device, send);
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events.size(), 4u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, row.command);
    EXPECT_EQ(call.sent[0].input, row.request);
    EXPECT_EQ(call.sent[0].out_len, 88u);
    EXPECT_EQ(call.sent[0].out_ptr, reinterpret_cast<std::uint64_t>(area.data() + 1));
    EXPECT_EQ(call.sent[0].room, Bytes(88, '\0'));
    EXPECT_EQ(area, "\x77module" + Bytes(82, '\0') + "\x77");
}

TEST_P(ResultSends, ZeroTheAreaAlsoWhenTheModuleWritesNothingOrTheDeviceFails)
{
    for (const System& system : {System {}, System {.open_error = ENOENT}}) {
        Bytes area(88, '\x77');
        ScriptedDevice device(writes_nothing());
        observe(device, system, [&] { return row.send(reinterpret_cast<LumoCmdResult*>(area.data())); });
        EXPECT_EQ(area, Bytes(88, '\0'));
    }
}

TEST_P(ResultSends, PassTheErrnoOfTheDeviceOn)
{
    ScriptedDevice rejecting(fails(EEXIST));
    EXPECT_THAT(observe(rejecting, [&] { return row.send(nullptr); }), Fails(EEXIST));
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, [&] { return row.send(nullptr); }), Fails(ENOENT));
}

TEST_P(RawReads, OfferTheCallersBufferAndAllocateNothing)
{
    ScriptedDevice device(replies("whatever the module writes"));
    const Call call = observe(device, [&] { return row.read(buffer.data()); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events.size(), 4u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, row.command);
    EXPECT_EQ(call.sent[0].in_len, 776u);
    EXPECT_EQ(call.sent[0].input, row.request);
    EXPECT_EQ(call.sent[0].out_len, row.room);
    EXPECT_EQ(call.sent[0].out_ptr, reinterpret_cast<std::uint64_t>(buffer.data()));
    const Bytes written = Bytes("whatever the module writes").substr(0, row.room);
    EXPECT_EQ(buffer, written + Bytes(row.room - written.size(), '\x5a'));
}

TEST_P(RawReads, DoNotLookAtTheReportedLength)
{
    for (const std::int32_t length : {0, 1, INT32_MAX, -1}) {
        ScriptedDevice device(reports("x", length));
        EXPECT_THAT(observe(device, [&] { return row.read(buffer.data()); }), Succeeds());
    }
}

TEST_P(RawReads, LeaveTheBufferUntouchedWhenTheDeviceFails)
{
    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, [&] { return row.read(buffer.data()); }), Fails(EPERM));
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, [&] { return row.read(buffer.data()); }), Fails(ENOENT));
    EXPECT_EQ(buffer, Bytes(row.room, '\x5a'));
}

void expect_empty_envelope(unsigned long command, const std::function<std::int32_t()>& send)
{
    ScriptedDevice device;
    const Call call = observe(device, send);
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events.size(), 4u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, command);
    EXPECT_EQ(call.sent[0].in_len, 0u);
    EXPECT_EQ(call.sent[0].in_ptr, 0u);
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, send), Fails(EPERM));
}

void expect_rejected(const std::function<std::int32_t()>& call)
{
    ScriptedDevice device;
    const Call rejected = observe(device, call);
    EXPECT_THAT(rejected, Fails(EINVAL));
    EXPECT_THAT(rejected, DoesNothing());
}

} // namespace world
