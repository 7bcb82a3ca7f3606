#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb level_verbs[] {
    {.words = "level show log", .operation = "GetLogLevel", .form = ""},
    {.words = "level show extended-log", .operation = "GetExtendedLogLevel", .form = ""},
    {.words = "level show stats", .operation = "GetStatsLevel", .form = ""},
    {.words = "level show queue", .operation = "GetTxDispQueueSize", .form = ""},
    {.words = "level set log", .operation = "SetLogLevel", .form = "<level>"},
    {.words = "level set extended-log", .operation = "SetExtendedLogLevel", .form = "<level>"},
    {.words = "level set stats", .operation = "SetStatsLevel", .form = "<level>"},
    {.words = "level set queue", .operation = "SetTxDispQueueSize", .form = "<size>"},
};

inline constexpr Object level {"level", "Levels of logging and statistics, and the queue", level_verbs};

} // namespace tool::objects
