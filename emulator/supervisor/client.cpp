#include "emulator/supervisor/client.h"

#include <cerrno>
#include <fcntl.h>
#include <fmt/format.h>
#include <fstream>
#include <string>
#include <sys/syscall.h>

namespace emulator {

namespace {

// Newer than the oldest headers that the emulator is built with.
constexpr unsigned int of_thread = O_EXCL; // PIDFD_THREAD

int handle_of(std::uint32_t process, unsigned int flags)
{
    return static_cast<int>(syscall(SYS_pidfd_open, process, flags));
}

} // namespace

std::uint32_t process_of(std::uint32_t thread)
{
    std::ifstream status(fmt::format("/proc/{}/status", thread));
    std::string word;
    std::uint32_t process = 0;
    while (status >> word)
        if (word == "Tgid:" && status >> process)
            return process;
    return thread;
}

Descriptor Copier::copy(std::uint32_t thread, std::uint64_t descriptor)
{
    const auto number = static_cast<int>(descriptor);
    const bool known = thread == thread_;
    if (!known && !find(thread))
        return {};
    Descriptor copied(static_cast<int>(syscall(SYS_pidfd_getfd, handle_.number(), number, 0)));
    if (!copied && errno == ESRCH && known && find(thread))
        copied = Descriptor(static_cast<int>(syscall(SYS_pidfd_getfd, handle_.number(), number, 0)));
    return copied;
}

bool Copier::find(std::uint32_t thread)
{
    handle_ = Descriptor(handle_of(thread, of_thread));
    thread_ = thread;
    if (!handle_ && errno == EINVAL) {
        // Kernels before 6.9 have handles of processes only, which do not tell when a thread has ended.
        thread_ = 0;
        handle_ = Descriptor(handle_of(process_of(thread), 0));
    }
    if (!handle_)
        thread_ = 0;
    return static_cast<bool>(handle_);
}

} // namespace emulator
