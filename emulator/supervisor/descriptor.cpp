#include "emulator/supervisor/descriptor.h"

#include <cerrno>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>

namespace emulator {

DeviceDescriptor::DeviceDescriptor() : number_(memfd_create("lumozeph-emulator-device", MFD_CLOEXEC))
{
    if (number_ < 0 || fstat(number_, &device_) != 0)
        throw std::system_error(errno, std::generic_category(), "cannot make the device");
}

DeviceDescriptor::~DeviceDescriptor()
{
    close(number_);
    if (descriptors_ >= 0)
        close(descriptors_);
}

bool DeviceDescriptor::is_copied_to(std::uint32_t thread, std::uint64_t descriptor)
{
    // Most calls come from the thread that the last one came from. Its directory stays its own even when its number is
    // given to another: then nothing is found in it any more.
    if (thread != thread_ || !identify(descriptor)) {
        thread_ = thread;
        if (descriptors_ >= 0)
            close(descriptors_);
        descriptors_ = open(fmt::format("/proc/{}/fd", thread_).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
        identify(descriptor);
    }
    return found_.st_dev == device_.st_dev && found_.st_ino == device_.st_ino;
}

bool DeviceDescriptor::identify(std::uint64_t descriptor)
{
    found_ = {};
    const auto name = fmt::format_int(static_cast<int>(descriptor));
    return fstatat(descriptors_, name.c_str(), &found_, 0) == 0;
}

} // namespace emulator
