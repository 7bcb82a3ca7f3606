#include "emulator/model/addresses.h"

#include <algorithm>
#include <bit>
#include <cctype>
#include <charconv>

namespace emulator {

bool is_contiguous(std::uint32_t mask)
{
    const std::uint32_t in_host_order = mask << 24 | (mask & 0xff00) << 8 | (mask >> 8 & 0xff00) | mask >> 24;
    return std::popcount(in_host_order) == std::countl_one(in_host_order);
}

std::optional<MacAddress> parse_mac(const std::string& text)
{
    MacAddress mac {};
    constexpr std::size_t stride = 3;
    if (text.size() != mac.size() * stride - 1)
        return std::nullopt;
    for (std::size_t i = 0; i < mac.size(); ++i) {
        const char* const begin = text.data() + i * stride;
        const char* const end = begin + 2;
        std::uint8_t byte = 0;
        if (std::from_chars(begin, end, byte, 16).ptr != end || (i + 1 < mac.size() && *end != ':'))
            return std::nullopt;
        mac[i] = std::byte {byte};
    }
    return mac;
}

std::string in_lower_case(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
        [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return text;
}

Ipv6Address network_of(const Ipv6Address& address, std::uint8_t prefix_length)
{
    Ipv6Address network {};
    for (std::size_t i = 0; i < network.size(); ++i) {
        const int bits = std::clamp(prefix_length - 8 * static_cast<int>(i), 0, 8);
        network[i] = address[i] & static_cast<std::byte>(0xff00 >> bits);
    }
    return network;
}

bool is_link_local(const Ipv6Address& address)
{
    return address[0] == std::byte {0xfe} && (address[1] & std::byte {0xc0}) == std::byte {0x80};
}

} // namespace emulator
