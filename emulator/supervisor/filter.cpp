#include "emulator/supervisor/filter.h"

#include "emulator/protocol/commands.h"
#include "emulator/supervisor/failure.h"

#include <array>
#include <bit>
#include <cerrno>
#include <fcntl.h>
#include <initializer_list>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <seccomp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace emulator {

namespace {

#ifndef SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV
#define SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV (1UL << 5)
#endif

#if defined(__x86_64__)
constexpr std::array<std::uint32_t, 2> other_architectures {SCMP_ARCH_X86, SCMP_ARCH_X32};
#elif defined(__aarch64__)
constexpr std::array<std::uint32_t, 1> other_architectures {SCMP_ARCH_ARM};
#else
#error "the emulator knows x86-64 and AArch64"
#endif

// From when on the library, and the kernel that it has tried, know notifications: seccomp_api_get(3).
constexpr unsigned int level_of_notification = 5;

class Filter
{
public:
    explicit Filter(Handed handed) : context_(seccomp_init(SCMP_ACT_ALLOW))
    {
        if (context_ == nullptr)
            fail("cannot make a filter");
        if (handed == Handed::CommandsAndOpensForWriting)
            for (const scmp_datum_t access : std::initializer_list<scmp_datum_t> {O_WRONLY, O_RDWR, O_ACCMODE})
                add_opens({0, SCMP_CMP_MASKED_EQ, O_ACCMODE, access});
        if (handed == Handed::CommandsAndOpens)
            add_opens({0, SCMP_CMP_MASKED_EQ, 0, 0});
        if (handed != Handed::Commands)
            // Its flags are in memory.
            require(seccomp_rule_add(context_, SCMP_ACT_NOTIFY, SCMP_SYS(openat2), 0));
        // What is added from here on holds for the machine's other architectures, too: no program must get the kernel's
        // answer to a command.
        for (const std::uint32_t other : other_architectures)
            require(seccomp_arch_add(context_, other));
        add_commands();
    }
    ~Filter() { seccomp_release(context_); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    std::vector<sock_filter> program() const
    {
        // A file could not be written where files may have no size. The program fits into any pipe.
        std::array<int, 2> ends {};
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            fail("cannot make a pipe");
        const Descriptor out(ends[0]);
        {
            const Descriptor in(ends[1]);
            require(seccomp_export_bpf(context_, in.number()));
        }
        std::vector<sock_filter> program;
        sock_filter instruction {};
        while (read(out.number(), &instruction, sizeof instruction) == sizeof instruction)
            program.push_back(instruction);
        return program;
    }

private:
    static void require(int error)
    {
        if (error == 0)
            return;
        errno = -error;
        fail("cannot make a filter");
    }

    void add(const scmp_arg_cmp& argument, int call)
    {
        require(seccomp_rule_add_array(context_, SCMP_ACT_NOTIFY, call, 1, &argument));
    }

    // The kernel looks at the lower half of a request alone, and so must the filter, which does that by a mask only.
    void add_commands()
    {
        constexpr scmp_datum_t lower_half = 0xffffffff;
        constexpr scmp_datum_t end = protocol::last_command + 1;
        for (scmp_datum_t first = 0, count = 0; first < end; first += count) {
            count = std::bit_floor(end - first);
            add({1, SCMP_CMP_MASKED_EQ, lower_half & ~(count - 1), first}, SCMP_SYS(ioctl));
        }
    }

    // flags: what they must be.
    void add_opens(scmp_arg_cmp flags)
    {
        flags.arg = 2;
        add(flags, SCMP_SYS(openat));
#ifdef SYS_open
        flags.arg = 1;
        add(flags, SCMP_SYS(open));
#endif
    }

    scmp_filter_ctx context_;
};

int install(const std::vector<sock_filter>& program, unsigned long flags)
{
    const sock_fprog loaded {static_cast<unsigned short>(program.size()), const_cast<sock_filter*>(program.data())};
    return static_cast<int>(syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, flags, &loaded));
}

// The library's own way to load a filter has no flag for waiting killably.
int install(const std::vector<sock_filter>& program)
{
    // A command is answered once: a signal that is not deadly waits until it is. Kernels before 5.19 cannot do that.
    const unsigned long killable = SECCOMP_FILTER_FLAG_NEW_LISTENER | SECCOMP_FILTER_FLAG_WAIT_KILLABLE_RECV;
    const int listener = install(program, killable);
    return listener < 0 && errno == EINVAL ? install(program, SECCOMP_FILTER_FLAG_NEW_LISTENER) : listener;
}

} // namespace

std::vector<sock_filter> filter_for(Handed handed)
{
    return Filter(handed).program();
}

Descriptor enter_filter(Handed handed)
{
    if (seccomp_api_get() < level_of_notification)
        throw std::runtime_error("the kernel has no seccomp user notification");
    const std::vector<sock_filter> program = filter_for(handed);
    Descriptor listener(install(program));
    // Who may not do without can still do it by giving up set-user-ID programs.
    if (!listener && errno == EACCES && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0)
        listener = Descriptor(install(program));
    if (!listener && errno == EBUSY)
        throw std::runtime_error("cannot run inside another emulated world, or under another program with a seccomp "
                                 "listener");
    if (!listener && (errno == EINVAL || errno == ENOSYS))
        fail("the kernel has no seccomp user notification");
    if (!listener)
        fail("cannot listen to a filter");
    return listener;
}

} // namespace emulator
