#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb module_verbs[] {
    {.words = "module flush",
        .operation = "GenericFlush",
        .form =
            "[value1 <value1>] [value2 <value2>] [value3 <value3>] [value4 <value4>] [text <text>] [value5 <value5>]"},
    {.words = "module unload", .operation = "PreUnload", .form = ""},
    {.words = "module sync save", .operation = "PerformFullSyncSave", .form = "<value>"},
    {.words = "module sync status", .operation = "GetFullSyncSaveStatus", .form = ""},
};

inline constexpr Object module {"module", "The module itself", module_verbs};

} // namespace tool::objects
