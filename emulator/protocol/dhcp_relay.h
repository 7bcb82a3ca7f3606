// DHCP relay.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::dhcp_relay {

inline constexpr std::size_t most_servers = 8;

using addressed::instance;
using addressed::lif;

namespace server {
inline constexpr Bytes<16> address {"address", 0}; // an IPv4 address in the first four, or an IPv6 address
inline constexpr U32 family {"family", 16};
inline constexpr Layout layout = fields_in<20, address, family>;
} // namespace server

inline constexpr U32 relay_count {"relayCount", 364};
inline constexpr Table servers {"servers", 368, server::layout, most_servers};

inline constexpr Command commands[] = {
    {33, "ConfigureLifDhcpRelay", request<instance, lif, relay_count, servers>, no_reply},
};

} // namespace emulator::protocol::dhcp_relay
