// Reads of one record.
#include "shapes/replies.h"
#include "shapes/rows.h"

using operations::decoded;
using operations::reply_record;
using testing::ElementsAre;
using testing::SizeIs;

namespace shapes {

class SingleReads : public Rows
{
protected:
    const std::size_t size = row.layout->size;
    void* out = elsewhere;

    const std::string reply_buffer = "malloc(" + std::to_string(size) + ")";
    const std::string result = "calloc(1, " + std::to_string(size) + ")";

    std::vector<std::string> rejected_after_the_call() const
    {
        return joined(
            {{reply_buffer + " = #1"}, device_call(row.command()), {result + " = #2", "free(#2)", "free(#1)"}});
    }

    Call read(Answer answer, const fake::System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.call(&out); });
    }

    Bytes record() const { return Bytes(static_cast<const char*>(out), size); }

    void release() { EXPECT_EQ(row.release(out), 0); }
};

// What goes through every length or every byte of a reply takes most of the time: some tools leave it out.
class SingleReadsByteByByte : public SingleReads
{};

TEST_P(SingleReads, SendTheirRequestWithRoomForOneRecord)
{
    const Call call = read(replies(reply_record(*row.layout, 0)));
    ASSERT_THAT(call, Succeeds());
    release();
    expect_sent(row, call);
    EXPECT_EQ(call.sent.at(0).out_len, size);
    EXPECT_NE(call.sent.at(0).out_ptr, 0u);
}

TEST_P(SingleReads, AllocateTheReplyBeforeTheCallAndTheResultAfterIt)
{
    const Call call = read(replies(reply_record(*row.layout, 0)));
    ASSERT_THAT(call, Succeeds());
    release();
    EXPECT_EQ(
        call.events, joined({{reply_buffer + " = #1"}, device_call(row.command()), {result + " = #2", "free(#1)"}}));
    EXPECT_THAT(call.blocks_left, ElementsAre("#2: " + result));
}

TEST_P(SingleReads, DecodeEveryByteOfARecord)
{
    for (std::size_t index = 0; index < 3; ++index) {
        const Bytes reply = reply_record(*row.layout, index);
        ASSERT_THAT(read(replies(reply)), Succeeds());
        EXPECT_EQ(record(), decoded(*row.layout, reply));
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
    const Call call = read(replies(reply_record(*row.layout, 0)), {.failing_allocation = 2});
    EXPECT_THAT(call, Fails(ENOMEM));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(
        call.events, joined({{reply_buffer + " = #1"}, device_call(row.command()), {result + " = null", "free(#1)"}}));
}

TEST_P(SingleReads, LeaveThePointerUntouchedWhenTheDeviceCallFails)
{
    const Call rejected = read(fails(ENODEV));
    EXPECT_THAT(rejected, Fails(ENODEV));
    EXPECT_EQ(out, elsewhere);
    EXPECT_EQ(rejected.events, joined({{reply_buffer + " = #1"}, device_call(row.command()), {"free(#1)"}}));

    const Call unopened = read({}, {.open_error = EACCES});
    EXPECT_THAT(unopened, Fails(EACCES));
    EXPECT_EQ(out, elsewhere);
    EXPECT_THAT(unopened, LeavesNothingAllocated());
}

TEST_P(SingleReads, AreReleasedWithOneFree)
{
    ASSERT_THAT(read(replies(reply_record(*row.layout, 0))), Succeeds());
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.release(out); });
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("free(" + result + ")"));

    const Call null = observe(device, [&] { return row.release(nullptr); });
    EXPECT_THAT(null, Succeeds());
    EXPECT_THAT(null, DoesNothing());
}

TEST_P(SingleReadsByteByByte, TakeAReplyOfAnyLengthFromOneRecordOn)
{
    const Bytes reply = reply_record(*row.layout, 1) + reply_record(*row.layout, 2) + "x";
    const Bytes expected = decoded(*row.layout, reply.substr(0, size));
    const auto expect_by_length = [&](const Bytes& sent, std::int32_t length) {
        out = elsewhere;
        const Call call = read(reports(sent, length), guarded);
        if (length < static_cast<std::int32_t>(size)) {
            ASSERT_THAT(call, Fails(EBADMSG)) << length;
            ASSERT_EQ(out, nullptr) << length;
            ASSERT_EQ(call.events, rejected_after_the_call()) << length;
            return;
        }
        ASSERT_THAT(call, Succeeds()) << length;
        ASSERT_THAT(call.blocks_left, SizeIs(1)) << length;
        ASSERT_EQ(record(), expected) << length;
        release();
    };
    for (std::size_t length = 0; length <= reply.size(); ++length)
        ASSERT_NO_FATAL_FAILURE(expect_by_length(reply.substr(0, length), static_cast<std::int32_t>(length)));
    for (const std::int32_t length : {-1, -static_cast<std::int32_t>(size), INT32_MIN, INT32_MAX})
        ASSERT_NO_FATAL_FAILURE(expect_by_length(reply, length));
}

// Kept: a count is passed on as the module reports it. It moves nothing outside the reply and the record.
TEST_P(SingleReads, PassCountsOnAndStayInside)
{
    for (const operations::Table& table : row.layout->tables) {
        if (table.count.width == 0)
            continue;
        for (const std::uint64_t count : counts_for(table)) {
            Bytes reply = reply_record(*row.layout, 1);
            operations::put(reply, table.count.offset, count, table.count.width);
            ASSERT_THAT(read(replies(reply), guarded), Succeeds());
            ASSERT_EQ(operations::get(record(), table.count.offset, table.count.width), count);
            ASSERT_EQ(record(), decoded(*row.layout, reply)) << "count " << count;
            release();
        }
    }
}

TEST_P(SingleReadsByteByByte, ShowAChangedByteWhereItBelongsAndNowhereElse)
{
    for (const Change& change : changes_of(*row.layout)) {
        ASSERT_THAT(read(replies(change.after), unguarded), Succeeds());
        ASSERT_NO_FATAL_FAILURE(expect_reached(*row.layout, change, record()));
        release();
    }
}

TEST_P(SingleReads, EndTextsWhateverFollows)
{
    for (const Bytes& reply : records_with_strays(*row.layout)) {
        ASSERT_THAT(read(replies(reply), unguarded), Succeeds());
        ASSERT_EQ(record(), decoded(*row.layout, reply));
        release();
    }
}

INSTANTIATE_TEST_SUITE_P(, SingleReads, testing::ValuesIn(rows_of(Shape::SingleRead)), NameOfRow());
INSTANTIATE_TEST_SUITE_P(, SingleReadsByteByByte, testing::ValuesIn(rows_of(Shape::SingleRead)), NameOfRow());

} // namespace shapes
