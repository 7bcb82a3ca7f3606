// How the device's descriptors are told from others.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/mounts.h"

#include <cstdint>

namespace emulator {

class Device
{
public:
    Device() = default;
    virtual ~Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    // Whether a descriptor is one of the device on which commands can be given.
    bool is_opened_as(int descriptor) const;

private:
    virtual bool is_meant_by(int descriptor) const = 0;
};

// The device as a file, in mounts of its own.
class MountedDevice : public Device
{
public:
    explicit MountedDevice(const MountIds& mounts) : mounts_(mounts) {}

private:
    bool is_meant_by(int descriptor) const override;

    MountIds mounts_;
};

// The device without a file: whoever opens it is given the null device instead, opened anew with the same flags, with a
// mark that stays with the open file however often the descriptor is duplicated, passed or inherited.
class MarkedDevice : public Device
{
public:
    // A descriptor to be given away, or none with errno.
    static Descriptor open(std::uint64_t flags);

private:
    bool is_meant_by(int descriptor) const override;
};

} // namespace emulator
