// Runs a program with the device inside it.
#pragma once

#include "emulator/model/module.h"

#include <string>

namespace emulator {

// Executes the program with the door preloaded, and a module that begins with what the file describes, if one is named.
// Returns what execute() returns, which is called last, and throws if the program is one that preloading does not reach.
int run_in_process(char** program, Settings settings, const std::string& state, int (*execute)(char** program));

} // namespace emulator
