// How the device's descriptors are told from others.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/mounts.h"

#include <array>
#include <cstdint>
#include <string_view>
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

    // Whether the kernel opens it.
    virtual bool is_file() const = 0;

    // The path of the device's file that a descriptor of the supervisor's is of; empty if it is of none.
    virtual std::string_view path_of(int descriptor) const = 0;

private:
    virtual Is meant_by(int descriptor, pid_t thread) const = 0;
};

// The device as a file, in mounts of its own.
class MountedDevice : public Device
{
public:
    explicit MountedDevice(DeviceFiles files);

    bool is_file() const override { return true; }
    std::string_view path_of(int descriptor) const override;

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

    bool is_file() const override { return false; }
    std::string_view path_of(int) const override { return {}; }

private:
    Is meant_by(int descriptor, pid_t thread) const override;
};

} // namespace emulator
