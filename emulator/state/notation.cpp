#include "emulator/state/notation.h"

#include "emulator/model/addresses.h"

#include <arpa/inet.h>
#include <bit>
#include <charconv>
#include <cstdio>

namespace emulator::notation {

namespace {

template <std::size_t Size>
std::optional<std::array<std::byte, Size>> sum(std::array<std::byte, Size> bytes, std::uint64_t by)
{
    for (std::size_t i = bytes.size(); i-- > 0 && by != 0;) {
        by += std::to_integer<std::uint64_t>(bytes[i]);
        bytes[i] = static_cast<std::byte>(by & 0xff);
        by >>= 8;
    }
    return by == 0 ? std::optional(bytes) : std::nullopt;
}

constexpr std::int64_t second = 1000000000;

void append_digits(std::string& text, std::byte byte)
{
    constexpr std::string_view digits = "0123456789abcdef";
    text.push_back(digits[std::to_integer<std::size_t>(byte >> 4)]);
    text.push_back(digits[std::to_integer<std::size_t>(byte & std::byte {0xf})]);
}

} // namespace

std::string of_ipv4(std::uint32_t address)
{
    char text[INET_ADDRSTRLEN];
    inet_ntop(AF_INET, &address, text, sizeof text);
    return text;
}

std::optional<std::uint32_t> ipv4(std::string_view text)
{
    std::uint32_t address = 0;
    if (inet_pton(AF_INET, std::string(text).c_str(), &address) != 1)
        return std::nullopt;
    return address;
}

std::string of_ipv6(const Ipv6Address& address)
{
    char text[INET6_ADDRSTRLEN];
    inet_ntop(AF_INET6, address.data(), text, sizeof text);
    return text;
}

std::optional<Ipv6Address> ipv6(std::string_view text)
{
    Ipv6Address address;
    if (inet_pton(AF_INET6, std::string(text).c_str(), address.data()) != 1)
        return std::nullopt;
    return address;
}

std::string of_mac(const MacAddress& address)
{
    std::string text;
    for (const std::byte byte : address) {
        if (!text.empty())
            text.push_back(':');
        append_digits(text, byte);
    }
    return text;
}

std::optional<MacAddress> mac(std::string_view text)
{
    return parse_mac(std::string(text));
}

std::string of_mask(std::uint32_t mask)
{
    return is_contiguous(mask) ? std::to_string(std::popcount(mask)) : of_ipv4(mask);
}

std::optional<std::uint32_t> mask(std::string_view text)
{
    if (const auto length = number(text, 32))
        return length == 0u ? 0 : htonl(~0u << (32 - *length));
    return ipv4(text);
}

std::string of_bytes(std::span<const std::byte> bytes)
{
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::byte byte : bytes)
        append_digits(text, byte);
    return text;
}

bool bytes(std::string_view text, std::span<std::byte> to)
{
    if (text.size() != 2 * to.size())
        return false;
    for (std::size_t i = 0; i < to.size(); ++i) {
        const char* const begin = text.data() + 2 * i;
        std::uint8_t byte = 0;
        if (std::from_chars(begin, begin + 2, byte, 16).ptr != begin + 2)
            return false;
        to[i] = std::byte {byte};
    }
    return true;
}

std::string of_time(Time time)
{
    const std::int64_t part = time.count() % second;
    std::string text = std::to_string(time.count() / second);
    if (part == 0)
        return text;
    char decimals[16];
    std::snprintf(decimals, sizeof decimals, ".%09lld", static_cast<long long>(part));
    text += decimals;
    return text.substr(0, text.find_last_not_of('0') + 1);
}

std::optional<Time> time(std::string_view digits)
{
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const auto whole = number(digits.substr(0, point), static_cast<std::uint64_t>(longest_time.count()));
    std::string decimals(digits.substr(std::min(point + 1, digits.size())));
    if (!whole || decimals.size() > 9)
        return std::nullopt;
    decimals.resize(9, '0');
    const auto part = number(decimals, second);
    if (!part)
        return std::nullopt;
    const Time time(static_cast<std::int64_t>(*whole * second + *part));
    return time <= longest_time ? std::optional(time) : std::nullopt;
}

std::optional<std::uint64_t> number(std::string_view text, std::uint64_t largest)
{
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || value > largest)
        return std::nullopt;
    return value;
}

std::optional<std::uint32_t> further(std::uint32_t ipv4, std::uint64_t by)
{
    if (by > ~ntohl(ipv4))
        return std::nullopt;
    return htonl(ntohl(ipv4) + static_cast<std::uint32_t>(by));
}

std::optional<Ipv6Address> further(Ipv6Address address, std::uint64_t by)
{
    return sum(address, by);
}

std::optional<MacAddress> further(MacAddress address, std::uint64_t by)
{
    return sum(address, by);
}

} // namespace emulator::notation
