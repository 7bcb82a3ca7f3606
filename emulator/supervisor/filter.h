// The seccomp filter that hands opens and the module's ioctls to the supervisor.
#pragma once

namespace emulator {

// Puts the calling process, and whatever it becomes and starts, under the filter. Returns the descriptor on which the
// supervisor hears of it, or -1 with errno: EBUSY if the process is under such a filter already, EINVAL or ENOSYS if
// the kernel has none.
int enter_filter();

} // namespace emulator
