#include "emulator/supervisor/device.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace emulator {

namespace {

// The signal by which the kernel would tell of input and output, if the null device ever did: nothing else sets it.
constexpr int mark = 63;

} // namespace

bool Device::is_opened_as(int descriptor) const
{
    return is_meant_by(descriptor) && (fcntl(descriptor, F_GETFL) & O_PATH) == 0;
}

bool MountedDevice::is_meant_by(int descriptor) const
{
    const std::uint64_t mount = mount_of(descriptor);
    return std::find(mounts_.begin(), mounts_.end(), mount) != mounts_.end();
}

Descriptor MarkedDevice::open(std::uint64_t flags)
{
    Descriptor opened(::open("/dev/null", static_cast<int>(flags) | O_CLOEXEC | O_NOCTTY, 0));
    if (opened && fcntl(opened.number(), F_SETSIG, mark) != 0)
        return {};
    return opened;
}

bool MarkedDevice::is_meant_by(int descriptor) const
{
    struct stat found
    {};
    return fcntl(descriptor, F_GETSIG) == mark && fstat(descriptor, &found) == 0 && S_ISCHR(found.st_mode) &&
           found.st_rdev == makedev(1, 3);
}

} // namespace emulator
