#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb rss_verbs[] {
    {.words = "rss show", .operation = "SoftRSSGetStats", .form = "<target>"},
    {.words = "rss reset", .operation = "SoftRSSStatsReset", .form = "<target>"},
    {.words = "rss tunables show", .operation = "SoftRSSGetTunables", .form = "<target>"},
    {.words = "rss tunables set", .operation = "SoftRSSSetTunables", .form = "<target> <tunables>"},
    {.words = "rss table show", .operation = "SoftRSSGetIndTable", .form = "<target>"},
    {.words = "rss table set", .operation = "SoftRSSTableSet", .form = "<target> <table>"},
};

inline constexpr Object rss {"rss", "Receive-side scaling", rss_verbs};

} // namespace tool::objects
