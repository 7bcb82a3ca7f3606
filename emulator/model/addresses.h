// What holds for addresses, masks and prefixes, in network order as inet_pton stores them.
#pragma once

#include "emulator/model/state.h"

#include <optional>

namespace emulator {

// Ones, and then zeros.
bool is_contiguous(std::uint32_t mask);

// The address, if it is a text like 02:00:00:00:00:0a.
std::optional<MacAddress> parse_mac(const std::string& text);

// As addresses are kept that are texts.
std::string in_lower_case(std::string text);

constexpr std::uint8_t longest_prefix = 128;

// What router advertisements may say: every link must carry this much, and 0 advertises none.
constexpr bool is_ra_mtu(std::uint32_t mtu)
{
    return mtu == 0 || mtu >= 1280;
}

Ipv6Address network_of(const Ipv6Address& address, std::uint8_t prefix_length);

bool is_link_local(const Ipv6Address& address);

} // namespace emulator
