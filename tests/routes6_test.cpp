// IPv6 routes.
#include "fake/matchers.h"
#include "operations/request.h"
#include "shapes/rows.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using operations::Request;
using shapes::elsewhere;
using testing::ElementsAre;

namespace {

Bytes count_of(std::int32_t count)
{
    Bytes reply(4, '\0');
    put(reply, 0, static_cast<std::uint32_t>(count), 4);
    return reply;
}

class Routes6 : public testing::Test
{
protected:
    void* block = elsewhere;
    std::uint32_t count = 4711;

    Call read(const std::vector<Answer>& answers, const System& system = {}, const char* instance = "inst")
    {
        ScriptedDevice device;
        for (const Answer& answer : answers)
            device.next(answer);
        return observe(device, system, [&] { return LUMOZEPH_GetRoutesv6(instance, &block, &count); });
    }
};

TEST_F(Routes6, AreCountedAndThenRead)
{
    const Call call = read({replies(count_of(3)), replies(Bytes(776 * 3, 'r'))});
    ASSERT_THAT(call, Succeeds());
    EXPECT_THAT(call.events,
        ElementsAre("getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000",
            "ioctl(5000, 115)", "close(5000)", "malloc(6208000) = #1", "getenv(USE_UPGRADE_DEV)",
            "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000", "ioctl(5000, 114)", "close(5000)"));
    ASSERT_EQ(call.sent.size(), 2u);
    const Bytes request(Request().text(0, "inst").content());
    EXPECT_EQ(call.sent[0].input, request);
    EXPECT_EQ(call.sent[0].out_len, 4u);
    EXPECT_EQ(call.sent[0].room, Bytes(4, '\0'));
    EXPECT_EQ(call.sent[1].input, request);
    EXPECT_EQ(call.sent[1].out_len, 6208000u);
    EXPECT_EQ(call.sent[1].out_ptr, reinterpret_cast<std::uint64_t>(block));
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(Bytes(static_cast<const char*>(block), 776 * 3), Bytes(776 * 3, 'r'));
    free(block);
}

TEST_F(Routes6, HaveAnUnterminatedKey)
{
    const Bytes key(64, 'i');
    const Call call = read({replies(count_of(0))}, {}, key.c_str());
    ASSERT_THAT(call, Succeeds());
    ASSERT_EQ(call.sent.size(), 2u);
    for (const Sent& sent : call.sent)
        EXPECT_EQ(sent.input, key + Bytes(712, '\0'));
    free(block);
}

// A module that writes into the requests that it gets.
class ScribblingDevice : public ScriptedDevice
{
public:
    Answer answer(const Sent& sent) override
    {
        std::memset(reinterpret_cast<char*>(sent.in_ptr), 'x', sent.in_len);
        return ScriptedDevice::answer(sent);
    }
};

TEST_F(Routes6, AreReadWithARequestThatIsFilledAnew)
{
    ScribblingDevice device;
    device.next(replies(count_of(0)));
    const Call call = observe(device, [&] { return LUMOZEPH_GetRoutesv6("inst", &block, &count); });
    ASSERT_THAT(call, Succeeds());
    ASSERT_EQ(call.sent.size(), 2u);
    EXPECT_EQ(call.sent[1].input, call.sent[0].input);
    free(block);
}

TEST_F(Routes6, GetRoomFor8000OrFor30000)
{
    for (const auto& [reported, room] :
        {std::pair {-1, 6208000u}, std::pair {INT32_MIN, 6208000u}, std::pair {0, 6208000u}, std::pair {7999, 6208000u},
            std::pair {8000, 23280000u}, std::pair {29999, 23280000u}}) {
        const Call call = read({replies(count_of(reported)), replies({})});
        ASSERT_THAT(call, Succeeds()) << reported;
        EXPECT_EQ(call.sent.at(1).out_len, room) << reported;
        EXPECT_EQ(call.events.at(4), "malloc(" + std::to_string(room) + ") = #1");
        EXPECT_EQ(count, 0u);
        free(block);
    }
}

TEST_F(Routes6, FailWithEnomemBeforeAnyAllocationFrom30000On)
{
    for (const std::int32_t reported : {30000, INT32_MAX}) {
        const Call call = read({replies(count_of(reported))});
        EXPECT_THAT(call, Fails(ENOMEM));
        EXPECT_EQ(call.events.size(), 4u);
        EXPECT_EQ(call.sent.size(), 1u);
        EXPECT_EQ(block, elsewhere);
        EXPECT_EQ(count, 4711u);
    }
}

TEST_F(Routes6, CountAs0WhenTheModuleWritesNoCount)
{
    const Call call = read({writes_nothing(), replies({})});
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(1).out_len, 6208000u);
    free(block);
}

// Kept: whatever the count query failed of is reported as ENOMEM.
TEST_F(Routes6, FailWithEnomemWhenTheCountQueryFails)
{
    const Call rejected = read({fails(ENOENT)});
    EXPECT_THAT(rejected, Fails(ENOMEM));
    EXPECT_EQ(rejected.sent.size(), 1u);
    const Call absent = read({}, {.open_error = EACCES});
    EXPECT_THAT(absent, Fails(ENOMEM));
    EXPECT_THAT(absent, LeavesNothingAllocated());
    EXPECT_EQ(block, elsewhere);
    EXPECT_EQ(count, 4711u);
}

TEST_F(Routes6, FailWithANullBlockWhenItCannotBeAllocated)
{
    const Call call = read({replies(count_of(1))}, {.failing_allocation = 1});
    EXPECT_THAT(call, Fails(ENOMEM));
    EXPECT_EQ(call.events.back(), "malloc(6208000) = null");
    EXPECT_EQ(block, nullptr);
    EXPECT_EQ(count, 4711u);
}

// Kept: the block is freed, but the pointer stays and the count is stored.
TEST_F(Routes6, KeepThePointerAndStoreTheCountWhenReadingFails)
{
    const Call call = read({replies(count_of(9000)), fails(EPERM)});
    EXPECT_THAT(call, Fails(EPERM));
    EXPECT_EQ(call.events.back(), "free(#1)");
    EXPECT_EQ(reinterpret_cast<std::uint64_t>(block), call.sent.at(1).out_ptr);
    EXPECT_THAT(call, LeavesNothingAllocated());
    EXPECT_EQ(count, 30000u);
}

TEST_F(Routes6, CountWholeEntriesOfWhatWasWritten)
{
    for (const auto& [length, entries] :
        {std::pair {776 * 3 + 5, 3u}, std::pair {775, 0u}, std::pair {6208000, 8000u}}) {
        ASSERT_THAT(read({replies(count_of(3)), reports({}, length)}), Succeeds());
        EXPECT_EQ(count, entries);
        free(block);
    }
    ASSERT_THAT(read({replies(count_of(3)), writes_nothing()}), Succeeds());
    EXPECT_EQ(count, 8000u);
    free(block);
}

} // namespace
