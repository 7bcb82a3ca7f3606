// Interface policies: routes under a kind, reported as the same record.
#pragma once

#include "emulator/protocol/command.h"
#include "emulator/protocol/routes.h"

namespace emulator::protocol::lif_policies {

inline constexpr std::size_t most = 8000;

using addressed::instance;
using routes::dest;
using routes::gateway;
using routes::lif;
using routes::mask;
using routes::param;

inline constexpr Text text {"text", 148, 64};
inline constexpr I32 kind {"kind", 216};

inline constexpr Command commands[] = {
    {140, "GetLifPolicies", request<instance, text, kind>, list(routes::record::layout, most)},
    {141, "SetLifPolicy", request<instance, dest, mask, gateway, param, lif, text, kind>, result_if_asked},
    {142, "DelLifPolicy", request<instance, dest, mask, gateway, param, lif, text, kind>, result_if_asked},
};

} // namespace emulator::protocol::lif_policies
