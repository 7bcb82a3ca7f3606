// Request fields of logical interfaces.
#pragma once

#include "channel/fields.h"
#include "lumozeph.h"

namespace lumo {

inline constexpr Text<64, 64> lif_aux_name;
inline constexpr Number<320, uint32_t> ip_addr;
inline constexpr Number<324, uint32_t> ip_mask;
inline constexpr Number<328, uint32_t> di_ip; // also the VXLAN multicast address, told apart by the command
inline constexpr Bytes<332, 6> lif_mac;
inline constexpr Number<352, uint32_t> lif_param_a;
inline constexpr Number<356, uint32_t> lif_param_b;
inline constexpr Number<360, uint32_t> lif_param_c;
inline constexpr Bytes<364, sizeof(LumoDhcpRelay)> dhcp_relay;

inline constexpr Number<64, uint32_t> ra_mtu;

inline constexpr Words<64> lif_ipv6_addr;
inline constexpr RawText<84, 64> lif_ipv6_name;
inline constexpr Number<148, uint8_t> lif_ipv6_prefix_len;

inline constexpr Text<64, 64> mcast_name;
inline constexpr Number<128, uint32_t> mcast_value1;
inline constexpr Number<132, uint32_t> mcast_value2;
inline constexpr Number<136, uint16_t> mcast_value3;
inline constexpr Number<138, uint8_t> mcast_value4;

} // namespace lumo
