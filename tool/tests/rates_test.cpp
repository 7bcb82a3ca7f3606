// What counters count a second.
#include "tool/rates.h"

#include "lumozeph.h"

#include <gmock/gmock.h>

using namespace tool;
using testing::ElementsAre;

namespace {

template <class Packed>
const std::byte* bytes(const Packed& record)
{
    return std::as_bytes(std::span(&record, 1)).data();
}

} // namespace

TEST(Rates, AreWhatWasCountedOverTheTime)
{
    LumoStats before {};
    LumoStats after {};
    before.counters[1] = 100;
    after.counters[1] = 150;
    after.counters[2] = 1;
    const auto rates = rates_between(*find_operation("GetLumoDiStats")->record, bytes(before), bytes(after), 4);
    ASSERT_EQ(rates.size(), 1u);
    EXPECT_EQ(rates[0].name, "counters");
    ASSERT_EQ(rates[0].values.size(), 100u);
    EXPECT_EQ(rates[0].values[0], 0);
    EXPECT_EQ(rates[0].values[1], 12.5);
    EXPECT_EQ(rates[0].values[2], 0.25);
}

TEST(Rates, BeginAtZeroAfterAReset)
{
    LumoStats before {};
    LumoStats after {};
    before.counters[0] = 1000;
    after.counters[0] = 3;
    const auto rates = rates_between(*find_operation("GetLumoDiStats")->record, bytes(before), bytes(after), 1);
    EXPECT_EQ(rates[0].values[0], 3);
}

TEST(Rates, AreThoseOfTheEntriesInUse)
{
    LumoRssStats before {};
    LumoRssStats after {};
    before.rssEntryCount = after.rssEntryCount = 2;
    after.rssCounter2[1] = 8;
    after.rssCounter2[2] = 99;
    const auto rates = rates_between(*find_operation("SoftRSSGetStats")->record, bytes(before), bytes(after), 2);
    ASSERT_EQ(rates.size(), 3u);
    EXPECT_THAT(rates[1].values, ElementsAre(0, 4));
}
