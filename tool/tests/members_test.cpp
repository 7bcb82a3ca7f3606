// The members of records, as text.
#include "tool/members.h"

#include "lumozeph.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstring>
#include <gmock/gmock.h>
#include <sys/socket.h>

using namespace tool;

namespace {

template <class Info>
std::string text(std::string_view name, std::string_view member, const Info& info)
{
    const Record& record = **std::ranges::find_if(records(), [name](const Record* one) { return one->name == name; });
    return member_text(record, *record.find(member), std::as_bytes(std::span(&info, 1)).data(), AddressOrder::Network);
}

} // namespace

TEST(Members, AreShownAsFarAsTheyAreInUse)
{
    LumoRouteInfo route {};
    route.nextHopCount = 2;
    inet_pton(AF_INET, "10.1.1.1", &route.nextHops[0].nextHopAddr);
    std::strcpy(route.nextHops[0].nextHopLifName, "eth0");
    inet_pton(AF_INET, "10.1.1.2", &route.nextHops[1].nextHopAddr);
    std::strcpy(route.nextHops[2].nextHopLifName, "beyond");
    EXPECT_EQ(text("LumoRouteInfo", "nextHops", route), "10.1.1.1 eth0, 10.1.1.2");
    route.nextHopCount = 255;
    EXPECT_EQ(std::ranges::count(text("LumoRouteInfo", "nextHops", route), ','), 7);
}

TEST(Members, OfAFamilyAreShownAsItHasThem)
{
    LumoLifInfo lif {};
    lif.dhcpRelay.relayCount = 3;
    inet_pton(AF_INET, "192.0.2.1", lif.dhcpRelay.servers[0].address);
    lif.dhcpRelay.servers[0].family = AF_INET;
    inet_pton(AF_INET6, "2001:db8::1", lif.dhcpRelay.servers[1].address);
    lif.dhcpRelay.servers[1].family = AF_INET6;
    lif.dhcpRelay.servers[2].family = 99;
    EXPECT_THAT(text("LumoLifInfo", "dhcpRelay", lif),
        testing::HasSubstr("192.0.2.1, 2001:db8::1, 00000000000000000000000000000000"));
    lif.ipv6Count = 1;
    inet_pton(AF_INET6, "2001:db8::2", lif.ipv6Addrs[0].address);
    lif.ipv6Addrs[0].prefixLen = 64;
    EXPECT_EQ(text("LumoLifInfo", "ipv6Addrs", lif), "2001:db8::2/64");
}

TEST(Members, ThatShareAWordAreApart)
{
    LumoBridgeFdbEntry entry {};
    entry.value2 = 0xabcdef;
    entry.value3 = 0x12;
    EXPECT_EQ(text("LumoBridgeFdbEntry", "value2", entry), std::to_string(0xabcdef));
    EXPECT_EQ(text("LumoBridgeFdbEntry", "value3", entry), std::to_string(0x12));
}

TEST(Members, AreAsLargeAsTheHeaderSays)
{
    for (const Record* const record : records())
        for (const Member& member : record->members)
            EXPECT_LE(member.offset + member.width * std::max<std::size_t>(member.length, 1), record->size)
                << record->name << '.' << member.name;
}

TEST(Printable, LeavesCharactersAndShowsWhatIsNone)
{
    EXPECT_EQ(printable("eth0 ä €\U0001f600"), "eth0 ä €\U0001f600");
    EXPECT_EQ(printable("a\x1b[2Jb\n\x7f"), "a\\x1b[2Jb\\x0a\\x7f");
    EXPECT_EQ(printable("\xff\xc3"), "\\xff\\xc3");
    EXPECT_EQ(printable("\xc2\x9b"
                        "31m"),
        "\\xc2\\x9b31m");
    EXPECT_EQ(printable("\xe2\x82"), "\\xe2\\x82");
}
