// IPv6 routes and the path-MTU table.
#include "lumozeph.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;
using testing::ElementsAre;

namespace {

constexpr std::uint64_t dest1 = 0x0102030405060708;
constexpr std::uint64_t dest2 = 0x1112131415161718;
constexpr std::uint64_t gateway1 = 0x2122232425262728;
constexpr std::uint64_t gateway2 = 0x3132333435363738;

Record route()
{
    return Record().text(0, "inst").u64(68, dest1).u64(76, dest2).u8(84, 64).u64(101, gateway1).u64(109, gateway2);
}

const std::vector<Send> sends {
    {"Set", 110, route().text(117, "lif"),
        [] { return LUMOZEPH_SetRoutev6(dest1, dest2, 64, gateway1, gateway2, "lif", "inst"); }},
    {"Del", 111, route().text(117, "lif"),
        [] { return LUMOZEPH_DelRoutev6(dest1, dest2, 64, gateway1, gateway2, "lif", "inst"); }},
    {"SetWithoutInterface", 110, route(),
        [] { return LUMOZEPH_SetRoutev6(dest1, dest2, 64, gateway1, gateway2, nullptr, "inst"); }},
    {"DelWithoutInterface", 111, route(),
        [] { return LUMOZEPH_DelRoutev6(dest1, dest2, 64, gateway1, gateway2, nullptr, "inst"); }},
    {"SetWithPrefixLengthCutToAByte", 110, Record().text(0, "i").u8(84, 44),
        [] { return LUMOZEPH_SetRoutev6(0, 0, 300, 0, 0, nullptr, "i"); }},
    {"DelWithPrefixLengthCutToAByte", 111, Record().text(0, "i").u8(84, 44),
        [] { return LUMOZEPH_DelRoutev6(0, 0, 300, 0, 0, nullptr, "i"); }},
    {"SetWithUnterminatedTexts", 110, Record().text(0, Bytes(64, 'i')).u8(84, 255).text(117, Bytes(64, 'l')),
        [] { return LUMOZEPH_SetRoutev6(0, 0, 255, 0, 0, Bytes(65, 'l').c_str(), Bytes(65, 'i').c_str()); }},
    {"DelWithUnterminatedTexts", 111, Record().text(0, Bytes(64, 'i')).text(117, Bytes(64, 'l')),
        [] { return LUMOZEPH_DelRoutev6(0, 0, 0, 0, 0, Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str()); }},
};

INSTANTIATE_TEST_SUITE_P(Route6, Sends, testing::ValuesIn(sends), NameOfRow());

TEST(Route6, NeedsAnInstanceToBeSetOrDeleted)
{
    expect_rejected([] { return LUMOZEPH_SetRoutev6(1, 2, 3, 4, 5, "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_DelRoutev6(1, 2, 3, 4, 5, "lif", nullptr); });
}

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
    const Bytes request = Record().text(0, "inst");
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
    const Call call = read({replies(count_of(0))}, {}, Bytes(64, 'i').c_str());
    ASSERT_THAT(call, Succeeds());
    const Bytes request = Record().text(0, Bytes(64, 'i'));
    EXPECT_EQ(call.sent.at(0).input, request);
    EXPECT_EQ(call.sent.at(1).input, request);
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

TEST(PathMtu, IsClearedWithAnEnvelopeOfZeros)
{
    expect_empty_envelope(151, [] { return LUMOZEPH_PMTUTableCearv6(); });
}

} // namespace
