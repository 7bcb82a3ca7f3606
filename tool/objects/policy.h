#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb policy_verbs[] {
    {.words = "policy list", .operation = "GetPolicy", .form = "<table>", .key = "value1,value2,value3"},
    {.words = "policy count", .operation = "GetPolicyCount", .form = "<table>"},
    {.words = "policy add", .operation = "SetPolicy", .form = "<table> <key1> <key2> [value <value>]"},
    {.words = "policy delete", .operation = "DelPolicy", .form = "<table> <key1> <key2>"},
    {.words = "policy table list", .operation = "GetPolicyTable", .form = "", .key = "policyTableId"},
    {.words = "policy table add", .operation = "SetPolicyTable", .form = "<table> [<name>]"},
    {.words = "policy table delete", .operation = "DelPolicyTable", .form = "<table>"},
    {.words = "policy reference show", .operation = "GetLifPolicyTableRef", .form = "<instance> <lif>"},
    {.words = "policy reference set", .operation = "SetLifPolicyTableRef", .form = "<instance> <lif> <entries>"},
    {.words = "policy reference delete", .operation = "DelLifPolicyTableRef", .form = "<instance> <lif>"},
    {.words = "policy lif list",
        .operation = "GetLifPolicies",
        .form = "<instance> <kind> <text>",
        .fields = "routeDest,routeMask,nextHops,routeFlags,routeValue1,routeValue2"},
    {.words = "policy lif add",
        .operation = "SetLifPolicy",
        .form = "<instance> <kind> <text> <dest/mask> [via <gateway>] [dev <lif>] [param <param>]"},
    {.words = "policy lif delete",
        .operation = "DelLifPolicy",
        .form = "<instance> <kind> <text> <dest/mask> [via <gateway>] [dev <lif>] [param <param>]"},
};

inline constexpr Object policy {"policy", "Policies, their tables and what refers to them", policy_verbs};

} // namespace tool::objects
