// The files of a world whose device is real.
#pragma once

#include "emulator/supervisor/descriptor.h"

#include <array>
#include <cstdint>

namespace emulator {

// What is held open, so that no other mount is given the number of theirs.
struct DeviceFiles
{
    std::array<Descriptor, 2> device;
    Descriptor null; // the null device that programs find
};

// Gives the calling process, which is alone in a mount namespace of its own and the first of a process namespace, the
// device's two files in their places, with all other files around them as they are. Throws if it cannot.
DeviceFiles make_device_files();

// Why make_device_files() cannot work here, or null.
const char* what_forbids_device_files();

// The mount that a descriptor was opened in; 0 if the kernel does not say.
std::uint64_t mount_of(int descriptor);

// Whether a descriptor was opened in a mount of a device's file, in this world or another, or in a copy of one.
bool is_marked_mount(int descriptor);

} // namespace emulator
