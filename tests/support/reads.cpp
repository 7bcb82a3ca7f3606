#include "support/reads.h"

#include "support/matchers.h"

using testing::ElementsAre;

namespace world {

std::vector<std::string> device_call(int command)
{
    return {"getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000",
        "ioctl(5000, " + std::to_string(command) + ")", "close(5000)"};
}

std::vector<std::string> joined(const std::vector<std::vector<std::string>>& pieces)
{
    std::vector<std::string> all;
    for (const auto& piece : pieces)
        all.insert(all.end(), piece.begin(), piece.end());
    return all;
}

TEST_P(SingleReads, SendTheirRequestWithRoomForOneRecord)
{
    const Call call = read(replies(reply_record(row.layout, 0)));
    ASSERT_THAT(call, Succeeds());
    release();
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, static_cast<unsigned long>(row.command));
    EXPECT_EQ(call.sent[0].in_len, 776u);
    EXPECT_EQ(call.sent[0].input, row.request);
    EXPECT_EQ(call.sent[0].out_len, size);
    EXPECT_NE(call.sent[0].out_ptr, 0u);
}

TEST_P(SingleReads, AllocateTheReplyBeforeTheCallAndTheResultAfterIt)
{
    const Call call = read(replies(reply_record(row.layout, 0)));
    ASSERT_THAT(call, Succeeds());
    release();
    EXPECT_EQ(
        call.events, joined({{reply_buffer + " = #1"}, device_call(row.command), {result + " = #2", "free(#1)"}}));
    EXPECT_THAT(call.blocks_left, ElementsAre("#2: " + result));
}

TEST_P(SingleReads, DecodeEveryByteOfARecord)
{
    for (std::size_t index = 0; index < 3; ++index) {
        const Bytes reply = reply_record(row.layout, index);
        ASSERT_THAT(read(replies(reply)), Succeeds());
        EXPECT_EQ(record(), decoded(row.layout, reply));
        release();
    }
}

TEST_P(SingleReads, LeaveThePointerUntouchedWhenTheReplyCannotBeAllocated)
{
    const Call call = read({}, {.failing_allocation = 1});
    EXPECT_THAT(call, Fails(ENOMEM));
    EXPECT_EQ(out, elsewhere);
    EXPECT_THAT(call.events, ElementsAre(reply_buffer + " = null"));
}

TEST_P(SingleReads, NullThePointerWhenTheResultCannotBeAllocated)
{
    const Call call = read(replies(reply_record(row.layout, 0)), {.failing_allocation = 2});
    EXPECT_THAT(call, Fails(ENOMEM));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(
        call.events, joined({{reply_buffer + " = #1"}, device_call(row.command), {result + " = null", "free(#1)"}}));
}

TEST_P(SingleReads, LeaveThePointerUntouchedWhenTheDeviceCallFails)
{
    const Call rejected = read(fails(ENODEV));
    EXPECT_THAT(rejected, Fails(ENODEV));
    EXPECT_EQ(out, elsewhere);
    EXPECT_EQ(rejected.events, joined({{reply_buffer + " = #1"}, device_call(row.command), {"free(#1)"}}));

    const Call unopened = read({}, {.open_error = EACCES});
    EXPECT_THAT(unopened, Fails(EACCES));
    EXPECT_EQ(out, elsewhere);
    EXPECT_THAT(unopened, LeavesNothingAllocated());
}

TEST_P(SingleReads, AreReleasedWithOneFree)
{
    ASSERT_THAT(read(replies(reply_record(row.layout, 0))), Succeeds());
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.release(out); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("free(" + result + ")"));

    const Call null = observe(device, [&] { return row.release(nullptr); });
    EXPECT_THAT(null, Succeeds());
    EXPECT_THAT(null, DoesNothing());
}

TEST_P(ListReads, SendTheirRequestWithRoomForTheCap)
{
    const Call call = read(replies({}));
    ASSERT_THAT(call, Succeeds());
    release();
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, static_cast<unsigned long>(row.command));
    EXPECT_EQ(call.sent[0].in_len, 776u);
    EXPECT_EQ(call.sent[0].input, row.request);
    EXPECT_EQ(call.sent[0].out_len, row.room);
    EXPECT_NE(call.sent[0].out_ptr, 0u);
}

TEST_P(ListReads, AllocateHolderReplyAndThenTheArray)
{
    const Call call = read(replies(reply_of(1)));
    ASSERT_THAT(call, Succeeds());
    release();
    EXPECT_EQ(call.events,
        joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command), {array + " = #3", "free(#2)"}}));
    EXPECT_THAT(call.blocks_left, ElementsAre("#1: " + holder, "#3: " + array));
}

TEST_P(ListReads, GiveAnEmptyListWithAZeroedArrayForAnEmptyReply)
{
    ASSERT_THAT(read(replies({})), Succeeds());
    ASSERT_NE(list().records, nullptr);
    EXPECT_EQ(list().count, 0);
    EXPECT_EQ(Bytes(list().records, row.cap * size).find_first_not_of('\0'), Bytes::npos);
    release();
}

TEST_P(ListReads, DecodeEachRecord)
{
    ASSERT_THAT(read(replies(reply_of(5))), Succeeds());
    expect_records(5);
    release();
}

TEST_P(ListReads, DecodeAFullReply)
{
    ASSERT_THAT(read(replies(reply_of(row.cap))), Succeeds());
    expect_records(row.cap);
    release();
}

TEST_P(ListReads, FailWhenAnAllocationFails)
{
    expect_failure(read({}, {.failing_allocation = 1}), ENOMEM, {holder + " = null"});
    expect_failure(
        read({}, {.failing_allocation = 2}), ENOMEM, {holder + " = #1", reply_buffer + " = null", "free(#1)"});
    expect_failure(read(replies(reply_of(1)), {.failing_allocation = 3}), ENOMEM,
        joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command),
            {array + " = null", "free(#1)", "free(#2)"}}));
}

TEST_P(ListReads, FailWhenTheDeviceCallFails)
{
    std::vector<std::string> frees {"free(#1)", "free(#2)"};
    if (row.on_device_error == Holder::LeftAllocated)
        frees.erase(frees.begin());

    const Call rejected = read(fails(ENODEV));
    expect_failure(
        rejected, ENODEV, joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command), frees}));
    EXPECT_EQ(rejected.blocks_left.size(), row.on_device_error == Holder::LeftAllocated ? 1u : 0u);
    free_left(rejected);

    auto no_device = device_call(row.command);
    no_device.resize(1);
    no_device.push_back("open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = -1");
    const Call absent = read({}, {.open_error = ENOENT});
    expect_failure(absent, ENOENT, joined({{holder + " = #1", reply_buffer + " = #2"}, no_device, frees}));
    free_left(absent);
}

TEST_P(ListReads, AreReleasedArrayFirst)
{
    ASSERT_THAT(read(replies(reply_of(2))), Succeeds());
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.release(out); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("free(" + array + ")", "free(" + holder + ")"));
}

TEST_P(ListReads, AreReleasedAlsoWithoutArray)
{
    ASSERT_THAT(read(replies(reply_of(1))), Succeeds());
    Listed& mine = *static_cast<Listed*>(out);
    free(mine.records);
    mine.records = nullptr;
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.release(out); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("free(" + holder + ")"));

    const Call null = observe(device, [&] { return row.release(nullptr); });
    EXPECT_THAT(null, Succeeds());
    EXPECT_THAT(null, DoesNothing());
}

} // namespace world
