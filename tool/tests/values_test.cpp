// Values in their usual text, both ways.
#include "tool/values.h"

#include "tool/mistakes.h"

#include <gmock/gmock.h>

using namespace tool;
using testing::ElementsAre;

TEST(Numbers, AreDecimalOrHexadecimal)
{
    EXPECT_EQ(parse_number("0", 1), 0u);
    EXPECT_EQ(parse_number("255", 1), 255u);
    EXPECT_EQ(parse_number("0xfF", 1), 255u);
    EXPECT_EQ(parse_number("18446744073709551615", 8), 18446744073709551615u);
    EXPECT_EQ(parse_signed_number("-128", 1), static_cast<std::uint64_t>(-128));
    EXPECT_EQ(parse_signed_number("127", 1), 127u);
}

TEST(Numbers, FitTheirWidth)
{
    for (const char* const text : {"256", "-1", "", " 1", "1 ", "0x", "1x", "+1", "18446744073709551616"})
        EXPECT_THROW(parse_number(text, 1), Misuse) << text;
    for (const char* const text : {"128", "-129", "", "--1", "0x1"})
        EXPECT_THROW(parse_signed_number(text, 1), Misuse) << text;
}

TEST(Times, AreOfMoreThanNothing)
{
    EXPECT_EQ(parse_time("0.5").count(), 0.5);
    EXPECT_EQ(parse_time("500ms").count(), 0.5);
    for (const char* const text : {"", "0", "0ms", "-1", "nan", "inf", "1e9", "1d", "1e", "99999999999"})
        EXPECT_THROW(parse_time(text), Misuse) << text;
}

TEST(Addresses, AreReadAndWritten)
{
    EXPECT_EQ(ipv4_text(parse_ipv4("192.0.2.1", AddressOrder::Network), AddressOrder::Network), "192.0.2.1");
    EXPECT_EQ(parse_ipv4("192.0.2.1", AddressOrder::Host), 0xc0000201u);
    EXPECT_EQ(ipv4_text(0xc0000201u, AddressOrder::Host), "192.0.2.1");
    const auto address = parse_ipv6("2001:db8::1");
    EXPECT_EQ(ipv6_text(std::as_bytes(std::span(address)).data()), "2001:db8::1");
    const auto mac = parse_mac("02-AB:cd:00:00:ff");
    EXPECT_THAT(mac, ElementsAre(0x02, 0xab, 0xcd, 0, 0, 0xff));
    EXPECT_EQ(mac_text(std::as_bytes(std::span(mac)).data()), "02:ab:cd:00:00:ff");
}

TEST(Addresses, AreRefusedWhenMalformed)
{
    for (const char* const text : {"", "10.0.0", "10.0.0.256", "10.0.0.0/8", "a"})
        EXPECT_THROW(parse_ipv4(text, AddressOrder::Network), Misuse) << text;
    for (const char* const text : {"", "2001:db8", "2001:db8::1/64", "10.0.0.1"})
        EXPECT_THROW(parse_ipv6(text), Misuse) << text;
    for (const char* const text : {"", "02:00:00:00:00", "02:00:00:00:00:0", "02:00:00:00:00:0g", "02:00:00:00:00:001",
             "020000000000", "02.00.00.00.00.00"})
        EXPECT_THROW(parse_mac(text), Misuse) << text;
}

TEST(Masks, ComeFromLengths)
{
    EXPECT_EQ(mask_of_length("0", AddressOrder::Host), 0u);
    EXPECT_EQ(mask_of_length("1", AddressOrder::Host), 0x80000000u);
    EXPECT_EQ(mask_of_length("32", AddressOrder::Host), 0xffffffffu);
    EXPECT_EQ(ipv4_text(mask_of_length("20", AddressOrder::Network), AddressOrder::Network), "255.255.240.0");
    for (const char* const text : {"33", "-1", ""})
        EXPECT_THROW(mask_of_length(text, AddressOrder::Network), Misuse) << text;
}

TEST(Bytes, AreHexadecimal)
{
    EXPECT_EQ(parse_bytes("00fF10", 3), std::string("\0\xff\x10", 3));
    const std::string bytes("\x01\xab", 2);
    EXPECT_EQ(bytes_text(std::as_bytes(std::span(bytes))), "01ab");
    for (const char* const text : {"", "00", "0000000", "00000g", "0x0000", "+1+1+1"})
        EXPECT_THROW(parse_bytes(text, 3), Misuse) << text;
}

TEST(Texts, NeedNotEnd)
{
    const char text[4] {'a', 'b', 'c', 'd'};
    EXPECT_EQ(text_in(std::as_bytes(std::span(text)).data(), sizeof text), "abcd");
    EXPECT_EQ(text_in(std::as_bytes(std::span("ab\0d")).data(), 4), "ab");
}
