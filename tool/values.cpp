#include "tool/values.h"

#include "tool/mistakes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>
#include <cstring>
#include <fmt/format.h>
#include <limits>

namespace tool {
namespace {

template <class Number>
bool read(std::string_view text, Number& number)
{
    int base = 10;
    if constexpr (std::is_unsigned_v<Number>)
        if (text.starts_with("0x") || text.starts_with("0X")) {
            text.remove_prefix(2);
            base = 16;
        }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

std::uint64_t parse_number(std::string_view text, std::size_t size)
{
    const std::uint64_t most = std::numeric_limits<std::uint64_t>::max() >> (64 - 8 * size);
    std::uint64_t number = 0;
    if (!read(text, number) || number > most)
        throw Misuse(fmt::format("'{}' is not a number from 0 to {}", text, most));
    return number;
}

std::uint64_t parse_signed_number(std::string_view text, std::size_t size)
{
    const std::int64_t most = std::numeric_limits<std::int64_t>::max() >> (64 - 8 * size);
    std::int64_t number = 0;
    if (!read(text, number) || number > most || number < -most - 1)
        throw Misuse(fmt::format("'{}' is not a number from {} to {}", text, -most - 1, most));
    return static_cast<std::uint64_t>(number);
}

std::uint32_t parse_ipv4(std::string_view text, AddressOrder order)
{
    in_addr address {};
    if (inet_pton(AF_INET, std::string(text).c_str(), &address) != 1)
        throw Misuse(fmt::format("'{}' is not an IPv4 address", text));
    return order == AddressOrder::Host ? ntohl(address.s_addr) : address.s_addr;
}

std::array<std::uint8_t, 16> parse_ipv6(std::string_view text)
{
    std::array<std::uint8_t, 16> address {};
    if (inet_pton(AF_INET6, std::string(text).c_str(), address.data()) != 1)
        throw Misuse(fmt::format("'{}' is not an IPv6 address", text));
    return address;
}

std::array<std::uint8_t, 6> parse_mac(std::string_view text)
{
    std::array<std::uint8_t, 6> address {};
    constexpr std::size_t length = 17;
    bool is_one = text.size() == length;
    for (std::size_t i = 0; is_one && i < address.size(); ++i) {
        const std::string_view digits = text.substr(3 * i, 2);
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + 2, address[i], 16);
        is_one = error == std::errc() && end == digits.data() + 2 &&
                 (i + 1 == address.size() || text[3 * i + 2] == ':' || text[3 * i + 2] == '-');
    }
    if (!is_one)
        throw Misuse(fmt::format("'{}' is not a MAC address", text));
    return address;
}

std::string parse_bytes(std::string_view text, std::size_t size)
{
    std::string bytes(size, '\0');
    bool are_bytes = text.size() == 2 * size;
    for (std::size_t i = 0; are_bytes && i < size; ++i) {
        std::uint8_t byte = 0;
        const char* const digits = text.data() + 2 * i;
        const auto [end, error] = std::from_chars(digits, digits + 2, byte, 16);
        are_bytes = error == std::errc() && end == digits + 2;
        bytes[i] = static_cast<char>(byte);
    }
    if (!are_bytes)
        throw Misuse(fmt::format("'{}' is not {} bytes in {} hexadecimal digits", text, size, 2 * size));
    return bytes;
}

std::chrono::duration<double> parse_time(std::string_view text)
{
    constexpr std::pair<std::string_view, double> known_units[] {
        {"ms", 0.001}, {"s", 1}, {"", 1}, {"m", 60}, {"h", 3600}};
    constexpr double longest = 1e9;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
    const std::string_view unit(end, static_cast<std::size_t>(text.data() + text.size() - end));
    const auto* const known = std::ranges::find(known_units, unit, &std::pair<std::string_view, double>::first);
    if (error != std::errc() || known == std::end(known_units) || !(number > 0) || number * known->second > longest)
        throw Misuse(fmt::format("'{}' is not a time of more than 0, as 1s, 500ms or 2m", text));
    return std::chrono::duration<double>(number * known->second);
}

std::uint32_t mask_of_length(std::string_view length, AddressOrder order)
{
    std::uint32_t bits = 0;
    if (!read(length, bits) || bits > 32)
        throw Misuse(fmt::format("'{}' is not a prefix length from 0 to 32", length));
    const std::uint32_t mask = bits == 0 ? 0 : ~std::uint32_t {0} << (32 - bits);
    return order == AddressOrder::Host ? mask : htonl(mask);
}

std::uint64_t load_number(const std::byte* where, std::size_t width)
{
    std::uint64_t number = 0;
    std::memcpy(&number, where, width);
    return number;
}

std::string ipv4_text(std::uint32_t address, AddressOrder order)
{
    if (order == AddressOrder::Network)
        address = ntohl(address);
    return fmt::format("{}.{}.{}.{}", address >> 24, address >> 16 & 255, address >> 8 & 255, address & 255);
}

std::string ipv6_text(const std::byte* address)
{
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(AF_INET6, address, text, sizeof text);
}

std::string mac_text(const std::byte* address)
{
    return fmt::format("{:02x}:{:02x}:{:02x}:{:02x}:{:02x}:{:02x}", address[0], address[1], address[2], address[3],
        address[4], address[5]);
}

std::string bytes_text(std::span<const std::byte> bytes)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::byte byte : bytes) {
        text += digits[std::to_integer<unsigned>(byte) >> 4];
        text += digits[std::to_integer<unsigned>(byte) & 15];
    }
    return text;
}

std::string_view text_in(const std::byte* where, std::size_t room)
{
    const char* const text = reinterpret_cast<const char*>(where);
    return {text, strnlen(text, room)};
}

} // namespace tool
