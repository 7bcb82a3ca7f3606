// Interface addressing and options.
#pragma once

#include "emulator/protocol/lifs.h"

namespace emulator::protocol::lif_options {

using addressed::instance;
using addressed::lif;
using lifs::address;
using lifs::mask;

inline constexpr Ipv4 di_address {"address", lifs::di_address.offset};
inline constexpr Ipv4 vxlan_multicast {"address", lifs::di_address.offset};
inline constexpr U32 mtu {"mtu", 64};

inline constexpr Ipv6 ipv6_address {"address", 64};
inline constexpr Text lif_again {"lifAgain", 84, 64};
inline constexpr U8 prefix_len {"prefixLen", 148};

// Multicast routing of an instance as a whole.
inline constexpr Text name {"name", 64, 64};
inline constexpr U32 value1 {"value1", 128};
inline constexpr U32 value2 {"value2", 132};
inline constexpr U16 value3 {"value3", 136};
inline constexpr U8 value4 {"value4", 138};

inline constexpr Command commands[] = {
    {25, "SetLifDIIp", request<instance, lif, di_address>, no_reply},
    {26, "SetLifIp", request<instance, lif, address, mask>, no_reply},
    {27, "DelLifIp", request<instance, lif, address, mask>, no_reply},
    {28, "SetLifVxlanCP", request<instance, lif>, no_reply},
    {29, "DelLifVxlanCP", request<instance, lif>, no_reply},
    {30, "EnableLif", request<instance, lif>, no_reply},
    {31, "DisableLif", request<instance, lif>, no_reply},
    {32, "SetLifVxlanMulticastIp", request<instance, lif, vxlan_multicast>, no_reply},
    {108, "SetLifIpv6", request<instance, ipv6_address, lif_again, prefix_len, lif>, no_reply},
    {109, "DelLifIpv6", request<instance, ipv6_address, lif_again, prefix_len, lif>, no_reply},
    {125, "SetLifMcastRoutingOn", request<instance, lif>, no_reply},
    {126, "SetLifMcastRoutingOff", request<instance, lif>, no_reply},
    {127, "SetMcastRouting", request<instance, name, value1, value2, value3, value4>, no_reply},
    {152, "RAMTUSetv6", request<instance, mtu, lif>, no_reply},
};

} // namespace emulator::protocol::lif_options
