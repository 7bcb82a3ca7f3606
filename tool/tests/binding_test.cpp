// Arguments as people write them.
#include "tool/binding.h"

#include "tool/mistakes.h"

#include <cstring>
#include <gmock/gmock.h>

using namespace tool;
using testing::HasSubstr;
using testing::ThrowsMessage;

namespace {

Arguments bound(std::string_view operation, std::vector<Given> given,
    Completeness completeness = Completeness::Demanded, AddressOrder order = AddressOrder::Network)
{
    return arguments_of(*find_operation(operation), given, completeness, order);
}

auto binding(std::string_view operation, std::vector<Given> given)
{
    return [=] { bound(operation, given); };
}

std::uint32_t in_memory(std::initializer_list<std::uint8_t> bytes)
{
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.begin(), sizeof number);
    return number;
}

} // namespace

TEST(Binding, TakesAddressesInTheOrderOfTheModule)
{
    const std::vector<Given> given {{"instance", "blue"}, {"address", "10.1.2.3"}};
    EXPECT_EQ(bound("SetCPIp", given).number<std::uint32_t>(1), in_memory({10, 1, 2, 3}));
    EXPECT_EQ(
        bound("SetCPIp", given, Completeness::Demanded, AddressOrder::Host).number<std::uint32_t>(1), 0x0a010203u);
}

TEST(Binding, TakesMasksAsAddressesAndAsLengths)
{
    const std::vector<Given> route {{"instance", "blue"}, {"dest", "10.0.0.0"}, {"param", "0"}};
    for (const char* const mask : {"255.255.240.0", "20"}) {
        std::vector<Given> given = route;
        given.push_back({"mask", mask});
        EXPECT_EQ(bound("GetResolveRoute", given).number<std::uint32_t>(2), in_memory({255, 255, 240, 0})) << mask;
    }
    std::vector<Given> all = route;
    all.push_back({"mask", "0"});
    EXPECT_EQ(bound("GetResolveRoute", all).number<std::uint32_t>(2), 0u);
}

TEST(Binding, MakesBothWordsOfAnIpv6Address)
{
    for (const char* const name : {"word1", "address"}) {
        const Arguments arguments = bound("DelArpv6", {{name, "2001:db8::1"}, {"lif", "eth0"}, {"instance", "blue"}});
        const std::uint8_t expected[16] {0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1};
        const std::uint64_t words[2] {arguments.number<std::uint64_t>(0), arguments.number<std::uint64_t>(1)};
        EXPECT_EQ(std::memcmp(words, expected, sizeof expected), 0) << name;
    }
}

TEST(Binding, SaysWhichAddressIsWanted)
{
    for (const char* const text : {"10.0.0.1", "", "abc", "2001:db8", "-1"})
        EXPECT_THAT(binding("DelArpv6", {{"address", text}}),
            ThrowsMessage<Misuse>(HasSubstr(std::string("'") + text + "' is not an IPv6 address")));
    EXPECT_THAT(binding("DelArpv6", {{"address", "99999999999999999999"}}),
        ThrowsMessage<Misuse>(HasSubstr("is not a number from 0 to 18446744073709551615")));
}

TEST(Binding, LeavesOutWhatMayBeNullAndDemandsTheRest)
{
    EXPECT_EQ(bound("ClearArp", {{"instance", "blue"}}).text(1), nullptr);
    EXPECT_STREQ(bound("ClearArp", {{"instance", "blue"}, {"lif", ""}}).text(1), "");
    EXPECT_THAT(binding("SetLogLevel", {}), ThrowsMessage<Misuse>(HasSubstr("SetLogLevel needs level")));
    EXPECT_EQ(bound("SetLogLevel", {}, Completeness::OrElseNothing).number<std::uint32_t>(0), 0u);
    EXPECT_STREQ(bound("BridgeAdd", {}, Completeness::OrElseNothing).text(0), "");
    EXPECT_EQ(bound("ClearArp", {}, Completeness::OrElseNothing).text(1), nullptr);
}

TEST(Binding, GivesTheLibraryTheTextThatIsNotSent)
{
    EXPECT_STREQ(bound("GetBridgeNetworks", {{"key", "br0"}}).text(0), "");
}

TEST(Binding, CountsRecords)
{
    const std::string entry(R"({"bytes":")" + std::string(48, '7') + R"("})");
    const Arguments arguments = bound(
        "SetLifPolicyTableRef", {{"instance", "blue"}, {"lif", "eth0"}, {"entries", "[" + entry + "," + entry + "]"}});
    EXPECT_EQ(arguments.number<std::uint16_t>(2), 2u);
    EXPECT_EQ(std::memcmp(arguments.bytes<const char>(3), std::string(48, 'w').data(), 48), 0);
    EXPECT_THAT(binding("SetLifPolicyTableRef",
                    {{"instance", "blue"}, {"lif", "eth0"}, {"entries", "[" + entry + "]"}, {"count", "2"}}),
        ThrowsMessage<Misuse>("count is larger than the 1 records of entries"));
    EXPECT_THAT(binding("SetLifPolicyTableRef", {{"instance", "blue"}, {"lif", "eth0"}, {"count", "1"}}),
        ThrowsMessage<Misuse>("count is larger than the 0 records of entries"));
}

TEST(Binding, TakesRecordsWithTheNamesOfTheHeader)
{
    const Arguments arguments =
        bound("SoftRSSSetTunables", {{"target", "t"}, {"tunables", R"({"value2":7,"value1":5})"}});
    const std::uint8_t expected[12] {5, 0, 0, 0, 0, 0, 0, 0, 7, 0, 0, 0};
    EXPECT_EQ(std::memcmp(arguments.bytes<const char>(1), expected, sizeof expected), 0);
    EXPECT_THAT(binding("SoftRSSSetTunables", {{"target", "t"}, {"tunables", R"({"valu1":5})"}}),
        ThrowsMessage<Misuse>(HasSubstr("has no member 'valu1'; did you mean 'value1'?")));
    EXPECT_THAT(binding("SoftRSSSetTunables", {{"target", "t"}, {"tunables", "{"}}),
        ThrowsMessage<Misuse>(HasSubstr("is not JSON")));
    EXPECT_THAT(binding("SoftRSSSetTunables", {{"target", "t"}, {"tunables", R"({"value1":1e999})"}}),
        ThrowsMessage<Misuse>(HasSubstr("is not JSON")));
    EXPECT_THAT(binding("SoftRSSTableSet", {{"target", "t"}, {"table", R"({"size":129})"}}),
        ThrowsMessage<Misuse>(HasSubstr("is larger than 128")));
    EXPECT_THAT(binding("SoftRSSTableSet", {{"target", "t"}, {"table", R"({"size":-1})"}}),
        ThrowsMessage<Misuse>(HasSubstr("is larger than 128")));
}

TEST(Binding, RefusesWhatItDoesNotKnow)
{
    EXPECT_THAT(binding("SetLogLevel", {{"levle", "1"}}),
        ThrowsMessage<Misuse>("SetLogLevel has no parameter 'levle'; did you mean 'level'?"));
    EXPECT_THAT(
        binding("SetLogLevel", {{"level", "1"}, {"level", "2"}}), ThrowsMessage<Misuse>("level is given twice"));
    EXPECT_THAT(binding("SetLogLevel", {{"level", "4294967296"}}),
        ThrowsMessage<Misuse>("level: '4294967296' is not a number from 0 to 4294967295"));
    EXPECT_THAT(binding("SetLogLevel", {{"", "1"}}), ThrowsMessage<Misuse>(HasSubstr("no parameter ''")));
}
