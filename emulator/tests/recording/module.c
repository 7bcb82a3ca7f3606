/*
 * Preloaded behind the recorder: plays a host that has the module, of which it knows the level of its log alone.
 */
#define _GNU_SOURCE
#include "../device.h"

#include <errno.h>
#include <fcntl.h>
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

static int device = -1;
static uint32_t level = 4;

int open(const char* path, int flags, ...)
{
    if (strcmp(path, NORMAL) == 0)
        return device = memfd_create("device", MFD_CLOEXEC);
    va_list rest;
    va_start(rest, flags);
    const int mode = va_arg(rest, int);
    va_end(rest);
    return (int)syscall(SYS_openat, AT_FDCWD, path, flags, mode);
}

ssize_t readlink(const char* path, char* target, size_t room)
{
    char link[32];
    snprintf(link, sizeof link, "/proc/self/fd/%d", device);
    if (device < 0 || strcmp(path, link) != 0)
        return syscall(SYS_readlinkat, AT_FDCWD, path, target, room);
    const size_t length = sizeof NORMAL - 1 < room ? sizeof NORMAL - 1 : room;
    memcpy(target, NORMAL, length);
    return (ssize_t)length;
}

int ioctl(int descriptor, unsigned long number, ...)
{
    va_list rest;
    va_start(rest, number);
    struct envelope* const envelope = va_arg(rest, struct envelope*);
    va_end(rest);
    if (descriptor != device || (number != 9 && number != 10)) {
        errno = ENOTTY;
        return -1;
    }
    if (number == 10) {
        memcpy(&level, envelope->in, sizeof level);
    } else {
        memcpy(envelope->out, &level, sizeof level);
        envelope->out_len = sizeof level;
    }
    return 0;
}
