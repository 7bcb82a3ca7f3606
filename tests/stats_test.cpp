// Statistics, whose counters the kind of the record chooses.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using operations::reply_record;

namespace {

// Kept: nothing but the kind arrives.
TEST(Stats, OfAnyOtherKindHaveNothingButTheirKind)
{
    for (const std::uint32_t kind : {2u, 4u, 256u, 0x80000000u, 0xffffffffu}) {
        Bytes reply = reply_record({.size = 804}, kind);
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
