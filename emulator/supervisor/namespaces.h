// A place apart: namespaces of mounts and of processes, in which the device can be a file.
#pragma once

#include "emulator/supervisor/link.h"

#include <sys/types.h>

namespace emulator {

// Those that a caller's world has, as unshare(2) and setns(2) name them: with one of users, unless the caller may
// do without what it would give.
int needed_namespaces();

// Starts a process that is the first in namespaces of its own, with all privileges in them, and has the caller for its
// parent. Returns its number, or 0 in the new process. Throws, in the caller, if the machine refuses.
pid_t fork_apart();

} // namespace emulator
