// The processes in the world, as the supervisor reaches them.
#pragma once

#include "emulator/supervisor/descriptor.h"

#include <cstdint>

namespace emulator {

// The process that a thread belongs to; the thread's number if it is not to be found.
std::uint32_t process_of(std::uint32_t thread);

// Copies the descriptors of threads.
class Copier
{
public:
    // None, with errno: EBADF if the thread has no such descriptor, EPERM if it may not be looked into, ESRCH if it has
    // ended.
    Descriptor copy(std::uint32_t thread, std::uint64_t descriptor);

private:
    bool find(std::uint32_t thread);

    // Most calls come from the thread that the last one came from. A thread that has ended is told from one that has
    // been given its number.
    std::uint32_t thread_ = 0;
    Descriptor handle_;
};

} // namespace emulator
