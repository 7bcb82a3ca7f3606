// Statistics, whose counters the kind of the record chooses.
#include "lumozeph.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;

namespace {

// By kind: which bytes of the 804 do not reach the caller.
Layout of_kind(std::vector<Range> zeroed)
{
    return {.size = 804, .texts = {}, .zeroed = std::move(zeroed)};
}

// The generic tests send records whose kind is no kind at all: only the word itself arrives.
const Layout of_no_kind = of_kind({{4, 800}});

const std::vector<SingleRead> single_reads {
    {"GetLumoInstanceCPStats", 5, of_no_kind, Record().text(0, "inst"),
        [](void** out) { return LUMOZEPH_GetLumoInstanceCPStats("inst", as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLifStats", 23, of_no_kind, Record().text(0, "inst").text(192, "lif"),
        [](void** out) { return LUMOZEPH_GetLifStats("inst", "lif", as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLifStatsWithLongNames", 23, of_no_kind, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [](void** out) {
            return LUMOZEPH_GetLifStats(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), as<LumoStats>(out));
        },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLifStatsCached", 23, of_no_kind, Record().text(0, "inst").text(192, "lif").u32(360, 1),
        [](void** out) { return LUMOZEPH_GetLifStatsCached("inst", "lif", as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLumoDiStats", 43, of_no_kind, Record(), [](void** out) { return LUMOZEPH_GetLumoDiStats(as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
};

INSTANTIATE_TEST_SUITE_P(Stats, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

const std::vector<Send> sends {
    {"ResetLumoInstanceCPStats", 6, Record().text(0, "inst"), [] { return LUMOZEPH_ResetLumoInstanceCPStats("inst"); }},
    {"ResetLifStats", 24, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_ResetLifStats("inst", "lif"); }},
    {"ResetLumoDiStats", 44, Record(), [] { return LUMOZEPH_ResetLumoDiStats(); }},
};

INSTANTIATE_TEST_SUITE_P(Stats, Sends, testing::ValuesIn(sends), NameOfRow());

TEST(Stats, OfAnInstanceNeedItsKey)
{
    LumoStats* out = reinterpret_cast<LumoStats*>(elsewhere);
    expect_rejected([&] { return LUMOZEPH_GetLumoInstanceCPStats(nullptr, &out); });
    expect_rejected([&] { return LUMOZEPH_GetLifStats(nullptr, "lif", &out); });
    expect_rejected([&] { return LUMOZEPH_GetLifStatsCached(nullptr, "lif", &out); });
    expect_rejected([] { return LUMOZEPH_ResetLumoInstanceCPStats(nullptr); });
    expect_rejected([] { return LUMOZEPH_ResetLifStats(nullptr, "lif"); });
    EXPECT_EQ(out, reinterpret_cast<LumoStats*>(elsewhere));
}

// A reply of this kind in which every counter has bytes of its own.
Bytes reply_of_kind(std::uint32_t kind)
{
    Bytes reply = reply_record(of_kind({}), kind);
    put(reply, 0, kind, 4);
    return reply;
}

Bytes read(const Bytes& reply, std::int32_t length = 804)
{
    ScriptedDevice device(reports(reply, length));
    LumoStats* out = nullptr;
    EXPECT_THAT(observe(device, {.guarded_blocks = true}, [&] { return LUMOZEPH_GetLumoDiStats(&out); }), Succeeds());
    if (out == nullptr)
        return {};
    const Bytes record(reinterpret_cast<const char*>(out), 804);
    LUMOZEPH_ReleaseStats(out);
    return record;
}

// Kept: the counter at 68 stays zero.
TEST(Stats, OfKind0HaveTheirFirst28CountersButTheOneAt68)
{
    const Bytes reply = reply_of_kind(0);
    EXPECT_EQ(read(reply), decoded(of_kind({{68, 8}, {228, 576}}), reply));
}

// Kept: the counters at 572 and 620 stay zero, and that at 668 arrives twice.
TEST(Stats, OfKind1HaveAllCountersButTwoAndOneTwice)
{
    const Bytes reply = reply_of_kind(1);
    Bytes expected = decoded(of_kind({{572, 8}, {620, 8}}), reply);
    expected.replace(676, 8, reply.substr(668, 8));
    ASSERT_NE(reply.substr(668, 8), reply.substr(676, 8));
    EXPECT_EQ(read(reply), expected);
}

// Kept: the first counter stays zero.
TEST(Stats, OfKind3HaveNineteenCountersFrom12On)
{
    const Bytes reply = reply_of_kind(3);
    EXPECT_EQ(read(reply), decoded(of_kind({{4, 8}, {164, 640}}), reply));
}

// Kept: nothing but the kind arrives.
TEST(Stats, OfAnyOtherKindHaveNothingButTheirKind)
{
    for (const std::uint32_t kind : {2u, 4u, 256u, 0x80000000u, 0xffffffffu}) {
        const Bytes reply = reply_of_kind(kind);
        EXPECT_EQ(read(reply), reply.substr(0, 4) + Bytes(800, '\0')) << kind;
    }
}

TEST(Stats, OfALongerReplyAreItsFirst804Bytes)
{
    const Bytes reply = reply_of_kind(1);
    EXPECT_EQ(read(reply, 805), read(reply, 804));
}

TEST(Stats, CountersLieEightBytesApartFrom4On)
{
    EXPECT_EQ(offsetof(LumoStats, statsKind), 0u);
    EXPECT_EQ(offsetof(LumoStats, counters), 4u);
    EXPECT_EQ(sizeof(LumoStats::counters), 800u);
}

} // namespace
