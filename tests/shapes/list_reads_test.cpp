// Reads of counted lists.
#include "shapes/replies.h"
#include "shapes/rows.h"

using operations::decoded;
using operations::Fragment;
using operations::Holder;
using operations::reply_record;
using testing::ElementsAre;
using testing::SizeIs;

namespace shapes {

// A list holder as it lies in memory.
struct Listed
{
    std::int32_t count;
    char* records;
};

class ListReads : public Rows
{
protected:
    const std::size_t size = row.layout->size;
    const std::size_t cap = static_cast<std::size_t>(row.operation->cap);
    const std::size_t room = row.operation->room;
    void* out = elsewhere;

    const std::string holder = "calloc(1, 16)";
    const std::string reply_buffer = "malloc(" + std::to_string(room) + ")";
    const std::string array = "calloc(" + std::to_string(cap) + ", " + std::to_string(size) + ")";

    std::vector<std::string> rejected_after_the_call() const
    {
        return joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command()),
            {array + " = #3", "free(#3)", "free(#1)", "free(#2)"}});
    }

    Call read(Answer answer, const fake::System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.call(&out); });
    }

    Bytes reply_of(std::size_t records) const
    {
        Bytes reply;
        reply.reserve(records * size);
        for (std::size_t i = 0; i < records; ++i)
            reply += reply_record(*row.layout, i);
        return reply;
    }

    const Listed& list() const { return *static_cast<const Listed*>(out); }
    Bytes record(std::size_t index) const { return Bytes(list().records + index * size, size); }

    void expect_records(std::size_t count) const
    {
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count));
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(record(i), decoded(*row.layout, reply_record(*row.layout, i))) << "record " << i;
        for (std::size_t i = count; i < std::min(count + 2, cap); ++i)
            ASSERT_EQ(record(i), Bytes(size, '\0')) << "past the last record";
    }

    void expect_failure(const Call& call, int error, const std::vector<std::string>& events)
    {
        EXPECT_THAT(call, Fails(error));
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(call.events, events);
        out = elsewhere;
    }

    void release() { EXPECT_EQ(row.release(out), 0); }
};

// What goes through every length or every byte of a reply takes most of the time: some tools leave it out.
class ListReadsByteByByte : public ListReads
{};

TEST_P(ListReads, SendTheirRequestWithRoomForTheCap)
{
    const Call call = read(replies({}));
    ASSERT_THAT(call, Succeeds());
    release();
    expect_sent(row, call);
    EXPECT_EQ(call.sent.at(0).out_len, room);
    EXPECT_NE(call.sent.at(0).out_ptr, 0u);
}

TEST_P(ListReads, AllocateHolderReplyAndThenTheArray)
{
    const Call call = read(replies(reply_of(1)));
    ASSERT_THAT(call, Succeeds());
    release();
    EXPECT_EQ(call.events, joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command()),
                               {array + " = #3", "free(#2)"}}));
    EXPECT_THAT(call.blocks_left, ElementsAre("#1: " + holder, "#3: " + array));
}

TEST_P(ListReads, GiveAnEmptyListWithAZeroedArrayForAnEmptyReply)
{
    ASSERT_THAT(read(replies({})), Succeeds());
    ASSERT_NE(list().records, nullptr);
    EXPECT_EQ(list().count, 0);
    EXPECT_EQ(Bytes(list().records, cap * size).find_first_not_of('\0'), Bytes::npos);
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
    ASSERT_THAT(read(replies(reply_of(cap))), Succeeds());
    expect_records(cap);
    release();
}

TEST_P(ListReads, FailWhenAnAllocationFails)
{
    expect_failure(read({}, {.failing_allocation = 1}), ENOMEM, {holder + " = null"});
    expect_failure(
        read({}, {.failing_allocation = 2}), ENOMEM, {holder + " = #1", reply_buffer + " = null", "free(#1)"});
    expect_failure(read(replies(reply_of(1)), {.failing_allocation = 3}), ENOMEM,
        joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command()),
            {array + " = null", "free(#1)", "free(#2)"}}));
}

TEST_P(ListReads, FailWhenTheDeviceCallFails)
{
    std::vector<std::string> frees {"free(#1)", "free(#2)"};
    if (row.operation->on_device_error == Holder::LeftAllocated)
        frees.erase(frees.begin());

    const Call rejected = read(fails(ENODEV));
    expect_failure(
        rejected, ENODEV, joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command()), frees}));
    EXPECT_EQ(rejected.blocks_left.size(), row.operation->on_device_error == Holder::LeftAllocated ? 1u : 0u);
    free_left(rejected);

    auto no_device = device_call(row.command());
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

TEST_P(ListReadsByteByByte, DecodeWholeRecordsOfAReplyOfAnyLength)
{
    const Bytes reply = reply_of(3);
    for (std::size_t length = 0; length <= 2 * size + 1; ++length) {
        const Call call = read(reports(reply, static_cast<std::int32_t>(length)), guarded);
        if (length % size != 0 && row.operation->fragment == Fragment::Rejected) {
            expect_failure(call, EBADMSG, rejected_after_the_call());
            ASSERT_FALSE(HasFailure()) << length;
            continue;
        }
        ASSERT_THAT(call, Succeeds()) << length;
        ASSERT_THAT(call.blocks_left, SizeIs(2)) << length;
        ASSERT_NO_FATAL_FAILURE(expect_records((length + size - 1) / size)) << length;
        release();
    }
}

TEST_P(ListReads, AreEmptyForANegativeLength)
{
    for (const std::int32_t length : {-1, -static_cast<std::int32_t>(size), INT32_MIN}) {
        ASSERT_THAT(read(reports(reply_of(2), length), guarded), Succeeds());
        ASSERT_NO_FATAL_FAILURE(expect_records(0)) << length;
        release();
    }
}

// What is reported beyond the cap is not looked at, a fragment included.
TEST_P(ListReads, StopAtTheCap)
{
    const std::size_t last = cap - 1;
    Answer answer = replies(reply_of(2));
    answer.at = (last - 1) * size;
    std::vector<std::size_t> lengths;
    for (const std::size_t records : {cap - 1, cap, cap + 1})
        for (const std::size_t length : {records * size - 1, records * size, records * size + 1})
            lengths.push_back(length);
    lengths.push_back(INT32_MAX);
    for (const std::size_t length : lengths) {
        answer.length = static_cast<std::int32_t>(length);
        const Call call = read(answer, guarded);
        if (length < room && length % size != 0 && row.operation->fragment == Fragment::Rejected) {
            expect_failure(call, EBADMSG, rejected_after_the_call());
            ASSERT_FALSE(HasFailure()) << length;
            continue;
        }
        ASSERT_THAT(call, Succeeds()) << length;
        const std::size_t count = std::min(cap, (length + size - 1) / size);
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count)) << length;
        ASSERT_EQ(record(last - 1), decoded(*row.layout, answer.reply.substr(0, size))) << length;
        ASSERT_EQ(record(last), count > last ? decoded(*row.layout, answer.reply.substr(size)) : Bytes(size, '\0'))
            << length;
        release();
    }
}

// Kept: a count is passed on as the module reports it. It moves nothing outside the reply and the record: the records
// beside it arrive unharmed, and the last one ends with the reply and with the array.
TEST_P(ListReads, PassCountsOnAndStayInside)
{
    for (const operations::Table& table : row.layout->tables) {
        if (table.count.width == 0)
            continue;
        const std::vector<std::uint64_t> counts = counts_for(table);
        Answer answer = replies(reply_of(counts.size()));
        for (std::size_t i = 0; i < counts.size(); ++i)
            operations::put(answer.reply, i * size + table.count.offset, counts[i], table.count.width);
        const std::size_t first = cap - counts.size();
        answer.at = first * size;
        answer.length = static_cast<std::int32_t>(room);
        ASSERT_THAT(read(answer, guarded), Succeeds());
        for (std::size_t i = 0; i < counts.size(); ++i) {
            ASSERT_EQ(operations::get(record(first + i), table.count.offset, table.count.width), counts[i]);
            ASSERT_EQ(record(first + i), decoded(*row.layout, answer.reply.substr(i * size, size))) << counts[i];
        }
        release();
    }
}

TEST_P(ListReads, EndTextsWhateverFollows)
{
    const std::vector<Bytes> records = records_with_strays(*row.layout);
    for (std::size_t first = 0; first < records.size(); first += cap) {
        const std::size_t count = std::min(cap, records.size() - first);
        Bytes reply;
        for (std::size_t i = 0; i < count; ++i)
            reply += records[first + i];
        ASSERT_THAT(read(replies(reply), guarded), Succeeds());
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(record(i), decoded(*row.layout, records[first + i]));
        release();
    }
}

// Every record of a reply has another byte changed.
TEST_P(ListReadsByteByByte, ShowAChangedByteWhereItBelongsAndNowhereElse)
{
    const std::vector<Change> changes = changes_of(*row.layout);
    for (std::size_t first = 0; first < changes.size(); first += cap) {
        const std::size_t count = std::min(cap, changes.size() - first);
        Bytes reply;
        for (std::size_t i = 0; i < count; ++i)
            reply += changes[first + i].after;
        ASSERT_THAT(read(replies(reply), guarded), Succeeds());
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count));
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_NO_FATAL_FAILURE(expect_reached(*row.layout, changes[first + i], record(i)));
        release();
    }
}

INSTANTIATE_TEST_SUITE_P(, ListReads, testing::ValuesIn(rows_of(Shape::ListRead)), NameOfRow());
INSTANTIATE_TEST_SUITE_P(, ListReadsByteByByte, testing::ValuesIn(rows_of(Shape::ListRead)), NameOfRow());

} // namespace shapes
