// Conditions on the members of records.
#include "tool/filter.h"

#include "lumozeph.h"
#include "tool/mistakes.h"

#include <cstring>
#include <gmock/gmock.h>

using namespace tool;
using testing::HasSubstr;
using testing::ThrowsMessage;

namespace {

const Record& record(std::string_view name)
{
    return **std::ranges::find_if(records(), [name](const Record* one) { return one->name == name; });
}

LumoRouteInfo route()
{
    LumoRouteInfo info {};
    info.routeDest = parse_ipv4("10.0.0.0", AddressOrder::Network);
    info.routeMask = parse_ipv4("255.0.0.0", AddressOrder::Network);
    info.routeValue1 = 7;
    info.nextHopCount = 1;
    info.nextHops[0].nextHopAddr = parse_ipv4("10.1.1.1", AddressOrder::Network);
    std::strcpy(info.nextHops[0].nextHopLifName, "eth0");
    return info;
}

bool matches(std::string_view condition)
{
    const LumoRouteInfo info = route();
    return Filter(condition, record("LumoRouteInfo"), AddressOrder::Network)
        .matches(std::as_bytes(std::span(&info, 1)).data());
}

auto filtering(std::string_view condition)
{
    return [=] { matches(condition); };
}

} // namespace

TEST(Filters, CompareNumbersAndAddressesByTheirRank)
{
    for (const char* const condition :
        {"routeValue1==7", "routeValue1==0x7", "routeValue1!=8", "routeValue1<8", "routeValue1<=7", "routeValue1>=7",
            "routeValue1>6", "routeMask==255.0.0.0", "routeDest<10.0.0.1", "routeDest>9.255.255.255", "routeDest~10.0"})
        EXPECT_TRUE(matches(condition)) << condition;
    for (const char* const condition : {"routeValue1==8", "routeValue1!=7", "routeValue1<7", "routeValue1>7",
             "routeValue1<=6", "routeValue1>=8", "routeMask==255.255.0.0", "routeDest<2.0.0.0", "routeDest~11"})
        EXPECT_FALSE(matches(condition)) << condition;
}

TEST(Filters, CompareEverythingElseAsText)
{
    EXPECT_TRUE(matches("nextHops~eth0"));
    EXPECT_TRUE(matches("nextHops==10.1.1.1 eth0"));
    EXPECT_FALSE(matches("nextHops~eth1"));
    EXPECT_TRUE(matches("routeValue3==0000000000000000"));
}

TEST(Filters, TakeAddressesInAnySpelling)
{
    LumoLifInfo info {};
    info.lifMac[0] = 0xab;
    const auto holds = [&](std::string_view condition) {
        return Filter(condition, record("LumoLifInfo"), AddressOrder::Network)
            .matches(std::as_bytes(std::span(&info, 1)).data());
    };
    EXPECT_TRUE(holds("lifMac==AB:00-00:00:00:00"));
    EXPECT_TRUE(holds("lifMac~ab:"));
    EXPECT_FALSE(holds("lifMac!=ab:00:00:00:00:00"));
}

TEST(Filters, SayWhatIsWrong)
{
    EXPECT_THAT(filtering("routeMsk==1"),
        ThrowsMessage<Misuse>("there is no field 'routeMsk' here; did you mean 'routeMask'?"));
    EXPECT_THAT(filtering("routeMask"), ThrowsMessage<Misuse>(HasSubstr("is not a condition")));
    EXPECT_THAT(filtering("routeMask=255.0.0.0"), ThrowsMessage<Misuse>(HasSubstr("is not a condition")));
    EXPECT_THAT(filtering("routeMask==8"), ThrowsMessage<Misuse>("'8' is not an IPv4 address"));
    EXPECT_THAT(filtering("nextHops<a"), ThrowsMessage<Misuse>(HasSubstr("nextHops is not a number")));
    EXPECT_THAT(filtering(""), ThrowsMessage<Misuse>(HasSubstr("is not a condition")));
}
