// Statistics, whose counters the kind of the record chooses.
#include "lumozeph.h"
#include "support/layouts.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;

namespace {

const std::vector<SingleRead> single_reads {
    {"GetLumoInstanceCPStats", 5, layouts::stats_of_no_kind, Record().text(0, "inst"),
        [](void** out) { return LUMOZEPH_GetLumoInstanceCPStats("inst", as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLifStats", 23, layouts::stats_of_no_kind, Record().text(0, "inst").text(192, "lif"),
        [](void** out) { return LUMOZEPH_GetLifStats("inst", "lif", as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLifStatsWithLongNames", 23, layouts::stats_of_no_kind,
        Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [](void** out) {
            return LUMOZEPH_GetLifStats(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), as<LumoStats>(out));
        },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLifStatsCached", 23, layouts::stats_of_no_kind, Record().text(0, "inst").text(192, "lif").u32(360, 1),
        [](void** out) { return LUMOZEPH_GetLifStatsCached("inst", "lif", as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    {"GetLumoDiStats", 43, layouts::stats_of_no_kind, Record(),
        [](void** out) { return LUMOZEPH_GetLumoDiStats(as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    // Kept: the counter at 68 stays zero.
    {"GetLumoDiStatsOfKind0HasItsFirst28CountersButTheOneAt68", 43, layouts::stats_of_kind_0, Record(),
        [](void** out) { return LUMOZEPH_GetLumoDiStats(as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    // Kept: the counters at 572 and 620 stay zero, and that at 668 arrives twice.
    {"GetLumoDiStatsOfKind1HasAllCountersButTwoAndOneTwice", 43, layouts::stats_of_kind_1, Record(),
        [](void** out) { return LUMOZEPH_GetLumoDiStats(as<LumoStats>(out)); },
        [](void* record) { return LUMOZEPH_ReleaseStats(record); }},
    // Kept: the first counter stays zero.
    {"GetLumoDiStatsOfKind3HasNineteenCountersFrom12On", 43, layouts::stats_of_kind_3, Record(),
        [](void** out) { return LUMOZEPH_GetLumoDiStats(as<LumoStats>(out)); },
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

// Kept: nothing but the kind arrives.
TEST(Stats, OfAnyOtherKindHaveNothingButTheirKind)
{
    for (const std::uint32_t kind : {2u, 4u, 256u, 0x80000000u, 0xffffffffu}) {
        Bytes reply = reply_record(layouts::stats_of_no_kind, kind);
        put(reply, 0, kind, 4);
        ScriptedDevice device(replies(reply));
        LumoStats* out = nullptr;
        ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetLumoDiStats(&out); }), Succeeds());
        EXPECT_EQ(Bytes(reinterpret_cast<const char*>(out), 804), reply.substr(0, 4) + Bytes(800, '\0')) << kind;
        LUMOZEPH_ReleaseStats(out);
    }
}

TEST(Stats, CountersLieEightBytesApartFrom4On)
{
    EXPECT_EQ(offsetof(LumoStats, statsKind), 0u);
    EXPECT_EQ(offsetof(LumoStats, counters), 4u);
    EXPECT_EQ(sizeof(LumoStats::counters), 800u);
}

} // namespace
