// The commands for the state as a whole: save, diff, apply and graph.
#pragma once

#include "tool/output.h"
#include "tool/printer.h"

#include <span>
#include <string>
#include <string_view>

namespace tool {

struct StateOptions
{
    std::string instance;
    bool statistics = false;
    bool yes = false;
    bool dry_run = false;
    bool rollback = false;
    bool svg = false;
};

bool is_state_command(std::string_view word);
std::string help_of_state_commands();

// Returns the exit status. Throws Misuse and Failure.
int run_state_command(
    std::span<const std::string> words, const StateOptions& options, const Manner& manner, Output& output);

} // namespace tool
