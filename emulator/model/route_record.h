// The record as which routes and interface policies are reported.
#pragma once

#include "emulator/model/exchange.h"

namespace emulator {

enum class RouteOrigin : std::uint8_t
{
    Static = 1,
    Connected = 2,
    Policy = 4
};

void write_route(const Route& route, RouteOrigin origin, Exchange& exchange);

} // namespace emulator
