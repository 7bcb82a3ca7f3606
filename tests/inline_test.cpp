// What lumozeph_inline.h adds: values and texts, counted tables, the reason of a failure.
#include <arpa/inet.h>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <string>
#include <unistd.h>

namespace {

// What an open of the module's device does in these tests.
int open_error;
std::string opened;
bool upgrade;
int closed;

[[maybe_unused]] int open_in_test(const char* path, int)
{
    opened = path;
    if (open_error == 0)
        return 5000;
    errno = open_error;
    return -1;
}

[[maybe_unused]] int close_in_test(int descriptor)
{
    closed = descriptor;
    errno = EIO;
    return 0;
}

[[maybe_unused]] char* getenv_in_test(const char* name)
{
    static char set[] = "";
    return upgrade && std::string(name) == "USE_UPGRADE_DEV" ? set : nullptr;
}

} // namespace

#define open open_in_test
#define close close_in_test
#define getenv getenv_in_test
#include <lumozeph_inline.h>
#undef getenv
#undef close
#undef open

namespace {

TEST(Inline, WordsHoldAnIpv6AddressAsItIsInMemory)
{
    std::uint8_t address[16];
    ASSERT_EQ(inet_pton(AF_INET6, "2001:db8:1:2:3:4:5:6", address), 1);
    std::uint64_t words[2];
    lumozeph_ipv6_to_words(address, words);
    EXPECT_EQ(std::memcmp(words, address, 16), 0);
    std::uint8_t back[16];
    lumozeph_ipv6_from_words(words[0], words[1], back);
    EXPECT_EQ(std::memcmp(back, address, 16), 0);
}

TEST(Inline, AMaskIsThatOfItsLength)
{
    const auto text_of = [](std::uint32_t mask) {
        char text[INET_ADDRSTRLEN];
        return std::string(inet_ntop(AF_INET, &mask, text, sizeof text));
    };
    EXPECT_EQ(text_of(lumozeph_mask_of_length(0)), "0.0.0.0");
    EXPECT_EQ(text_of(lumozeph_mask_of_length(1)), "128.0.0.0");
    EXPECT_EQ(text_of(lumozeph_mask_of_length(12)), "255.240.0.0");
    EXPECT_EQ(text_of(lumozeph_mask_of_length(24)), "255.255.255.0");
    EXPECT_EQ(text_of(lumozeph_mask_of_length(31)), "255.255.255.254");
    EXPECT_EQ(text_of(lumozeph_mask_of_length(32)), "255.255.255.255");
    EXPECT_EQ(text_of(lumozeph_mask_of_length(33)), "255.255.255.255");
    for (std::uint32_t length = 0; length <= 32; ++length)
        EXPECT_EQ(lumozeph_length_of_mask(lumozeph_mask_of_length(length)), static_cast<int>(length));
}

TEST(Inline, AMaskWithHolesHasNoLength)
{
    EXPECT_EQ(lumozeph_length_of_mask(inet_addr("255.0.255.0")), -1);
    EXPECT_EQ(lumozeph_length_of_mask(inet_addr("0.0.0.1")), -1);
    EXPECT_EQ(lumozeph_length_of_mask(inet_addr("255.255.255.1")), -1);
}

TEST(Inline, AMacAddressIsReadAndWritten)
{
    std::uint8_t mac[6];
    char text[LUMOZEPH_MAC_TEXT_SIZE];
    ASSERT_EQ(lumozeph_mac_from_text("00:1f:A2-bC-0d:Ff", mac), 0);
    const std::uint8_t expected[] = {0x00, 0x1f, 0xa2, 0xbc, 0x0d, 0xff};
    EXPECT_EQ(std::memcmp(mac, expected, 6), 0);
    EXPECT_STREQ(lumozeph_mac_to_text(mac, text), "00:1f:a2:bc:0d:ff");
}

TEST(Inline, WhatIsNoMacAddressLeavesTheCallersUntouched)
{
    for (const char* const text : {"", "0", "00", "00:", "00:11:22:33:44", "00:11:22:33:44:", "00:11:22:33:44:5",
             "00:11:22:33:44:55:", "00:11:22:33:44:555", "00:11:22:33:44:gg", "0:11:22:33:44:55", " 0:11:22:33:44:55",
             "001122334455", "00.11.22.33.44.55", "00:11:22:33:44:5\n"}) {
        std::uint8_t mac[6] = {1, 2, 3, 4, 5, 6};
        EXPECT_EQ(lumozeph_mac_from_text(text, mac), -1) << text;
        const std::uint8_t untouched[] = {1, 2, 3, 4, 5, 6};
        EXPECT_EQ(std::memcmp(mac, untouched, 6), 0) << text;
    }
}

TEST(Inline, ATableHasNoMoreEntriesThanRoom)
{
    LumoRouteInfo route {};
    LumoLifInfo lif {};
    LumoDhcpRelay relay {};
    LumoLifPolicyTableRef refs {};
    LumoRssStats stats {};
    EXPECT_EQ(lumozeph_next_hops(&route), 0u);
    route.nextHopCount = 3;
    EXPECT_EQ(lumozeph_next_hops(&route), 3u);
    route.nextHopCount = 200;
    EXPECT_EQ(lumozeph_next_hops(&route), sizeof route.nextHops / sizeof route.nextHops[0]);
    lif.ipv6Count = 0xffff;
    EXPECT_EQ(lumozeph_ipv6_addrs(&lif), sizeof lif.ipv6Addrs / sizeof lif.ipv6Addrs[0]);
    relay.relayCount = 0xff;
    EXPECT_EQ(lumozeph_relay_servers(&relay), sizeof relay.servers / sizeof relay.servers[0]);
    refs.refCount = 0xffff;
    EXPECT_EQ(lumozeph_policy_table_refs(&refs), sizeof refs.refs / sizeof refs.refs[0]);
    stats.rssEntryCount = 0xffffffff;
    EXPECT_EQ(lumozeph_rss_entries(&stats), static_cast<std::uint32_t>(LUMOZEPH_RSS_ENTRIES_MAX));
}

TEST(Inline, EntriesOfIpv6RoutesFollowEachOther)
{
    const std::uint8_t block[2 * 776] {};
    EXPECT_EQ(lumozeph_route6(block, 0), block);
    EXPECT_EQ(lumozeph_route6(block, 1), block + 776);
}

std::string reason(int error, int error_of_open)
{
    open_error = error_of_open;
    opened.clear();
    closed = -1;
    errno = ELOOP;
    char text[128];
    EXPECT_EQ(lumozeph_reason(error, text, sizeof text), text);
    EXPECT_EQ(errno, ELOOP);
    EXPECT_EQ(closed, !opened.empty() && error_of_open == 0 ? 5000 : -1);
    return text;
}

TEST(Inline, AReasonTellsWhatErrnoDoesNot)
{
    EXPECT_EQ(reason(ENOENT, ENOENT), "the module is not loaded on this host: its device is not there");
    EXPECT_EQ(reason(ENOENT, 0), "the module knows no such object");
    EXPECT_EQ(reason(EACCES, EACCES), "no right to open the module's device");
    EXPECT_EQ(reason(EPERM, EPERM), "no right to open the module's device");
    EXPECT_EQ(reason(EPERM, 0), "the module does not allow it");
    // LUMOZEPH_GetRoutesv6 reports ENOMEM when there is no device.
    EXPECT_EQ(reason(ENOMEM, ENOENT), "the module is not loaded on this host: its device is not there");
    EXPECT_EQ(reason(ENOMEM, 0), std::strerror(ENOMEM));
    EXPECT_EQ(opened, "/pelt/devices/char/zephdriver/kola_lumo");
    upgrade = true;
    reason(ENOENT, ENOENT);
    upgrade = false;
    EXPECT_EQ(opened, "/pelt/devices/char/zephdriver/kola_lumo_ugrade");
}

TEST(Inline, AReasonOfItsOwnNeedsNoDevice)
{
    EXPECT_EQ(reason(EINVAL, 0), std::strerror(EINVAL));
    EXPECT_EQ(opened, "");
}

TEST(Inline, AReasonIsCutToItsRoom)
{
    open_error = 0;
    char text[12];
    EXPECT_STREQ(lumozeph_reason(ENOENT, text, sizeof text), "the module ");
    char nothing[1] = {'x'};
    EXPECT_STREQ(lumozeph_reason(ENOENT, nothing, sizeof nothing), "");
}

} // namespace
