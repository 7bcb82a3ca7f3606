// Runs a program with the device inside it.
#pragma once

#include "emulator/model/module.h"

namespace emulator {

// Executes the program with the door preloaded. Returns what execute() returns, which is called last, and throws if the
// program is one that preloading does not reach.
int run_in_process(char** program, Settings settings, int (*execute)(char** program));

} // namespace emulator
