// A world in which the device exists, and a program in it.
#pragma once

#include "emulator/faults/faults.h"
#include "emulator/recording/replay.h"
#include "emulator/state/replaced_file.h"
#include "emulator/supervisor/front.h"
#include "emulator/supervisor/lifetime.h"
#include "emulator/supervisor/witness.h"

#include <functional>
#include <optional>
#include <string>

namespace emulator {

// How the device comes into the world.
enum class Mode
{
    Namespaces, // as a file, in namespaces of the world's own
    Injection,  // opens of its paths are answered with a descriptor
};

// What a world is to be like.
struct Wishes
{
    std::optional<std::string> name;
    std::optional<Mode> mode; // the best one that the machine allows, if none is given
    Telling telling;
    // What answers in the place of the module, if anything. What differs first is written into a file.
    Replay* replay = nullptr;
    int difference = -1;
    const ReplacedFile* state = nullptr; // where to write the module's state when the world has ended, if anywhere
    Lifetime lifetime;
};

// Runs program, in a child process, in a world of its own and serves it and all its descendants. What program returns
// becomes its exit status; usually it calls exec and does not return. The signals that ask for an end are passed on to
// it. Throws if no world can be made.
Ending run_in_world(Module& module, Faults& faults, const Wishes& wishes, const std::function<int()>& program);

// Holds a world without a program until a signal or a visitor asks for its end. ready: is called when it can be joined.
Ending serve_world(Module& module, Faults& faults, const Wishes& wishes, const std::function<void()>& ready);

// The same as run_in_world(), in a world that is there already.
Ending join_world(const std::string& name, const std::function<int()>& program);

// Asks a world to end, and waits until it has. False if there is none of this name.
bool stop_world(const std::string& name);

// Tells of a world; nothing if there is none of this name.
std::optional<std::string> describe_world(const std::string& name);

} // namespace emulator
