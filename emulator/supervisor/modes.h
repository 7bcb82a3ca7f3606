// The words by which modes are chosen on command lines.
#pragma once

#include "emulator/supervisor/world.h"

#include <CLI/CLI.hpp>
#include <array>
#include <map>
#include <string>
#include <utility>

namespace emulator {

// The better one first.
constexpr std::array<std::pair<const char*, Mode>, 2> modes {
    {{"namespaces", Mode::Namespaces}, {"injection", Mode::Injection}}};

inline CLI::Option* choose_mode(CLI::Option* option)
{
    return option->type_name("MODE")->transform(
        CLI::Transformer(std::map<std::string, Mode>(modes.begin(), modes.end())));
}

} // namespace emulator
