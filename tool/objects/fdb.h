#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb fdb_verbs[] {
    {.words = "fdb list",
        .operation = "GetBridgeFdbEntries",
        .form = "<key> [value16 <value16>] [value32 <value32>]",
        .key = "mac,value1,value2"},
    {.words = "fdb set",
        .operation = "BridgeSetFdbEntry",
        .form = "<key> [mac <mac>] [selector1 <selector1>] [selector2 <selector2>] [value <value>] [flags <flags>]"},
    {.words = "fdb clear",
        .operation = "BridgeClearFdbTable",
        .form = "<key> [selector1 <selector1>] [selector2 <selector2>]"},
    {.words = "fdb dump", .operation = "DumpFLTable", .form = "<selector>"},
    {.words = "fdb pmac list", .operation = "GetPmac", .form = "", .key = "mac"},
    {.words = "fdb pmac add", .operation = "AddPmac", .form = "<value> <mac>"},
    {.words = "fdb pmac delete", .operation = "DelPmac", .form = "<mac>"},
};

inline constexpr Object fdb {"fdb", "Forwarding tables", fdb_verbs};

} // namespace tool::objects
