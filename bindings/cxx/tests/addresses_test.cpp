// Addresses and keys as values.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <lumozeph.hpp>
#include <sstream>
#include <unordered_set>
#include <vector>

using lumozeph::instance_key;
using lumozeph::ipv4;
using lumozeph::ipv4_mask;
using lumozeph::ipv4_prefix;
using lumozeph::ipv6;
using lumozeph::ipv6_length;
using lumozeph::ipv6_prefix;
using lumozeph::mac;

namespace {

template <class Value>
std::string printed(const Value& value)
{
    std::ostringstream out;
    out << value;
    EXPECT_EQ(out.str(), to_string(value));
    return out.str();
}

// What these texts become when they are read and printed.
template <class Value>
void expect_texts(const std::vector<std::pair<const char*, const char*>>& texts)
{
    for (const auto& [text, expected] : texts) {
        ASSERT_TRUE(Value::parse(text).has_value()) << text;
        EXPECT_EQ(printed(*Value::parse(text)), expected);
        EXPECT_EQ(Value(std::string_view(text)), *Value::parse(text));
    }
}

template <class Value>
void expect_no_values(const std::vector<std::string_view>& texts)
{
    for (const std::string_view text : texts) {
        EXPECT_FALSE(Value::parse(text).has_value()) << text;
        EXPECT_THROW(Value {text}, std::invalid_argument) << text;
    }
}

// In ascending order, all different.
template <class Value>
void expect_ordered(const std::vector<Value>& values)
{
    for (std::size_t i = 0; i < values.size(); ++i)
        for (std::size_t k = 0; k < values.size(); ++k) {
            EXPECT_EQ(values[i] < values[k], i < k);
            EXPECT_EQ(values[i] <= values[k], i <= k);
            EXPECT_EQ(values[i] > values[k], i > k);
            EXPECT_EQ(values[i] >= values[k], i >= k);
            EXPECT_EQ(values[i] == values[k], i == k);
            EXPECT_EQ(values[i] != values[k], i != k);
        }
    const std::unordered_set<Value> set(values.begin(), values.end());
    EXPECT_EQ(set.size(), values.size());
    for (const Value& value : values)
        EXPECT_EQ(set.count(value), 1u);
}

TEST(Ipv4, IsReadAndPrinted)
{
    expect_texts<ipv4>({{"0.0.0.0", "0.0.0.0"}, {"192.0.2.1", "192.0.2.1"}, {"255.255.255.255", "255.255.255.255"}});
    expect_no_values<ipv4>({"", "1", "1.2.3", "1.2.3.4.5", "256.0.0.1", "1.2.3.4 ", " 1.2.3.4", "1.2.3.x", "::1",
        std::string_view("1.2.3.4\0", 8)});
}

TEST(Ipv4, HoldsTheBytesInNetworkOrder)
{
    const std::uint32_t value = ipv4("1.2.3.4").value();
    EXPECT_EQ(std::memcmp(&value, "\x01\x02\x03\x04", 4), 0);
    EXPECT_EQ(ipv4(value), ipv4("1.2.3.4"));
}

TEST(Ipv4, IsOrderedAsItIsRead)
{
    expect_ordered<ipv4>({ipv4(), ipv4("1.0.0.2"), ipv4("2.0.0.1"), ipv4("10.0.0.1"), ipv4("192.0.2.1")});
}

TEST(Ipv4Mask, IsALengthOrFourBytes)
{
    expect_texts<ipv4_mask>({{"0", "0"}, {"24", "24"}, {"32", "32"}, {"255.255.255.0", "24"}, {"0.0.0.0", "0"},
        {"255.0.255.0", "255.0.255.0"}});
    expect_no_values<ipv4_mask>({"", "33", "-1", "+1", "255", "0x18", "255.255.255.256"});
    for (unsigned length = 0; length <= 32; ++length)
        EXPECT_EQ(ipv4_mask::of_length(length).length(), length);
    EXPECT_EQ(ipv4_mask::of_length(33), ipv4_mask::of_length(32));
    EXPECT_EQ(ipv4_mask("255.0.255.0").length(), std::nullopt);
    EXPECT_EQ(ipv4_mask(0x0000ffff).length(), 16u);
    expect_ordered<ipv4_mask>({ipv4_mask("0"), ipv4_mask("8"), ipv4_mask("255.0.255.0"), ipv4_mask("24")});
}

TEST(Ipv6, IsReadAndPrinted)
{
    expect_texts<ipv6>({{"::", "::"}, {"2001:db8::1", "2001:db8::1"}, {"2001:DB8:0:0:0:0:0:1", "2001:db8::1"},
        {"::ffff:192.0.2.1", "::ffff:192.0.2.1"},
        {"1111:2222:3333:4444:5555:6666:255.255.255.255", "1111:2222:3333:4444:5555:6666:ffff:ffff"}});
    expect_no_values<ipv6>({"", ":", "1", "1.2.3.4", "2001:db8::1::", "2001:db8::1%eth0",
        "g::", "1111:2222:3333:4444:5555:6666:7777:8888:9999:aaaa"});
}

TEST(Ipv6, HoldsTheBytesInWireOrderAsTwoWords)
{
    const std::uint8_t bytes[16] {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const ipv6 address(bytes);
    EXPECT_EQ(to_string(address), "102:304:506:708:90a:b0c:d0e:f10");
    EXPECT_EQ(address.word1(), 0x0807060504030201u);
    EXPECT_EQ(address.word2(), 0x100f0e0d0c0b0a09u);
    EXPECT_EQ(ipv6(address.word1(), address.word2()), address);
    expect_ordered<ipv6>({ipv6(), ipv6("::1"), ipv6("::2:0"), ipv6("1::"), ipv6("2001:db8::")});
}

TEST(Prefix, IsAnAddressAndItsMask)
{
    expect_texts<ipv4_prefix>({{"192.0.2.1/24", "192.0.2.1/24"}, {"192.0.2.0/255.255.0.0", "192.0.2.0/16"},
        {"255.255.255.255/255.0.255.255", "255.255.255.255/255.0.255.255"}});
    expect_texts<ipv6_prefix>({{"2001:db8::/32", "2001:db8::/32"}, {"::/0", "::/0"}, {"::1/128", "::1/128"}});
    expect_no_values<ipv4_prefix>({"", "192.0.2.1", "192.0.2.1/", "/24", "192.0.2.1/33", "192.0.2.1/24/1", "::/0"});
    expect_no_values<ipv6_prefix>({"", "::", "::/", "::/129", "192.0.2.1/24", "::/255.0.0.0"});
    EXPECT_EQ(ipv4_prefix(ipv4("192.0.2.1"), 24).mask(), ipv4_mask("255.255.255.0"));
    EXPECT_EQ(ipv4_prefix(ipv4("192.0.2.1"), 24).length(), 24u);
    EXPECT_EQ(ipv6_prefix("2001:db8::/32").length(), 32u);
    EXPECT_EQ(lumozeph::prefix(ipv6("2001:db8::"), 32), ipv6_prefix("2001:db8::/32"));
    expect_ordered<ipv4_prefix>({ipv4_prefix("10.0.0.0/8"), ipv4_prefix("10.0.0.0/24"), ipv4_prefix("11.0.0.0/8")});
    expect_ordered<ipv6_prefix>({ipv6_prefix("1::/8"), ipv6_prefix("1::/16"), ipv6_prefix("2::/8")});
}

TEST(Mac, IsReadAndPrinted)
{
    expect_texts<mac>({{"00:11:22:aa:bb:cc", "00:11:22:aa:bb:cc"}, {"FF-EE-DD-0a-0B-0c", "ff:ee:dd:0a:0b:0c"}});
    expect_no_values<mac>({"", "00:11:22:aa:bb", "00:11:22:aa:bb:cc:dd", "00:11:22:aa:bb:c", "00 11 22 aa bb cc",
        "0g:11:22:aa:bb:cc", "00:11:22:aa:bb:cg", "0011:22:aa:bb:cc:"});
    const std::uint8_t bytes[6] {0, 1, 2, 253, 254, 255};
    EXPECT_EQ(to_string(mac(bytes)), "00:01:02:fd:fe:ff");
    expect_ordered<mac>({mac(), mac("00:00:00:00:00:01"), mac("00:00:00:00:01:00"), mac("ff:00:00:00:00:00")});
}

TEST(InstanceKey, IsANameOrAUuid)
{
    expect_texts<instance_key>({{"", ""}, {"blue", "blue"}});
    EXPECT_TRUE(instance_key("0000002a-51b3-4f0e-9c1d-00005e00532a").is_uuid());
    for (const char* const name :
        {"", "blue", "0000002A-51b3-4f0e-9c1d-00005e00532a", "0000002a-51b3-4f0e-9c1d00005e00532aa",
            "0000002g-51b3-4f0e-9c1d-00005e00532a", "0000002a-51b3-4f0e-9c1d-00005e00532"})
        EXPECT_FALSE(instance_key(name).is_uuid()) << name;
    const std::string longest(63, 'k');
    EXPECT_EQ(to_string(instance_key(longest)), longest);
    const std::string longer(64, 'k');
    expect_no_values<instance_key>({longer, std::string_view("a\0b", 3)});
    expect_ordered<instance_key>({instance_key(""), instance_key("a"), instance_key("ab"), instance_key("b")});
}

TEST(InstanceKey, ComesFromARecord)
{
    lumozeph::instance_info record {};
    std::memset(record.instanceKey, 'k', sizeof record.instanceKey);
    EXPECT_EQ(to_string(instance_key(record.instanceKey)), std::string(63, 'k'));
}

#if defined(__cpp_lib_format)
TEST(Values, AreFormatted)
{
    EXPECT_EQ(
        std::format("[{:>12}] {}", ipv4("192.0.2.1"), mac("00:11:22:33:44:55")), "[   192.0.2.1] 00:11:22:33:44:55");
}
#endif

TEST(Text, EndsWithItsField)
{
    char field[4] {'a', 'b', '\0', 'c'};
    EXPECT_EQ(lumozeph::text(field), "ab");
    field[2] = 'x';
    EXPECT_EQ(lumozeph::text(field), "abxc");
}

} // namespace
