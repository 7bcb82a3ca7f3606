// A world in which the device exists, and a program in it.
#pragma once

#include "emulator/model/module.h"
#include "emulator/supervisor/lifetime.h"

#include <functional>
#include <optional>

namespace emulator {

// How the program in the world ended.
struct Ending
{
    int status = 0; // its exit status, if no signal ended it
    int signal = 0; // the signal that ended it, or 0
};

// How the device comes into the world.
enum class Mode
{
    Namespaces, // as a file, in namespaces of the world's own
    Injection,  // opens of its paths are answered with a descriptor
};

// What a world is to be like.
struct Wishes
{
    std::optional<Mode> mode; // the best one that the machine allows, if none is given
    int trace = -1;           // where to write a line of JSON for each command answered, if anywhere
    Lifetime lifetime;
};

// Runs program, in a child process, in a world of its own and serves it and all its descendants. What program returns
// becomes its exit status; usually it calls exec and does not return. The signals that ask for an end are passed on to
// it. Throws if no world can be made.
Ending run_in_world(Module& module, const Wishes& wishes, const std::function<int()>& program);

} // namespace emulator
