// Recognises the descriptors of the device among those of the programs in the world.
#pragma once

#include <cstdint>
#include <sys/stat.h>

namespace emulator {

// A descriptor of the file that stands for the device. Programs are given copies of it, by which they are recognised,
// however often they are duplicated or inherited.
class DeviceDescriptor
{
public:
    DeviceDescriptor();
    ~DeviceDescriptor();
    DeviceDescriptor(const DeviceDescriptor&) = delete;
    DeviceDescriptor& operator=(const DeviceDescriptor&) = delete;

    int number() const { return number_; }

    // Whether a descriptor of this thread's is a copy.
    bool is_copied_to(std::uint32_t thread, std::uint64_t descriptor);

private:
    bool identify(std::uint64_t descriptor);

    int number_;
    struct stat device_ = {};
    std::uint32_t thread_ = 0; // the one asked about last
    int descriptors_ = -1;     // its /proc/THREAD/fd
    struct stat found_ = {};   // what identify() found there
};

} // namespace emulator
