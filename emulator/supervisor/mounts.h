// The files of a world whose device is real.
#pragma once

#include <array>
#include <cstdint>

namespace emulator {

// What tells the device's files from all others.
using MountIds = std::array<std::uint64_t, 2>;

// Gives the calling process, which is alone in a mount namespace of its own and the first of a process namespace, the
// device's two files in their places, with all other files around them as they are. Throws if it cannot.
MountIds make_device_files();

// Why make_device_files() cannot work here, or null.
const char* what_forbids_device_files();

// The mount that a descriptor was opened in; 0 if the kernel does not say.
std::uint64_t mount_of(int descriptor);

} // namespace emulator
