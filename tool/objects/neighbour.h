#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb neighbour_verbs[] {
    {.words = "neighbour list", .operation = "GetArps", .form = "<instance> [<lif>]", .key = "address,lif"},
    {.words = "neighbour list",
        .operation = "GetArpsv6",
        .form = "<instance> [<lif>]",
        .key = "address,lif",
        .is_ipv6 = true},
    {.words = "neighbour add", .operation = "SetArp", .form = "<instance> <address> [mac <mac>] [dev <lif>]"},
    {.words = "neighbour add",
        .operation = "SetArpv6",
        .form = "<instance> <address> [mac <mac>] [dev <lif>]",
        .is_ipv6 = true},
    {.words = "neighbour delete", .operation = "DelArp", .form = "<instance> <address> [dev <lif>]"},
    {.words = "neighbour delete", .operation = "DelArpv6", .form = "<instance> <address> [dev <lif>]", .is_ipv6 = true},
    {.words = "neighbour clear", .operation = "ClearArp", .form = "<instance> [<lif>]"},
    {.words = "neighbour clear", .operation = "ClearArpv6", .form = "<instance> [<lif>]", .is_ipv6 = true},
    {.words = "neighbour proxy list", .operation = "GetProxyArps", .form = "<instance> [<lif>]", .key = "address,lif"},
    {.words = "neighbour proxy add", .operation = "SetProxyArp", .form = "<instance> <address> [dev <lif>]"},
    {.words = "neighbour proxy add",
        .operation = "SetProxyArpv6",
        .form = "<instance> <address> [dev <lif>]",
        .is_ipv6 = true},
    {.words = "neighbour proxy delete", .operation = "DelProxyArp", .form = "<instance> <address> [dev <lif>]"},
    {.words = "neighbour proxy delete",
        .operation = "DelProxyArpv6",
        .form = "<instance> <address> [dev <lif>]",
        .is_ipv6 = true},
};

inline constexpr Object neighbour {"neighbour", "ARP entries, IPv6 neighbours and proxies", neighbour_verbs};

} // namespace tool::objects
