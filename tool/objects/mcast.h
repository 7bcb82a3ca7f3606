#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb mcast_verbs[] {
    {.words = "mcast group list", .operation = "GetMRoutingAllMcastGroups", .form = "<instance>", .key = "value1"},
    {.words = "mcast receiver list", .operation = "GetMRoutingLocalRcvrs", .form = "<instance> <value>"},
    {.words = "mcast receiver add", .operation = "AddMRoutingLocalRcvrs", .form = "<instance> <value> [<text>]"},
    {.words = "mcast receiver delete", .operation = "DelMRoutingLocalRcvrs", .form = "<instance> <value> [<text>]"},
    {.words = "mcast remote list", .operation = "GetMRoutingRemoteRcvrs", .form = "<instance> <value>"},
    {.words = "mcast remote add",
        .operation = "AddMRoutingRemoteRcvrs",
        .form = "<instance> <value> <key> mac <hwAddr> [value1 <value1>] [value2 <value2>]"},
    {.words = "mcast remote delete", .operation = "DelMRoutingRemoteRcvrs", .form = "<instance> <value> <key>"},
    {.words = "mcast domain", .operation = "GetMRoutingDomain", .form = "<instance>"},
    {.words = "mcast replication", .operation = "GetMRoutingReplicationIP", .form = "<instance> <value>"},
    {.words = "mcast router show", .operation = "GetMRoutingMRouterIP", .form = "<instance> <value>"},
    {.words = "mcast router add", .operation = "AddMRoutingMRouter", .form = "<instance> [value <value>]"},
    {.words = "mcast router delete", .operation = "DelMRoutingMRouter", .form = "<instance>"},
    {.words = "mcast routing set",
        .operation = "SetMcastRouting",
        .form = "<instance> [name <name>] [value1 <value1>] [value2 <value2>] [value3 <value3>] [value4 <value4>]"},
};

inline constexpr Object mcast {"mcast", "Multicast routing", mcast_verbs};

} // namespace tool::objects
