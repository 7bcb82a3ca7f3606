// The library's calls of libc, in a program whose linker lets them arrive here (the target lumozeph_interposer).
// Without the C++ run-time library, which one of these programs must not have.
#pragma once

#include <cstddef>
#include <sys/types.h>

namespace fake {

// What becomes of a call. What is not overridden goes on to libc. While one of these functions runs, the calls that it
// makes itself go to libc, too.
class Libc
{
public:
    Libc() = default;
    Libc(const Libc&) = delete;
    Libc& operator=(const Libc&) = delete;

    virtual void* malloc(std::size_t size);
    virtual void* calloc(std::size_t count, std::size_t size);
    virtual void free(void* block);
    virtual char* getenv(const char* name);
    virtual int open64(const char* path, int flags, mode_t mode);
    virtual int ioctl(int descriptor, unsigned long number, void* argument);
    virtual int close(int descriptor);
    virtual int inet_pton(int family, const char* text, void* address);
};

// Answers the calls of this thread from now on; null: none. Returns what answered them before.
Libc* answer_this_thread(Libc* libc);

// Answers those of every thread that has nothing else.
void answer_every_thread(Libc* libc);

} // namespace fake
