// Values in their usual text.
#pragma once

#include "tool/description.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tool {

// How IPv4 addresses lie in the numbers of the module.
enum class AddressOrder
{
    Network, // as inet_pton(3) writes them
    Host
};

// All parsers throw Misuse, which says what was expected.
std::uint64_t parse_number(std::string_view text, std::size_t size);
std::uint64_t parse_signed_number(std::string_view text, std::size_t size);
std::uint32_t parse_ipv4(std::string_view text, AddressOrder order);
std::array<std::uint8_t, 16> parse_ipv6(std::string_view text);
std::array<std::uint8_t, 6> parse_mac(std::string_view text);
std::string parse_bytes(std::string_view text, std::size_t size);
// A number above 0, of seconds if no unit follows: ms, s, m or h.
std::chrono::duration<double> parse_time(std::string_view text);
std::uint32_t mask_of_length(std::string_view length, AddressOrder order);

std::uint64_t load_number(const std::byte* where, std::size_t width);
std::string ipv4_text(std::uint32_t address, AddressOrder order);
std::string ipv6_text(const std::byte* address);
std::string mac_text(const std::byte* address);
std::string bytes_text(std::span<const std::byte> bytes);
// For texts that need not end.
std::string_view text_in(const std::byte* where, std::size_t room);

} // namespace tool
