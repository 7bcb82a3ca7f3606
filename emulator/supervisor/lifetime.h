// How long a world lasts.
#pragma once

#include <chrono>
#include <optional>

namespace emulator {

// What becomes of what the program leaves running.
enum class Leftovers
{
    End,     // with the program
    WaitFor, // until they have ended by themselves
};

struct Lifetime
{
    Leftovers leftovers = Leftovers::End;
    std::chrono::milliseconds grace = std::chrono::seconds(2); // between SIGTERM and SIGKILL for who must end
    std::optional<std::chrono::milliseconds> timeout;          // after which all must end
};

// The exit status when the time is over, as timeout(1) has it.
constexpr int timed_out = 124;

} // namespace emulator
