#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb bfd_verbs[] {
    {.words = "bfd list", .operation = "GetBridgeBFDSessions", .form = "[<key>]", .key = "addr1,addr2"},
    {.words = "bfd connection list", .operation = "GetBFDPortConnections", .form = "", .key = "port"},
    {.words = "bfd connection plumb",
        .operation = "PlumbBFDPortConnection",
        .form = "<port> [text <text>] [mac <mac>]"},
    {.words = "bfd connection unplumb", .operation = "UnPlumbBFDPortConnection", .form = "<port>"},
};

inline constexpr Object bfd {"bfd", "BFD sessions and their port connections", bfd_verbs};

} // namespace tool::objects
