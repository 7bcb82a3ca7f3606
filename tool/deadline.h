// Ends the tool when a call hangs.
#pragma once

#include <chrono>
#include <string>
#include <thread>

namespace tool {

// While it lives. A signal's handler would not do: it runs only after the call of the module, and threads can be ended
// within it.
class Deadline
{
public:
    // After this time, writes the message to standard error and exits with this status.
    Deadline(std::chrono::duration<double> time, std::string message, int status);

private:
    std::jthread _thread;
};

} // namespace tool
