#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb instance_verbs[] {
    {.words = "instance list", .operation = "GetInstances", .form = "", .key = "instanceKey"},
    {.words = "instance show", .operation = "GetInstance", .form = "<instance>"},
    {.words = "instance set",
        .operation = "SetLumoInstance",
        .form = "<instance> [value1 <value1>] [text <text>] [value2 <value2>]"},
    {.words = "instance tune",
        .operation = "SetLumoInstanceTunables",
        .form = "<instance> [tunables <tunables>] [value <value>]"},
    {.words = "instance delete", .operation = "DelLumoInstance", .form = "<instance>"},
};

inline constexpr Object instance {"instance", "Router instances", instance_verbs};

} // namespace tool::objects
