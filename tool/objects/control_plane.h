#pragma once

#include "tool/grammar.h"

namespace tool::objects {

inline constexpr Verb control_plane_verbs[] {
    {.words = "control-plane activate", .operation = "CPActivate", .form = "<value>"},
    {.words = "control-plane address", .operation = "SetCPIp", .form = "<instance> <address>"},
    {.words = "control-plane sync show", .operation = "GetLumoInstanceCPSyncState", .form = "<instance>"},
    {.words = "control-plane sync set", .operation = "SetLumoInstanceCPSyncState", .form = "<instance> <state>"},
};

inline constexpr Object control_plane {"control-plane", "The connection to the control plane", control_plane_verbs};

} // namespace tool::objects
