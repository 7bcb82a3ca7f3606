// Nobody but the library knows what it sends, and it says so in one place: the ioctl of its device. Both functions by
// which it gets there are libc's, and the linker takes those of a program before those of libc. Here they are; unless the
// tool has asked for it, they lead on to the next ones.
#include "tool/stand_in.h"

#include "lumozeph.h"
#include "tool/reply.h"

#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <utility>

namespace {

constexpr int none = -1;

// Of the thread that calls the library, which is the only one.
struct
{
    bool is_asked = false;
    int descriptor = none;
    std::optional<tool::Issued> issued;
} stand_in;

template <class Function>
Function* next(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

int open_next(const char* path, int flags, mode_t mode)
{
    static auto* const open = next<int(const char*, int, ...)>("open64");
    return open(path, flags, mode);
}

std::string bytes_at(const void* where, std::size_t size)
{
    return where ? std::string(static_cast<const char*>(where), size) : std::string();
}

int keep(std::int32_t number, const LumoEnvelope* envelope)
{
    stand_in.descriptor = none;
    if (envelope)
        stand_in.issued = {number, bytes_at(envelope->inPtr, envelope->inLen), envelope->outLen};
    errno = ECANCELED;
    return -1;
}

} // namespace

extern "C" {

int open64(const char* path, int flags, ...)
{
    if (stand_in.is_asked)
        return stand_in.descriptor = open_next("/dev/null", O_RDWR | O_CLOEXEC, 0);
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE) {
        va_list arguments;
        va_start(arguments, flags);
        // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer does not see that they are begun
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    return open_next(path, flags, mode);
}

int ioctl(int descriptor, unsigned long request, ...) noexcept
{
    static auto* const control = next<int(int, unsigned long, ...)>("ioctl");
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (stand_in.is_asked && descriptor == stand_in.descriptor)
        return keep(static_cast<std::int32_t>(request), static_cast<const LumoEnvelope*>(argument));
    return control(descriptor, request, argument);
}
}

namespace tool {
namespace {

// One operation leaves most of its request as the stack was: what is not set shall be 0.
[[gnu::noinline]] void clear_stack()
{
    volatile char below[16384];
    for (volatile char& one : below)
        one = 0;
}

// Below what the function that clears keeps for itself.
[[gnu::noinline]] void call_further_down(const Operation& operation, Arguments& arguments, Reply& reply)
{
    char between[1024];
    asm volatile("" : : "r"(between) : "memory");
    operation.call(arguments, reply);
    asm volatile("" : : "r"(between) : "memory");
}

} // namespace

std::optional<Issued> issued_by(const Operation& operation, const Arguments& arguments)
{
    // The first call finds the function, which leaves traces on the stack.
    for (int i = 0; i < 2; ++i) {
        stand_in = {.is_asked = true, .descriptor = none, .issued = std::nullopt};
        Arguments given = arguments;
        Reply reply;
        clear_stack();
        errno = 0;
        call_further_down(operation, given, reply);
        stand_in.is_asked = false;
    }
    return std::exchange(stand_in.issued, std::nullopt);
}

} // namespace tool
