#include "emulator/supervisor/device.h"

#include "emulator/protocol/envelope.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <fmt/format.h>
#include <fstream>
#include <string>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace emulator {

namespace {

// The signal by which the kernel would tell of input and output, if the null device ever did: nothing else sets it.
constexpr int mark = 63;

bool is_null_device(int descriptor)
{
    struct stat found
    {};
    return fstat(descriptor, &found) == 0 && S_ISCHR(found.st_mode) && found.st_rdev == makedev(1, 3);
}

// Whether a mount is one of those that the files of a thread are in.
bool is_around(pid_t thread, std::uint64_t mount)
{
    std::ifstream mounts(fmt::format("/proc/{}/mountinfo", thread));
    for (std::string line; std::getline(mounts, line);)
        if (std::strtoull(line.c_str(), nullptr, 10) == mount)
            return true;
    return false;
}

} // namespace

Device::Is Device::opened_as(int descriptor, pid_t thread) const
{
    const Is meant = meant_by(descriptor, thread);
    return meant != Is::Another && (fcntl(descriptor, F_GETFL) & O_PATH) != 0 ? Is::Another : meant;
}

MountedDevice::MountedDevice(DeviceFiles files)
    : files_(std::move(files)), mounts_ {mount_of(files_.device[0].number()), mount_of(files_.device[1].number())},
      null_mount_(mount_of(files_.null.number()))
{}

std::string_view MountedDevice::path_of(int descriptor) const
{
    const std::uint64_t mount = mount_of(descriptor);
    if (mount == mounts_[0])
        return protocol::normal_path;
    return mount == mounts_[1] ? protocol::upgrade_path : std::string_view();
}

Device::Is MountedDevice::meant_by(int descriptor, pid_t thread) const
{
    const std::uint64_t mount = mount_of(descriptor);
    if (std::find(mounts_.begin(), mounts_.end(), mount) != mounts_.end())
        return Is::Meant;
    if (mount == null_mount_ || !is_null_device(descriptor))
        return Is::Another;
    // A mount namespace that was made in the world has copies of its mounts. A descriptor from another world is of a
    // mount that is marked, too, but not around whoever was given it. What looks like any other null device may be a
    // copy that has lost its mark.
    return is_marked_mount(descriptor) && is_around(thread, mount) ? Is::Meant : Is::Unclear;
}

Descriptor MarkedDevice::open(std::uint64_t flags)
{
    Descriptor opened(::open("/dev/null", static_cast<int>(flags) | O_CLOEXEC | O_NOCTTY, 0));
    if (opened && fcntl(opened.number(), F_SETSIG, mark) != 0)
        return {};
    return opened;
}

Device::Is MarkedDevice::meant_by(int descriptor, pid_t) const
{
    return fcntl(descriptor, F_GETSIG) == mark && is_null_device(descriptor) ? Is::Meant : Is::Another;
}

} // namespace emulator
