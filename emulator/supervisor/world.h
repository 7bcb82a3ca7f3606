// A world in which the device exists, and a program in it.
#pragma once

#include "emulator/model/module.h"

#include <cstdio>
#include <functional>

namespace emulator {

// How the program in the world ended.
struct Ending
{
    int status = 0; // its exit status, if no signal ended it
    int signal = 0; // the signal that ended it, or 0
};

// Runs program, in a child process, in a world of its own and serves it and all its descendants until the last has
// left. What program returns becomes its exit status; usually it calls exec and does not return. Signals that ask for
// an end are passed on to it. When a signal has ended it, whatever it left behind is killed. trace: one line of JSON
// for each command answered, or null.
Ending run_in_world(Module& module, std::FILE* trace, const std::function<int()>& program);

} // namespace emulator
