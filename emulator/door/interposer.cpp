// The names under which programs reach the door: libc's functions that take a path or a descriptor. What is not the
// device's goes on to the definition that comes after ours, which is libc's or that of another such library.
#include "emulator/door/door.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using emulator::Descriptors;
using emulator::device_at;
using emulator::Door;

namespace {

// The next definition of a function.
template <class Function>
class Next
{
public:
    explicit constexpr Next(const char* name) noexcept : name_(name) {}

    template <class... Arguments>
    int operator()(Arguments... arguments)
    {
        Function* const function = find();
        if (function == nullptr) {
            errno = ENOSYS;
            return -1;
        }
        return function(arguments...);
    }

    Function* find()
    {
        Function* function = function_.load(std::memory_order_relaxed);
        if (function == nullptr) {
            const int error_before = errno;
            function = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name_));
            function_.store(function, std::memory_order_relaxed);
            errno = error_before;
        }
        return function;
    }

private:
    const char* name_;
    std::atomic<Function*> function_ = nullptr;
};

using Open = int(const char*, int, ...);
using OpenAt = int(int, const char*, int, ...);
using CheckedOpen = int(const char*, int);
using CheckedOpenAt = int(int, const char*, int);
using Control = int(int, int, ...);
// On 64-bit hosts stat and stat64 are the same.
using StatusOfPath = int(const char*, struct stat*);
using StatusOfDescriptor = int(int, struct stat*);
using StatusAt = int(int, const char*, struct stat*, int);
using Access = int(const char*, int);

namespace next {
constinit Next<Open> open("open");
constinit Next<Open> open64("open64");
constinit Next<OpenAt> openat("openat");
constinit Next<OpenAt> openat64("openat64");
constinit Next<CheckedOpen> open_2("__open_2");
constinit Next<CheckedOpen> open64_2("__open64_2");
constinit Next<CheckedOpenAt> openat_2("__openat_2");
constinit Next<CheckedOpenAt> openat64_2("__openat64_2");
constinit Next<int(int, unsigned long, ...)> ioctl("ioctl");
constinit Next<int(int)> close("close");
constinit Next<int(unsigned, unsigned, int)> close_range("close_range");
constinit Next<void(int)> closefrom("closefrom");
constinit Next<int(int)> dup("dup");
constinit Next<int(int, int)> dup2("dup2");
constinit Next<int(int, int, int)> dup3("dup3");
constinit Next<Control> fcntl("fcntl");
constinit Next<Control> fcntl64("fcntl64");
constinit Next<StatusOfPath> stat("stat");
constinit Next<StatusOfPath> stat64("stat64");
constinit Next<StatusOfPath> lstat("lstat");
constinit Next<StatusOfPath> lstat64("lstat64");
constinit Next<StatusOfDescriptor> fstat("fstat");
constinit Next<StatusOfDescriptor> fstat64("fstat64");
constinit Next<StatusAt> fstatat("fstatat");
constinit Next<StatusAt> fstatat64("fstatat64");
constinit Next<int(int, const char*, int, unsigned, struct statx*)> statx("statx");
constinit Next<Access> access("access");
constinit Next<Access> euidaccess("euidaccess");
constinit Next<Access> eaccess("eaccess");
constinit Next<int(int, const char*, int, int)> faccessat("faccessat");
} // namespace next

// Before the program begins, because a handler of signals may not look for functions.
[[gnu::constructor]] void find_all()
{
    const auto find = [](auto&... functions) { (functions.find(), ...); };
    find(next::open, next::open64, next::openat, next::openat64, next::open_2, next::open64_2, next::openat_2,
        next::openat64_2, next::ioctl, next::close, next::close_range, next::closefrom, next::dup, next::dup2,
        next::dup3, next::fcntl, next::fcntl64, next::stat, next::stat64, next::lstat, next::lstat64, next::fstat,
        next::fstat64, next::fstatat, next::fstatat64, next::statx, next::access, next::euidaccess, next::eaccess,
        next::faccessat);
}

// From the kernel's way of reporting errors to libc's.
int result(int value)
{
    if (value >= 0)
        return value;
    errno = -value;
    return -1;
}

bool needs_mode(int flags)
{
    return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
}

int open_device(emulator::Node node, int flags)
{
    return result(Door::of_this_process().open(node, flags));
}

// The directory is that of the functions that take one.
template <class Function, class... Directory>
int open_path(Next<Function>& otherwise, const char* path, int flags, va_list arguments, Directory... directory)
{
    if (const auto node = device_at(path))
        return open_device(*node, flags);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer does not see that they are begun
    const mode_t mode = needs_mode(flags) ? va_arg(arguments, mode_t) : 0;
    return otherwise(directory..., path, flags, mode);
}

template <class Function, class... Directory>
int open_path_without_mode(Next<Function>& otherwise, const char* path, int flags, Directory... directory)
{
    const auto node = device_at(path);
    return node && !needs_mode(flags) ? open_device(*node, flags) : otherwise(directory..., path, flags);
}

int control(int descriptor, int command, long argument, Next<Control>& otherwise)
{
    if (!Descriptors::in_range(descriptor))
        return otherwise(descriptor, command, argument);
    Door& door = Door::of_this_process();
    const int value = static_cast<int>(argument);
    switch (command) {
    case F_DUPFD:
        return result(door.duplicate(descriptor, value, 0));
    case F_DUPFD_CLOEXEC:
        return result(door.duplicate(descriptor, value, O_CLOEXEC));
    case F_GETFD:
        return result(door.descriptor_flags(descriptor));
    case F_SETFD:
        return result(door.set_descriptor_flags(descriptor, value));
    case F_GETFL:
        return result(door.status_flags(descriptor));
    case F_SETFL:
        return result(door.set_status_flags(descriptor, value));
    default:
        return otherwise(descriptor, command, argument);
    }
}

struct stat* as_stat(struct stat64* status)
{
    return reinterpret_cast<struct stat*>(status);
}

int status_of_path(const char* path, struct stat* status, Next<StatusOfPath>& otherwise)
{
    const auto node = device_at(path);
    if (!node)
        return otherwise(path, status);
    *status = emulator::status_of(*node);
    return 0;
}

int status_of_descriptor(int descriptor, struct stat* status, Next<StatusOfDescriptor>& otherwise)
{
    return Descriptors::in_range(descriptor) ? result(Door::of_this_process().status(descriptor, *status))
                                             : otherwise(descriptor, status);
}

// Whether a call that takes a directory's descriptor and a path is about the descriptor itself.
bool names_descriptor(int descriptor, const char* path, int flags)
{
    return Descriptors::in_range(descriptor) && (flags & AT_EMPTY_PATH) != 0 && path != nullptr && *path == '\0';
}

int status_at(int directory, const char* path, struct stat* status, int flags, Next<StatusAt>& otherwise)
{
    if (names_descriptor(directory, path, flags))
        return result(Door::of_this_process().status(directory, *status));
    const auto node = device_at(path);
    if (!node)
        return otherwise(directory, path, status, flags);
    *status = emulator::status_of(*node);
    return 0;
}

int access_device(int mode)
{
    if ((mode & ~(R_OK | W_OK | X_OK)) != 0)
        return result(-EINVAL);
    return result((mode & X_OK) != 0 ? -EACCES : 0);
}

int access_path(const char* path, int mode, Next<Access>& otherwise)
{
    return device_at(path) ? access_device(mode) : otherwise(path, mode);
}

struct statx extended(const struct stat& status)
{
    struct statx extended = {};
    extended.stx_mask = STATX_TYPE | STATX_MODE | STATX_NLINK | STATX_UID | STATX_GID | STATX_INO | STATX_SIZE;
    extended.stx_mode = static_cast<std::uint16_t>(status.st_mode);
    extended.stx_nlink = static_cast<std::uint32_t>(status.st_nlink);
    extended.stx_ino = status.st_ino;
    extended.stx_blksize = static_cast<std::uint32_t>(status.st_blksize);
    extended.stx_rdev_major = major(status.st_rdev);
    extended.stx_rdev_minor = minor(status.st_rdev);
    return extended;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int descriptor = open_path(next::open, path, flags, arguments);
    va_end(arguments);
    return descriptor;
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int descriptor = open_path(next::open64, path, flags, arguments);
    va_end(arguments);
    return descriptor;
}

int openat(int directory, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int descriptor = open_path(next::openat, path, flags, arguments, directory);
    va_end(arguments);
    return descriptor;
}

int openat64(int directory, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int descriptor = open_path(next::openat64, path, flags, arguments, directory);
    va_end(arguments);
    return descriptor;
}

// What the opens become in programs that are compiled with _FORTIFY_SOURCE.
// NOLINTBEGIN(bugprone-reserved-identifier): libc has reserved them

int __open_2(const char* path, int flags)
{
    return open_path_without_mode(next::open_2, path, flags);
}

int __open64_2(const char* path, int flags)
{
    return open_path_without_mode(next::open64_2, path, flags);
}

int __openat_2(int directory, const char* path, int flags)
{
    return open_path_without_mode(next::openat_2, path, flags, directory);
}

int __openat64_2(int directory, const char* path, int flags)
{
    return open_path_without_mode(next::openat64_2, path, flags, directory);
}
// NOLINTEND(bugprone-reserved-identifier)

int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (!Descriptors::in_range(descriptor))
        return next::ioctl(descriptor, request, argument);
    return result(Door::of_this_process().control(
        descriptor, static_cast<std::uint32_t>(request), reinterpret_cast<std::uintptr_t>(argument)));
}

int close(int descriptor)
{
    return Descriptors::in_range(descriptor) ? result(Door::of_this_process().close(descriptor))
                                             : next::close(descriptor);
}

int close_range(unsigned first, unsigned last, int flags) noexcept
{
    const int closed = next::close_range(first, last, flags);
    if (closed != 0 || last < Descriptors::first)
        return closed;
    if ((static_cast<unsigned>(flags) & CLOSE_RANGE_CLOEXEC) != 0)
        Door::of_this_process().close_range_on_exec(first, last);
    else
        Door::of_this_process().close_range(first, last);
    return 0;
}

void closefrom(int first) noexcept
{
    Door::of_this_process().close_range(first < 0 ? 0 : static_cast<unsigned>(first), ~0U);
    if (auto* const function = next::closefrom.find())
        function(first);
}

int dup(int descriptor) noexcept
{
    return Descriptors::in_range(descriptor) ? result(Door::of_this_process().duplicate(descriptor, 0, 0))
                                             : next::dup(descriptor);
}

// Between one of our numbers and one of the kernel's there is no copying: the kernel answers EBADF.

int dup2(int descriptor, int replaced) noexcept
{
    if (!Descriptors::in_range(descriptor) || !Descriptors::in_range(replaced))
        return next::dup2(descriptor, replaced);
    Door& door = Door::of_this_process();
    if (descriptor != replaced)
        return result(door.duplicate_to(descriptor, replaced, 0));
    const int flags = door.descriptor_flags(descriptor);
    return result(flags < 0 ? flags : descriptor);
}

int dup3(int descriptor, int replaced, int flags) noexcept
{
    if (!Descriptors::in_range(descriptor) || !Descriptors::in_range(replaced))
        return next::dup3(descriptor, replaced, flags);
    if (descriptor == replaced || (flags & ~O_CLOEXEC) != 0)
        return result(-EINVAL);
    return result(Door::of_this_process().duplicate_to(descriptor, replaced, flags));
}

int fcntl(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    return control(descriptor, command, argument, next::fcntl);
}

int fcntl64(int descriptor, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    return control(descriptor, command, argument, next::fcntl64);
}

int stat(const char* path, struct stat* status) noexcept
{
    return status_of_path(path, status, next::stat);
}

int stat64(const char* path, struct stat64* status) noexcept
{
    return status_of_path(path, as_stat(status), next::stat64);
}

int lstat(const char* path, struct stat* status) noexcept
{
    return status_of_path(path, status, next::lstat);
}

int lstat64(const char* path, struct stat64* status) noexcept
{
    return status_of_path(path, as_stat(status), next::lstat64);
}

int fstat(int descriptor, struct stat* status) noexcept
{
    return status_of_descriptor(descriptor, status, next::fstat);
}

int fstat64(int descriptor, struct stat64* status) noexcept
{
    return status_of_descriptor(descriptor, as_stat(status), next::fstat64);
}

int fstatat(int directory, const char* path, struct stat* status, int flags) noexcept
{
    return status_at(directory, path, status, flags, next::fstatat);
}

int fstatat64(int directory, const char* path, struct stat64* status, int flags) noexcept
{
    return status_at(directory, path, as_stat(status), flags, next::fstatat64);
}

int statx(int directory, const char* path, int flags, unsigned mask, struct statx* status) noexcept
{
    struct stat found = {};
    if (names_descriptor(directory, path, flags)) {
        if (const int error = Door::of_this_process().status(directory, found); error < 0)
            return result(error);
    } else if (const auto node = device_at(path)) {
        found = emulator::status_of(*node);
    } else {
        return next::statx(directory, path, flags, mask, status);
    }
    *status = extended(found);
    return 0;
}

int access(const char* path, int mode) noexcept
{
    return access_path(path, mode, next::access);
}

int euidaccess(const char* path, int mode) noexcept
{
    return access_path(path, mode, next::euidaccess);
}

int eaccess(const char* path, int mode) noexcept
{
    return access_path(path, mode, next::eaccess);
}

int faccessat(int directory, const char* path, int mode, int flags) noexcept
{
    return device_at(path) ? access_device(mode) : next::faccessat(directory, path, mode, flags);
}

std::int32_t lumozeph_emulator_reset(void)
{
    return result(Door::of_this_process().reset());
}

std::int32_t lumozeph_emulator_load(const char* path)
{
    return result(Door::of_this_process().load(path));
}

std::int32_t lumozeph_emulator_save(const char* path)
{
    return result(Door::of_this_process().save(path));
}

std::int32_t lumozeph_emulator_advance(std::uint64_t nanoseconds)
{
    return result(Door::of_this_process().advance(emulator::Time(nanoseconds)));
}

std::int32_t lumozeph_emulator_watch(LumoEmulatorWatcher watcher, void* context)
{
    return result(Door::of_this_process().watch(watcher, context));
}

std::int32_t lumozeph_emulator_add_fault(const char* fault)
{
    return result(Door::of_this_process().add_fault(fault));
}

std::int32_t lumozeph_emulator_clear_faults(void)
{
    return result(Door::of_this_process().clear_faults());
}

} // extern "C"
