// How the device's descriptors are told from others.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/mounts.h"

#include <cstdint>
#include <sys/types.h>

namespace emulator {

class Device
{
public:
    enum class Is
    {
        Meant,   // commands can be given on the descriptor
        Another, // the kernel is to answer
        Unclear, // nobody is
    };

    Device() = default;
    virtual ~Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    // What a copy of a thread's descriptor is of.
    Is opened_as(int descriptor, pid_t thread) const;

private:
    virtual Is meant_by(int descriptor, pid_t thread) const = 0;
};

// The device as a file, in mounts of its own.
class MountedDevice : public Device
{
public:
    explicit MountedDevice(DeviceFiles files);

private:
    Is meant_by(int descriptor, pid_t thread) const override;

    DeviceFiles files_;
    std::array<std::uint64_t, 2> mounts_;
    std::uint64_t null_mount_;
};

// The device without a file: whoever opens it is given the null device instead, opened anew with the same flags, with a
// mark that stays with the open file however often the descriptor is duplicated, passed or inherited.
class MarkedDevice : public Device
{
public:
    // A descriptor to be given away, or none with errno.
    static Descriptor open(std::uint64_t flags);

private:
    Is meant_by(int descriptor, pid_t thread) const override;
};

} // namespace emulator
