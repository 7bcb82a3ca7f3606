#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb connection_verbs[] {
    {.words = "connection list", .operation = "GetConnections", .form = "", .key = "name"},
    {.words = "connection show", .operation = "GetConnection", .form = "<name>"},
    {.words = "connection mac", .operation = "GetVMAC", .form = "<name>"},
    {.words = "connection deletion", .operation = "LUMODevCheckConnDeletion", .form = ""},
    {.words = "connection plumb",
        .operation = "PlumbLumoConnection",
        .form = "<name> [text1 <text1>] [text2 <text2>] [text3 <text3>] [text4 <text4>]"},
    {.words = "connection unplumb", .operation = "UnPlumbLumoConnection", .form = "<name>"},
};

inline constexpr Object connection {"connection", "Port connections", connection_verbs};

} // namespace tool::objects
