// Request fields of routes, interface policies, and ARP and neighbour entries.
#pragma once

#include "channel/fields.h"

namespace lumo {

// IPv4 routes and interface policies.
inline constexpr Number<64, uint32_t> route_dest;
inline constexpr Number<68, uint32_t> route_mask;
inline constexpr Number<72, uint32_t> resolve_param;
inline constexpr Number<76, uint32_t> route_gateway;
inline constexpr Number<80, uint32_t> route_param;
inline constexpr Text<84, 64> route_lif_name;
inline constexpr Text<148, 64> policy_kind_text;
inline constexpr Number<216, int32_t> policy_kind;

// IPv6 routes.
inline constexpr Words<68> route6_dest;
inline constexpr Number<84, uint8_t> route6_prefix_len;
inline constexpr Words<101> route6_gateway;
inline constexpr RawText<117, 64> route6_lif_name;

// ARP entries. The interface is lif_name.
inline constexpr Number<64, uint32_t> arp_ip;
inline constexpr Text<332, 18> arp_mac_text;
inline constexpr Fixed<596, uint8_t {1}> is_proxy;

// IPv6 neighbours. The dump and clear commands have the interface where ARP has it.
inline constexpr RawText<64, 64> arp6_lif_name;
inline constexpr Words<128> arp6_ip;
inline constexpr RawText<144, 18> arp6_mac_text;

} // namespace lumo
