// Runs a program with the device inside it.
#pragma once

#include "emulator/model/module.h"

#include <cstdint>
#include <string>
#include <vector>

namespace emulator {

// What the module in a program is to be like.
struct Inside
{
    Settings settings;
    std::string state; // the file that describes what it begins with, if one is named
    std::vector<std::string> faults;
    std::uint64_t seed = 0; // of what is at random in the faults
};

// Executes the program with the door preloaded. Returns what execute() returns, which is called last, and throws if the
// program is one that preloading does not reach.
int run_in_process(char** program, const Inside& inside, int (*execute)(char** program));

} // namespace emulator
