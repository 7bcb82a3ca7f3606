#include "fake/interposer.h"

#include <atomic>
#include <cstdarg>
#include <fcntl.h>
#include <type_traits>

extern "C" {
void* __real_malloc(std::size_t);
void* __real_calloc(std::size_t, std::size_t);
void __real_free(void*);
char* __real_getenv(const char*);
int __real_open64(const char*, int, ...);
int __real_ioctl(int, unsigned long, ...);
int __real_close(int);
int __real_inet_pton(int, const char*, void*);
}

namespace fake {

namespace {

constinit thread_local Libc* of_this_thread = nullptr;
constinit std::atomic<Libc*> of_every_thread = nullptr;

template <class Result, class... Parameters>
Result answer(Result (Libc::*function)(Parameters...), Parameters... arguments)
{
    static constinit Libc real;
    Libc* const taken = answer_this_thread(nullptr);
    Libc* const general = of_every_thread;
    Libc* const libc = taken != nullptr ? taken : general != nullptr ? general : &real;
    if constexpr (std::is_void_v<Result>) {
        (libc->*function)(arguments...);
        answer_this_thread(taken);
    } else {
        const Result result = (libc->*function)(arguments...);
        answer_this_thread(taken);
        return result;
    }
}

} // namespace

Libc* answer_this_thread(Libc* libc)
{
    Libc* const before = of_this_thread;
    of_this_thread = libc;
    return before;
}

void answer_every_thread(Libc* libc)
{
    of_every_thread = libc;
}

void* Libc::malloc(std::size_t size)
{
    return __real_malloc(size);
}

void* Libc::calloc(std::size_t count, std::size_t size)
{
    return __real_calloc(count, size);
}

void Libc::free(void* block)
{
    __real_free(block);
}

char* Libc::getenv(const char* name)
{
    return __real_getenv(name);
}

int Libc::open64(const char* path, int flags, mode_t mode)
{
    return __real_open64(path, flags, mode);
}

int Libc::ioctl(int descriptor, unsigned long number, void* argument)
{
    return __real_ioctl(descriptor, number, argument);
}

int Libc::close(int descriptor)
{
    return __real_close(descriptor);
}

int Libc::inet_pton(int family, const char* text, void* address)
{
    return __real_inet_pton(family, text, address);
}

} // namespace fake

using fake::answer;
using fake::Libc;

extern "C" {

void* __wrap_malloc(std::size_t size)
{
    return answer(&Libc::malloc, size);
}

void* __wrap_calloc(std::size_t number, std::size_t size)
{
    return answer(&Libc::calloc, number, size);
}

void __wrap_free(void* block)
{
    answer(&Libc::free, block);
}

char* __wrap_getenv(const char* name)
{
    return answer(&Libc::getenv, name);
}

int __wrap_open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return answer(&Libc::open64, path, flags, mode);
}

int __wrap_ioctl(int descriptor, unsigned long number, ...)
{
    va_list arguments;
    va_start(arguments, number);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    return answer(&Libc::ioctl, descriptor, number, argument);
}

int __wrap_close(int descriptor)
{
    return answer(&Libc::close, descriptor);
}

int __wrap_inet_pton(int family, const char* text, void* address)
{
    return answer(&Libc::inet_pton, family, text, address);
}

} // extern "C"
