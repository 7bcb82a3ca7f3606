// How addresses, times and bytes are written in state files. What is not so written is nothing.
#pragma once

#include "emulator/model/state.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace emulator::notation {

std::string of_ipv4(std::uint32_t address);
std::optional<std::uint32_t> ipv4(std::string_view text);

std::string of_ipv6(const Ipv6Address& address);
std::optional<Ipv6Address> ipv6(std::string_view text);

std::string of_mac(const MacAddress& address);
std::optional<MacAddress> mac(std::string_view text);

// A mask is the number of its ones, or itself if it has a hole: 10.0.0.0/8, 10.0.0.0/255.0.255.0.
std::string of_mask(std::uint32_t mask);
std::optional<std::uint32_t> mask(std::string_view text);

// Two hexadecimal digits for a byte.
std::string of_bytes(std::span<const std::byte> bytes);
bool bytes(std::string_view text, std::span<std::byte> to);

// Seconds, with as many decimals as there are: 2.5.
std::string of_time(Time time);
std::optional<Time> time(std::string_view digits);

// Decimal digits, no larger than that.
std::optional<std::uint64_t> number(std::string_view text, std::uint64_t largest);

// The address that many further on, if there is one.
std::optional<std::uint32_t> further(std::uint32_t ipv4, std::uint64_t by);
std::optional<Ipv6Address> further(Ipv6Address address, std::uint64_t by);
std::optional<MacAddress> further(MacAddress address, std::uint64_t by);

} // namespace emulator::notation
