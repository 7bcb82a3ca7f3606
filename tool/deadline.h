// Ends the tool when it takes too long.
#pragma once

#include <chrono>
#include <thread>

namespace tool {

// While it lives. A signal's handler would not do: it runs only after the call of the module, and threads can be ended
// within it.
class Deadline
{
public:
    // After this time, exits with this status.
    Deadline(std::chrono::duration<double> time, int status);

private:
    std::jthread _thread;
};

} // namespace tool
