#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb stats_verbs[] {
    {.words = "stats lif", .operation = "GetLifStats", .form = "<instance> <lif>"},
    {.words = "stats cached", .operation = "GetLifStatsCached", .form = "<instance> <lif>"},
    {.words = "stats instance", .operation = "GetLumoInstanceCPStats", .form = "<instance>"},
    {.words = "stats di", .operation = "GetLumoDiStats", .form = ""},
    {.words = "stats reset lif", .operation = "ResetLifStats", .form = "<instance> <lif>"},
    {.words = "stats reset instance", .operation = "ResetLumoInstanceCPStats", .form = "<instance>"},
    {.words = "stats reset di", .operation = "ResetLumoDiStats", .form = ""},
};

inline constexpr Object stats {"stats", "Statistics", stats_verbs};

} // namespace tool::objects
