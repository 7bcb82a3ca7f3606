// The system calls of the library and of its limits, as the benchmarks answer them.
#pragma once

#include <cstdint>

namespace bench {

enum class Kernel
{
    Real,    // every call goes to the kernel as it is
    DevNull, // so does the device's, but /dev/null is opened in its place
    Instant  // nothing is called: the device's ioctl copies the reply and returns
};

// What the device answers to this thread from now on. The bytes must outlive the calls; null: they are in the room
// already.
struct Reply
{
    const void* bytes = nullptr;
    std::uint32_t length = 0;
};

void answer_calls(Kernel kernel, Reply reply = {});

} // namespace bench
