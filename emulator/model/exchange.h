// One command on its way through the module.
#pragma once

#include "emulator/model/state.h"
#include "emulator/model/wire.h"

#include <cerrno>

namespace emulator {

struct Exchange
{
    State& state;
    Request request;
    std::uint32_t room;
    std::vector<std::byte> reply;
};

} // namespace emulator
