// Who the threads are that ask.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/trace/event.h"

#include <chrono>
#include <cstdint>
#include <deque>
#include <string>

namespace emulator {

class Callers
{
public:
    // A thread that waits for an answer.
    Caller find(std::uint32_t thread);

private:
    // The file that holds a thread's name goes on to tell it when the thread executes another program, and tells nothing
    // when the thread has ended, even if another has its number.
    struct Known
    {
        std::uint32_t thread;
        std::uint32_t process;
        Descriptor file;
        std::string name {};
        std::chrono::steady_clock::time_point read {};
    };

    std::deque<Known> known_;
};

} // namespace emulator
