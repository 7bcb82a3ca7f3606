#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb route_verbs[] {
    {.words = "route list",
        .operation = "GetRoutes",
        .form = "<instance>",
        .fields = "routeDest,routeMask,nextHops,routeFlags,routeValue1,routeValue2",
        .key = "routeDest,routeMask"},
    {.words = "route list",
        .operation = "GetRoutesv6",
        .form = "<instance>",
        .fields = "dest,prefixLen,gateway,lif",
        .key = "dest,prefixLen,gateway,lif",
        .is_ipv6 = true},
    {.words = "route add",
        .operation = "SetRoute",
        .form = "<instance> <dest/mask> [via <gateway>] [dev <lif>] [param <param>]"},
    {.words = "route add",
        .operation = "SetRoutev6",
        .form = "<instance> <dest/prefixLen> [via <gateway>] [dev <lif>]",
        .is_ipv6 = true},
    {.words = "route delete", .operation = "DelRoute", .form = "<instance> <dest/mask> [via <gateway>] [dev <lif>]"},
    {.words = "route delete",
        .operation = "DelRoutev6",
        .form = "<instance> <dest/prefixLen> [via <gateway>] [dev <lif>]",
        .is_ipv6 = true},
    {.words = "route get", .operation = "GetResolveRoute", .form = "<instance> <dest/mask> [param <param>]"},
    {.words = "route pmtu clear", .operation = "PMTUTableCearv6", .form = ""},
};

inline constexpr Object route {"route", "Routes", route_verbs};

} // namespace tool::objects
