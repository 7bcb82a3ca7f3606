// Runs a program whose commands are recorded on their way to the module of the host.
#pragma once

#include <string>

namespace emulator {

// Executes the program with the recorder preloaded. Returns what execute() returns, which is called last, and throws if
// the program is one that preloading does not reach.
int record_in_process(char** program, const std::string& file, int (*execute)(char** program));

} // namespace emulator
