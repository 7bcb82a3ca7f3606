#include "emulator/supervisor/filter.h"

#include "emulator/protocol/commands.h"

#include <cerrno>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace emulator {

namespace {

#ifndef SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV
#define SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV (1UL << 5)
#endif

class Filter
{
public:
    Filter() : context_(seccomp_init(SCMP_ACT_ALLOW)) {}
    ~Filter() { seccomp_release(context_); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    // 0 or a negative errno.
    int add_rules()
    {
        if (context_ == nullptr)
            return -ENOMEM;
        // A program of another architecture runs as it would without the emulator.
        if (const int error = seccomp_attr_set(context_, SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_ALLOW); error != 0)
            return error;
        for (const int opening : {SCMP_SYS(open), SCMP_SYS(openat), SCMP_SYS(openat2)})
            if (const int error = seccomp_rule_add(context_, SCMP_ACT_NOTIFY, opening, 0); error != 0)
                return error;
        const scmp_arg_cmp number {1, SCMP_CMP_LE, protocol::last_command, 0};
        return seccomp_rule_add_array(context_, SCMP_ACT_NOTIFY, SCMP_SYS(ioctl), 1, &number);
    }

    int write_to(int descriptor) const { return seccomp_export_bpf(context_, descriptor); }

private:
    scmp_filter_ctx context_;
};

int failed(int error)
{
    errno = error;
    return -1;
}

// The library's own way to load a filter has no flag for waiting killably.
int load(std::vector<sock_filter>& program)
{
    sock_fprog loaded {static_cast<unsigned short>(program.size()), program.data()};
    // A command is answered once: a signal that is not deadly waits until it is. Kernels before 5.19 cannot do that.
    const unsigned long killable = SECCOMP_FILTER_FLAG_NEW_LISTENER | SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV;
    const auto listener = syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, killable, &loaded);
    if (listener >= 0 || errno != EINVAL)
        return static_cast<int>(listener);
    return static_cast<int>(syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &loaded));
}

} // namespace

int enter_filter()
{
    Filter filter;
    if (const int error = filter.add_rules(); error != 0)
        return failed(-error);
    const int file = memfd_create("filter", MFD_CLOEXEC);
    if (file < 0)
        return -1;
    struct stat written
    {};
    const int error = filter.write_to(file);
    if (error != 0 || fstat(file, &written) != 0) {
        close(file);
        return failed(error != 0 ? -error : EIO);
    }
    std::vector<sock_filter> program(static_cast<std::size_t>(written.st_size) / sizeof(sock_filter));
    const ssize_t length = pread(file, program.data(), program.size() * sizeof(sock_filter), 0);
    close(file);
    if (length != written.st_size)
        return failed(EIO);
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return -1;
    return load(program);
}

} // namespace emulator
