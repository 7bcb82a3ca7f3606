// Preloaded into programs: writes down what is asked of the module's device and answered, and changes nothing of it. It
// allocates nothing and keeps no descriptor, as programs may close all and count what they allocate.
#include "emulator/door/memory.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"
#include "emulator/protocol/envelope.h"
#include "emulator/recording/entry.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <time.h>
#include <unistd.h>

using namespace emulator;
using namespace emulator::protocol;
using namespace emulator::recording;

namespace {

using Control = int(int, unsigned long, ...);

Control* next_ioctl()
{
    static std::atomic<Control*> found = nullptr;
    Control* function = found.load(std::memory_order_relaxed);
    if (function == nullptr) {
        function = reinterpret_cast<Control*>(dlsym(RTLD_NEXT, "ioctl"));
        found.store(function, std::memory_order_relaxed);
    }
    return function;
}

bool is_device(int descriptor)
{
    std::array<char, 32> link;
    std::array<char, 128> path;
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
    const ssize_t length = readlink(link.data(), path.data(), path.size());
    return length > 0 && is_device_path({path.data(), static_cast<std::size_t>(length)});
}

std::uint64_t nanoseconds_of(clockid_t clock)
{
    timespec now {};
    clock_gettime(clock, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000000000 + static_cast<std::uint64_t>(now.tv_nsec);
}

// A command, from before it is issued until its entry is written.
class Entry
{
public:
    Entry(std::uint32_t number, std::uint64_t envelope_at) : envelope_at_(envelope_at)
    {
        made_[entry::number] = number;
        made_[entry::begun] = nanoseconds_of(CLOCK_REALTIME);
        made_[entry::process] = static_cast<std::uint32_t>(getpid());
        made_[entry::thread] = static_cast<std::uint32_t>(syscall(SYS_gettid));
        std::array<char, 16> name {};
        prctl(PR_GET_NAME, name.data());
        made_[entry::program] = name.data();
        begun_ = nanoseconds_of(CLOCK_MONOTONIC);
        made_[entry::readable] = read_request();
    }

    // error: 0 or the errno.
    void finish(int error)
    {
        made_[entry::took] = nanoseconds_of(CLOCK_MONOTONIC) - begun_;
        made_[entry::answered] = true;
        made_[entry::error] = static_cast<std::uint32_t>(error);
        std::array<std::byte, envelope::layout.size> bytes;
        std::uint32_t reply = 0;
        if (error == 0 && read_memory(envelope_at_, bytes)) {
            const std::uint32_t said = Input(bytes)[envelope::out_len];
            made_[entry::out_len] = said;
            reply = std::min(said, room_);
        }
        made_[entry::input_size] = input_size_;
        made_[entry::reply_size] = reply;
        made_[entry::length] = static_cast<std::uint32_t>(fixed_.size()) + input_size_ + reply;
        write(reply);
    }

private:
    std::uint8_t read_request()
    {
        std::array<std::byte, envelope::layout.size> bytes;
        if (!read_memory(envelope_at_, bytes))
            return 0;
        const Input sent(bytes);
        room_ = sent[envelope::out_len];
        out_ptr_ = sent[envelope::out_ptr];
        made_[entry::in_len] = sent[envelope::in_len];
        made_[entry::in_ptr] = sent[envelope::in_ptr];
        made_[entry::room] = room_;
        made_[entry::out_ptr] = out_ptr_;
        const std::uint32_t size = std::min(std::uint32_t {sent[envelope::in_len]}, longest_input);
        if (!read_memory(sent[envelope::in_ptr], std::span(input_).first(size)))
            return 1;
        input_size_ = size;
        return 2;
    }

    // One write is one entry, however many processes write.
    void write(std::uint32_t reply)
    {
        const char* const file = std::getenv("LUMOZEPH_RECORDING"); // NOLINT(concurrency-mt-unsafe): only read
        if (file == nullptr)
            return;
        const auto opened = static_cast<int>(syscall(SYS_openat, AT_FDCWD, file, O_WRONLY | O_APPEND | O_CLOEXEC));
        if (opened < 0)
            return;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the program's own
        void* const reply_at = reinterpret_cast<void*>(out_ptr_);
        const std::array<iovec, 3> pieces {
            {{fixed_.data(), fixed_.size()}, {input_.data(), input_size_}, {reply_at, reply}}};
        (void)!writev(opened, pieces.data(), static_cast<int>(pieces.size()));
        syscall(SYS_close, opened);
    }

    std::array<std::byte, entry::layout.size> fixed_ {};
    Record made_ {fixed_};
    std::array<std::byte, longest_input> input_;
    std::uint64_t envelope_at_;
    std::uint64_t begun_ = 0;
    std::uint64_t out_ptr_ = 0;
    std::uint32_t room_ = 0;
    std::uint32_t input_size_ = 0;
};

} // namespace

// NOLINTNEXTLINE(cert-dcl50-cpp): as libc has it
extern "C" __attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    const int error_before = errno;
    const auto number = static_cast<std::uint32_t>(request);
    const bool is_command = number <= last_command && is_device(descriptor);
    Control* const next = next_ioctl();
    if (!is_command) {
        errno = error_before;
        return next(descriptor, request, argument);
    }
    Entry entry(number, reinterpret_cast<std::uintptr_t>(argument));
    errno = error_before;
    const int result = next(descriptor, request, argument);
    const int error_after = errno;
    entry.finish(result < 0 ? error_after : 0);
    errno = error_after;
    return result;
}
