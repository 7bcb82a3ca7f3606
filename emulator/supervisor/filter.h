// The seccomp filter that hands system calls to the supervisor.
#pragma once

#include "emulator/supervisor/descriptor.h"

#include <linux/filter.h>
#include <vector>

namespace emulator {

enum class Handed
{
    Commands,                   // the ioctls whose request is the number of a command
    CommandsAndOpensForWriting, // also the opens with which a device is used
    CommandsAndOpens,           // also all others
};

// The filter as the kernel runs it.
std::vector<sock_filter> filter_for(Handed handed);

// Puts the calling process, and whatever it becomes and starts, under the filter. Returns the descriptor on which the
// supervisor hears of it. Throws if that cannot be.
Descriptor enter_filter(Handed handed);

} // namespace emulator
