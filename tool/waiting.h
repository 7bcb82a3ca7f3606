// Waiting, until something ends it.
#pragma once

#include <chrono>

namespace tool {

// While there is one, SIGINT and SIGTERM end what the tool waits for and not the tool, and a reader that goes away is an
// error of writing. A second signal ends the tool.
class Waiting
{
public:
    // It ends at this time, too.
    explicit Waiting(std::chrono::steady_clock::time_point end);
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

    static bool is_there();
    // Whether a signal has come, or the end.
    static bool is_ended();
    // False if a signal has come, or the end, or nobody reads standard output any more.
    static bool until(std::chrono::steady_clock::time_point time);
};

} // namespace tool
