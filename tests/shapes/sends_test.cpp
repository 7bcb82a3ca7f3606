// Operations that change something: those that get no reply, and those that offer an area for the module's own result.
#include "shapes/rows.h"

#include <lumozeph.h>

namespace shapes {

using Sends = Rows;

TEST_P(Sends, CarryExactlyTheirRequestAndNoReply)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.call(); });
    EXPECT_THAT(call, Succeeds());
    expect_sent(row, call);
    EXPECT_EQ(call.sent.at(0).out_len, 0u);
    EXPECT_EQ(call.sent.at(0).out_ptr, 0u);
}

TEST_P(Sends, MakeThreeSystemCallsAndAllocateNothing)
{
    ScriptedDevice device;
    EXPECT_EQ(observe(device, [&] { return row.call(); }).events, device_call(row.command()));
}

TEST_P(Sends, PassTheErrnoOfTheDeviceOn)
{
    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, [&] { return row.call(); }), Fails(EPERM));
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, [&] { return row.call(); }), Fails(ENOENT));
}

INSTANTIATE_TEST_SUITE_P(, Sends, testing::ValuesIn(rows_of(Shape::Send)), NameOfRow());

class ResultSends : public Rows
{
protected:
    // The area lies between two bytes that must stay.
    Bytes area = Bytes(90, '\x77');

    Call send(Answer answer, const fake::System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.call(area.data() + 1); });
    }
};

TEST_P(ResultSends, OfferNoReplyWithoutAnArea)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.call(nullptr); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, device_call(row.command()));
    expect_sent(row, call);
    EXPECT_EQ(call.sent.at(0).out_len, 0u);
    EXPECT_EQ(call.sent.at(0).out_ptr, 0u);
}

TEST_P(ResultSends, OfferTheCallersAreaZeroed)
{
    const Call call = send(reports("module", 88));
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, device_call(row.command()));
    expect_sent(row, call);
    EXPECT_EQ(call.sent.at(0).out_len, 88u);
    EXPECT_EQ(call.sent.at(0).out_ptr, reinterpret_cast<std::uint64_t>(area.data() + 1));
    EXPECT_EQ(call.sent.at(0).room, Bytes(88, '\0'));
    EXPECT_EQ(area, "\x77module" + Bytes(82, '\0') + "\x77");
}

TEST_P(ResultSends, ZeroTheAreaAlsoWhenTheModuleWritesNothingOrTheDeviceFails)
{
    for (const fake::System& system : {fake::System {}, fake::System {.open_error = ENOENT}}) {
        area = Bytes(90, '\x77');
        send(fake::writes_nothing(), system);
        EXPECT_EQ(area, "\x77" + Bytes(88, '\0') + "\x77");
    }
}

TEST_P(ResultSends, PassTheErrnoOfTheDeviceOn)
{
    ScriptedDevice rejecting(fails(EEXIST));
    EXPECT_THAT(observe(rejecting, [&] { return row.call(nullptr); }), Fails(EEXIST));
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, [&] { return row.call(nullptr); }), Fails(ENOENT));
}

INSTANTIATE_TEST_SUITE_P(, ResultSends, testing::ValuesIn(rows_of(Shape::ResultSend)), NameOfRow());

// The module as a whole is addressed, by a number alone.
using BareCommands = Rows;

TEST_P(BareCommands, SendAnEnvelopeOfZeros)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.call(); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, device_call(row.command()));
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].in_len, 0u);
    EXPECT_EQ(call.sent[0].in_ptr, 0u);
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
}

TEST_P(BareCommands, PassTheErrnoOfTheDeviceOn)
{
    ScriptedDevice rejecting(fails(EPERM));
    EXPECT_THAT(observe(rejecting, [&] { return row.call(); }), Fails(EPERM));
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, [&] { return row.call(); }), Fails(ENOENT));
}

INSTANTIATE_TEST_SUITE_P(, BareCommands, testing::ValuesIn(rows_of(Shape::Bare)), NameOfRow());

} // namespace shapes
