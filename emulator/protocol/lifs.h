// Logical interfaces: routed ones, and bridge LIFs.
#pragma once

#include "emulator/protocol/command.h"
#include "emulator/protocol/dhcp_relay.h"

namespace emulator::protocol::lifs {

inline constexpr std::size_t most = 10000; // of one instance, of both kinds together
inline constexpr std::size_t most_ipv6 = 10;

using addressed::instance;
using addressed::lif;

inline constexpr Text aux_name {"auxName", 64, 64};
inline constexpr Ipv4 address {"address", 320};
inline constexpr Ipv4 mask {"mask", 324};
inline constexpr Ipv4 di_address {"diAddress", 328};
inline constexpr U32 di_value {"diValue", di_address.offset}; // of a bridge LIF
inline constexpr Mac mac {"mac", 332};
inline constexpr U32 param_a {"paramA", 352};
inline constexpr U32 param_b {"paramB", 356};
inline constexpr U32 param_c {"paramC", 360};

namespace ipv6_entry {
inline constexpr Ipv6 address {"address", 0};
inline constexpr U32 prefix_len {"prefixLen", 16};
inline constexpr U8 value {"value", 20};
inline constexpr Layout layout = fields_in<24, address, prefix_len, value>;
} // namespace ipv6_entry

namespace record {
inline constexpr Text name {"lifName", 0, 64};
inline constexpr Text aux_name {"lifSecondName", 64, 64};
inline constexpr Ipv4 address {"ipAddr", 128};
inline constexpr Ipv4 mask {"ipMask", 132};
inline constexpr Ipv4 di_address {"diIp", 136};
inline constexpr Mac mac {"lifMac", 140};
inline constexpr U32 param_a {"lifValue1", 146};
inline constexpr U32 param_b {"lifValue2", 150};
inline constexpr U32 param_c {"lifValue3", 154};
inline constexpr Flag up {"lifFlags[0]", 158};
inline constexpr Flag vxlan_control_plane {"lifFlags[1]", 159};
inline constexpr Flag multicast_routing {"lifFlags[2]", 160};
inline constexpr Flag bridge_lif {"lifFlags[3]", 161};
inline constexpr U32 relay_count {"dhcpRelay.relayCount", 162};
inline constexpr Table relay_servers {"dhcpRelay.servers", 166, dhcp_relay::server::layout, dhcp_relay::most_servers};
inline constexpr Table ipv6 {"ipv6Addrs", 326, ipv6_entry::layout, most_ipv6};
inline constexpr U32 ipv6_count {"ipv6Count", 566};
inline constexpr U8 state1 {"lifState1", 570};
inline constexpr U8 state2 {"lifState2", 571};
inline constexpr U32 ra_mtu {"lifValue4", 572};
inline constexpr Layout layout =
    fields_in<576, name, aux_name, address, mask, di_address, mac, param_a, param_b, param_c, up, vxlan_control_plane,
        multicast_routing, bridge_lif, relay_count, relay_servers, ipv6, ipv6_count, state1, state2, ra_mtu>;
} // namespace record

inline constexpr Command commands[] = {
    {19, "SetLif", request<instance, aux_name, lif, address, mask, di_address, mac, param_a, param_b, param_c>,
        no_reply},
    {20, "DelLif", request<instance, aux_name, lif>, no_reply},
    {21, "GetLifs", request<instance>, list(record::layout, most)},
    {22, "GetLif", request<instance, lif>, one(record::layout)},
    {57, "SetBridgeLifOn", request<instance, aux_name, lif, di_value, param_a, param_b>, no_reply},
    {58, "SetBridgeLifOff", request<instance, aux_name, lif, di_value, param_a, param_b>, no_reply},
    {59, "GetBridgeLifs", request<instance>, list(record::layout, most)},
    {60, "GetBridgeLif", request<instance, lif>, one(record::layout)},
};

} // namespace emulator::protocol::lifs
