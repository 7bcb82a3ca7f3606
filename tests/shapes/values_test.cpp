// 32-bit values: bare input in, bare reply out.
#include "shapes/rows.h"

namespace shapes {

using SetValues = Rows;

TEST_P(SetValues, SendFourBytesOfInputAndOfferNoReply)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.call(); });
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, device_call(row.command()));
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].in_len, 4u);
    EXPECT_EQ(call.sent[0].input, Bytes("\xef\xcd\xab\x89", 4));
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
}

TEST_P(SetValues, PassTheErrnoOfTheDeviceOn)
{
    ScriptedDevice device(fails(ERANGE));
    EXPECT_THAT(observe(device, [&] { return row.call(); }), Fails(ERANGE));
    EXPECT_THAT(observe(device, {.open_error = EACCES}, [&] { return row.call(); }), Fails(EACCES));
}

INSTANTIATE_TEST_SUITE_P(, SetValues, testing::ValuesIn(rows_of(Shape::SetValue)), NameOfRow());

class GetValues : public Rows
{
protected:
    std::uint32_t value = 42;

    Call read(Answer answer, const fake::System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.call(&value); });
    }
};

TEST_P(GetValues, ReadFourBytesWithoutInput)
{
    const Call call = read(replies({"\x78\x56\x34\x12", 4}));
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(value, 0x12345678u);
    EXPECT_EQ(call.events, device_call(row.command()));
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].in_len, 0u);
    EXPECT_EQ(call.sent[0].in_ptr, 0u);
    EXPECT_EQ(call.sent[0].out_len, 4u);
    EXPECT_NE(call.sent[0].out_ptr, 0u);
    EXPECT_NE(call.sent[0].out_ptr, reinterpret_cast<std::uint64_t>(&value));
}

TEST_P(GetValues, LeaveTheCallersValueUnchangedWhenTheyFail)
{
    EXPECT_THAT(read(fails(EPERM)), Fails(EPERM));
    EXPECT_EQ(value, 42u);
    EXPECT_THAT(read({}, {.open_error = ENOENT}), Fails(ENOENT));
    EXPECT_EQ(value, 42u);
}

// Kept: the reported length is not looked at.
TEST_P(GetValues, TakeTheValueWhateverLengthTheModuleReports)
{
    for (const std::int32_t length : {0, 3, 5, -1}) {
        value = 0;
        EXPECT_THAT(read(reports({"\x01\x02\x03\x04", 4}, length)), Succeeds());
        EXPECT_EQ(value, 0x04030201u);
    }
}

INSTANTIATE_TEST_SUITE_P(, GetValues, testing::ValuesIn(rows_of(Shape::GetValue)), NameOfRow());

} // namespace shapes
