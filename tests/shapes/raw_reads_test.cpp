// Reads whose reply goes straight into the caller's buffer.
#include "shapes/rows.h"

namespace shapes {

class RawReads : public Rows
{
protected:
    const std::size_t room = row.operation->room;
    Bytes buffer = Bytes(room, '\x5a');

    Call read(Answer answer, const fake::System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.call(buffer.data()); });
    }
};

TEST_P(RawReads, OfferTheCallersBufferAndAllocateNothing)
{
    const Bytes reply = "whatever the module writes";
    const Call call = read(replies(reply));
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, device_call(row.command()));
    expect_sent(row, call);
    EXPECT_EQ(call.sent.at(0).out_len, room);
    EXPECT_EQ(call.sent.at(0).out_ptr, reinterpret_cast<std::uint64_t>(buffer.data()));
    const Bytes written = reply.substr(0, room);
    EXPECT_EQ(buffer, written + Bytes(room - written.size(), '\x5a'));
}

TEST_P(RawReads, DoNotLookAtTheReportedLength)
{
    for (const std::int32_t length : {0, 1, INT32_MAX, -1})
        EXPECT_THAT(read(reports("x", length)), Succeeds());
}

TEST_P(RawReads, LeaveTheBufferUntouchedWhenTheDeviceFails)
{
    EXPECT_THAT(read(fails(EPERM)), Fails(EPERM));
    EXPECT_THAT(read({}, {.open_error = ENOENT}), Fails(ENOENT));
    EXPECT_EQ(buffer, Bytes(room, '\x5a'));
}

INSTANTIATE_TEST_SUITE_P(, RawReads, testing::ValuesIn(rows_of(Shape::RawRead)), NameOfRow());

} // namespace shapes
