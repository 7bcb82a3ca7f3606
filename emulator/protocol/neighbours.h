// ARP entries, IPv6 neighbours, and proxy entries of both.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::neighbours {

using addressed::instance;
using addressed::lif;

inline constexpr Flag proxy {"proxy", 596};

namespace arp {
inline constexpr Ipv4 address {"address", 64};
inline constexpr Text mac {"mac", 332, 18};
} // namespace arp

namespace ipv6 {
inline constexpr Text lif {"lif", 64, 64};
inline constexpr Ipv6 address {"address", 128};
inline constexpr Text mac {"mac", 144, 18};
} // namespace ipv6

// What both tables are dumped as.
namespace entry {
inline constexpr Ipv4 ipv4_address {"address", 0};
inline constexpr Ipv6 ipv6_address {"address", 0};
inline constexpr Text lif {"lif", 16, 64};
inline constexpr UnterminatedText mac {"mac", 80, 18};
inline constexpr Flag proxy {"proxy", 98};
inline constexpr Flag present {"present", 99}; // not so in the entry that ends the dump
inline constexpr Layout of_arp = fields_in<114, ipv4_address, lif, mac, proxy, present>;
inline constexpr Layout of_ipv6 = fields_in<114, ipv6_address, lif, mac, proxy, present>;
} // namespace entry

inline constexpr std::size_t dump_size = 7471104;
inline constexpr std::size_t most = dump_size / entry::of_arp.size - 1; // of both tables together

inline constexpr Command commands[] = {
    {38, "SetArp", request<instance, arp::address, lif, arp::mac, proxy>, no_reply},
    {39, "DelArp", request<instance, arp::address, lif, proxy>, no_reply},
    {40, "GetArps", request<instance, lif, proxy>, ended_list(entry::of_arp, most)},
    {41, "ClearArp", request<instance, lif>, no_reply},
    {112, "SetArpv6", request<instance, ipv6::lif, ipv6::address, ipv6::mac, proxy>, no_reply},
    {113, "DelArpv6", request<instance, ipv6::lif, ipv6::address, proxy>, no_reply},
    {116, "GetArpsv6", request<instance, lif>, ended_list(entry::of_ipv6, most)},
    {117, "ClearArpv6", request<instance, lif>, no_reply},
};

} // namespace emulator::protocol::neighbours
