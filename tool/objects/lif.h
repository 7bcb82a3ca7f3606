#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb lif_verbs[] {
    {.words = "lif list",
        .operation = "GetLifs",
        .form = "<instance>",
        .fields = "lifName,ipAddr,ipMask,lifMac,ipv6Addrs,lifState1,lifState2",
        .key = "lifName"},
    {.words = "lif show", .operation = "GetLif", .form = "<instance> <lif>"},
    {.words = "lif add",
        .operation = "SetLif",
        .form = "<instance> <lif> [name <auxName>] [address <address/mask>] [mac <mac>] [di <diAddress>] "
                "[paramA <paramA>] [paramB <paramB>] [paramC <paramC>]"},
    {.words = "lif delete", .operation = "DelLif", .form = "<instance> <lif> [name <auxName>]"},
    {.words = "lif set", .operation = "EnableLif", .form = "<instance> <lif> up", .joins = true, .excludes = "down"},
    {.words = "lif set", .operation = "DisableLif", .form = "<instance> <lif> down", .joins = true, .excludes = "up"},
    {.words = "lif set", .operation = "SetLifIp", .form = "<instance> <lif> address <address/mask>", .joins = true},
    {.words = "lif set",
        .operation = "SetLifIpv6",
        .form = "<instance> <lif> address <address/prefixLen>",
        .is_ipv6 = true,
        .joins = true},
    {.words = "lif set", .operation = "RAMTUSetv6", .form = "<instance> <lif> mtu <mtu>", .joins = true},
    {.words = "lif set", .operation = "SetLifDIIp", .form = "<instance> <lif> di <address>", .joins = true},
    {.words = "lif set",
        .operation = "SetLifVxlanMulticastIp",
        .form = "<instance> <lif> multicast <address>",
        .joins = true},
    {.words = "lif set", .operation = "SetLifVxlanCP", .form = "<instance> <lif> control-plane", .joins = true},
    {.words = "lif set",
        .operation = "SetLifMcastRouting",
        .form = "<instance> <lif> mcast-routing <on>",
        .joins = true},
    {.words = "lif set",
        .operation = "ConfigureLifDhcpRelay",
        .form = "<instance> <lif> dhcp-relay <servers>",
        .joins = true},
    {.words = "lif unset", .operation = "DelLifIp", .form = "<instance> <lif> address <address/mask>", .joins = true},
    {.words = "lif unset",
        .operation = "DelLifIpv6",
        .form = "<instance> <lif> address <address/prefixLen>",
        .is_ipv6 = true,
        .joins = true},
    {.words = "lif unset", .operation = "DelLifVxlanCP", .form = "<instance> <lif> control-plane", .joins = true},
    {.words = "lif unset", .operation = "ConfigureLifDhcpRelay", .form = "<instance> <lif> dhcp-relay", .joins = true},
};

inline constexpr Object lif {"lif", "Logical interfaces of the router", lif_verbs};

} // namespace tool::objects
