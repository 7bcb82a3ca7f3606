#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb endpoint_verbs[] {
    {.words = "endpoint list",
        .operation = "GetBridgeEndpoints",
        .form = "[<key>]",
        .fields = "ident,value1,value2,value3,value4",
        .key = "ident"},
    {.words = "endpoint all", .operation = "GetBeAll", .form = ""},
    {.words = "endpoint add",
        .operation = "AddBridgeEndpoint",
        .form = "<key> [name <name>] [text1 <text1>] [text2 <text2>] [text3 <text3>] [value1 <value1>] [value2 "
                "<value2>] [value3 <value3>] [flag1 <flag1>] [flag2 <flag2>]"},
    {.words = "endpoint delete", .operation = "DelBridgeEndpoint", .form = "<key> [name <name>]"},
    {.words = "endpoint flush", .operation = "FlushBridgeEndpoint", .form = "[on <on>]"},
    {.words = "endpoint stats", .operation = "GetBeStats", .form = "<key>"},
    {.words = "endpoint status", .operation = "GetBeStatus", .form = "<key>"},
};

inline constexpr Object endpoint {"endpoint", "Bridge endpoints", endpoint_verbs};

} // namespace tool::objects
