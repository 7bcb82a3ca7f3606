// The shapes of reads. Each row restates what goes over the wire; the tests below hold for every row.
#include "lumozeph.h"
#include "support/matchers.h"
#include "support/reads.h"

using namespace world;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const Layout instance {.size = 256, .texts = {{0, 64}, {136, 64}}, .zeroed = {{93, 2}}};

const std::vector<SingleRead> single_reads {
    {"GetInstance", 1, instance, Record().text(0, "router-1"),
        [](void** out) { return LUMOZEPH_GetInstance("router-1", as<LumoInstanceInfo>(out)); },
        releasing(LUMOZEPH_ReleaseInstance)},
};

const std::vector<ListRead> list_reads {
    {"GetInstances", 0, instance, 1000, 256000, Record(),
        [](void** out) { return LUMOZEPH_GetInstances(as<LumoInstanceList>(out)); },
        releasing(LUMOZEPH_ReleaseInstances)},
};

// Where an out pointer pointed before the call.
void* const elsewhere = reinterpret_cast<void*>(0x5a5a);

std::string number(std::size_t value)
{
    return std::to_string(value);
}

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

class SingleReads : public testing::TestWithParam<SingleRead>
{
protected:
    const SingleRead& row = GetParam();
    const std::size_t size = row.layout.size;
    void* out = elsewhere;

    const std::string reply_buffer = "malloc(" + number(size) + ")";
    const std::string result = "calloc(1, " + number(size) + ")";

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.read(&out); });
    }

    Bytes record() const { return Bytes(static_cast<const char*>(out), size); }

    void release() { EXPECT_EQ(row.release(out), 0); }
};

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

TEST_P(SingleReads, AcceptALongerReplyAndDecodeItsFirstRecord)
{
    const Bytes reply = reply_record(row.layout, 1);
    ASSERT_THAT(read(reports(reply, static_cast<std::int32_t>(2 * size + 1))), Succeeds());
    EXPECT_EQ(record(), decoded(row.layout, reply));
    release();
}

TEST_P(SingleReads, RejectAReplyThatIsShorterThanARecord)
{
    for (const std::int32_t length : {static_cast<std::int32_t>(size) - 1, 1, 0, -1, INT32_MIN}) {
        out = elsewhere;
        const Call call = read(reports(reply_record(row.layout, 0), length));
        EXPECT_THAT(call, Fails(EBADMSG)) << length;
        EXPECT_EQ(out, nullptr) << length;
        EXPECT_EQ(call.events,
            joined({{reply_buffer + " = #1"}, device_call(row.command), {result + " = #2", "free(#2)", "free(#1)"}}));
        EXPECT_THAT(call, LeavesNothingAllocated());
    }
}

TEST_P(SingleReads, StayInsideReplyAndResult)
{
    const Bytes reply = reply_record(row.layout, 2);
    ASSERT_THAT(read(replies(reply), {.guarded_blocks = true}), Succeeds());
    EXPECT_EQ(record(), decoded(row.layout, reply));
    release();
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

INSTANTIATE_TEST_SUITE_P(Rows, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

// A list holder as it lies in memory.
struct Listed
{
    std::int32_t count;
    char* records;
};

class ListReads : public testing::TestWithParam<ListRead>
{
protected:
    const ListRead& row = GetParam();
    const std::size_t size = row.layout.size;
    void* out = elsewhere;

    const std::string holder = "calloc(1, 16)";
    const std::string reply_buffer = "malloc(" + number(row.room) + ")";
    const std::string array = "calloc(" + number(row.cap) + ", " + number(size) + ")";

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return row.read(&out); });
    }

    Bytes reply_of(std::size_t records) const
    {
        Bytes reply;
        reply.reserve(records * size);
        for (std::size_t i = 0; i < records; ++i)
            reply += reply_record(row.layout, i);
        return reply;
    }

    const Listed& list() const { return *static_cast<const Listed*>(out); }
    Bytes record(std::size_t index) const { return Bytes(list().records + index * size, size); }

    void expect_records(std::size_t count) const
    {
        ASSERT_EQ(list().count, static_cast<std::int32_t>(count));
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(record(i), decoded(row.layout, reply_record(row.layout, i))) << "record " << i;
        for (std::size_t i = count; i < std::min(count + 2, row.cap); ++i)
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
    for (const std::int32_t length : {0, -1, INT32_MIN}) {
        ASSERT_THAT(read(reports({}, length)), Succeeds());
        ASSERT_NE(list().records, nullptr);
        EXPECT_EQ(list().count, 0);
        EXPECT_EQ(Bytes(list().records, row.cap * size).find_first_not_of('\0'), Bytes::npos);
        release();
    }
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

TEST_P(ListReads, IgnoreWhatIsReportedBeyondTheCap)
{
    const Bytes reply = reply_of(row.cap);
    for (const std::size_t more : {std::size_t {1}, size, size + 1}) {
        ASSERT_THAT(read(reports(reply, static_cast<std::int32_t>(row.room + more))), Succeeds());
        EXPECT_EQ(list().count, static_cast<std::int32_t>(row.cap));
        release();
    }
    ASSERT_THAT(read(reports(reply, INT32_MAX), {.guarded_blocks = true}), Succeeds());
    expect_records(row.cap);
    release();
}

TEST_P(ListReads, RejectAFragmentAtTheEnd)
{
    if (row.fragment == Fragment::DecodedAsRecord)
        GTEST_SKIP() << "takes a fragment for a record";
    const Bytes reply = reply_of(3);
    for (const std::size_t length : {std::size_t {1}, size - 1, size + 1, 2 * size + size / 2, 3 * size - 1}) {
        const Call call = read(reports(reply, static_cast<std::int32_t>(length)));
        expect_failure(call, EBADMSG,
            joined({{holder + " = #1", reply_buffer + " = #2"}, device_call(row.command),
                {array + " = #3", "free(#3)", "free(#1)", "free(#2)"}}));
        EXPECT_THAT(call, LeavesNothingAllocated());
    }
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

    auto no_device = device_call(row.command);
    no_device.resize(1);
    no_device.push_back("open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = -1");
    expect_failure(read({}, {.open_error = ENOENT}), ENOENT,
        joined({{holder + " = #1", reply_buffer + " = #2"}, no_device, frees}));
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

INSTANTIATE_TEST_SUITE_P(Rows, ListReads, testing::ValuesIn(list_reads), NameOfRow());

} // namespace
