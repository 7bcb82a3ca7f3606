// Which system calls the filter hands to the supervisor, on the architecture that the tests are built for.
#include "emulator/supervisor/filter.h"

#include <cstring>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/audit.h>
#include <linux/seccomp.h>
#include <seccomp.h>
#include <sys/syscall.h>

using emulator::Handed;

namespace {

#if defined(__x86_64__)
constexpr std::uint32_t native = AUDIT_ARCH_X86_64;
constexpr std::uint32_t other = AUDIT_ARCH_I386;
constexpr int ioctl_of_other = 54;
#elif defined(__aarch64__)
constexpr std::uint32_t native = AUDIT_ARCH_AARCH64;
constexpr std::uint32_t other = AUDIT_ARCH_ARM;
constexpr int ioctl_of_other = 54;
#endif

// What the kernel does with a call. Knows the instructions that filters are made of.
std::uint32_t verdict(const std::vector<sock_filter>& program, const seccomp_data& call)
{
    std::uint32_t accumulator = 0;
    for (std::size_t at = 0; at < program.size(); ++at) {
        const auto& [code, if_true, if_false, operand] = program[at];
        bool holds = false;
        switch (code) {
        case BPF_LD | BPF_W | BPF_ABS:
            std::memcpy(&accumulator, reinterpret_cast<const char*>(&call) + operand, sizeof accumulator);
            continue;
        case BPF_ALU | BPF_AND | BPF_K:
            accumulator &= operand;
            continue;
        case BPF_RET | BPF_K:
            return operand;
        case BPF_JMP | BPF_JA:
            at += operand;
            continue;
        case BPF_JMP | BPF_JEQ | BPF_K:
            holds = accumulator == operand;
            break;
        case BPF_JMP | BPF_JGT | BPF_K:
            holds = accumulator > operand;
            break;
        case BPF_JMP | BPF_JGE | BPF_K:
            holds = accumulator >= operand;
            break;
        default:
            ADD_FAILURE() << "an instruction that the test does not know: " << code;
            return 0;
        }
        at += holds ? if_true : if_false;
    }
    ADD_FAILURE() << "the program has no end";
    return 0;
}

bool hands_over(Handed handed, const seccomp_data& call)
{
    const std::uint32_t found = verdict(emulator::filter_for(handed), call);
    EXPECT_TRUE(found == SECCOMP_RET_USER_NOTIF || found == SECCOMP_RET_ALLOW) << found;
    return found == SECCOMP_RET_USER_NOTIF;
}

// The library makes the program for the machine that it runs on, which need not have what is asked for.
class Filter : public testing::Test
{
protected:
    static void SetUpTestSuite() { ASSERT_EQ(seccomp_api_set(5), 0); }
};

constexpr Handed all[] {Handed::Commands, Handed::CommandsAndOpensForWriting, Handed::CommandsAndOpens};

seccomp_data ioctl_with(std::uint64_t request)
{
    return {SYS_ioctl, native, 0, {3, request, 0x1000, 0, 0, 0}};
}

seccomp_data openat_with(int flags)
{
    return {SYS_openat, native, 0,
        {static_cast<std::uint32_t>(AT_FDCWD), 0x1000, static_cast<std::uint64_t>(flags), 0, 0, 0}};
}

TEST_F(Filter, HandsOverRequestsThatAreCommands)
{
    for (const Handed handed : all) {
        for (std::uint64_t request = 0; request <= 160; ++request)
            EXPECT_TRUE(hands_over(handed, ioctl_with(request))) << request;
        for (const std::uint64_t request : {161ULL, 192ULL, 255ULL, 256ULL, 0x5401ULL, 0x80000000ULL, 0xffffffffULL})
            EXPECT_FALSE(hands_over(handed, ioctl_with(request))) << request;
    }
}

TEST_F(Filter, LooksAtTheHalfOfARequestThatTheKernelLooksAt)
{
    EXPECT_TRUE(hands_over(Handed::Commands, ioctl_with(0xffffffff00000002)));
    EXPECT_FALSE(hands_over(Handed::Commands, ioctl_with(0x0000000200005401)));
}

TEST_F(Filter, HandsOverCommandsOfOtherArchitectures)
{
    EXPECT_TRUE(hands_over(Handed::Commands, {ioctl_of_other, other, 0, {3, 2, 0x1000, 0, 0, 0}}));
    EXPECT_FALSE(hands_over(Handed::Commands, {ioctl_of_other, other, 0, {3, 0x5401, 0x1000, 0, 0, 0}}));
}

TEST_F(Filter, HandsOverTheOpensThatAreWished)
{
    for (const int flags :
        {O_RDONLY, O_RDONLY | O_CLOEXEC, O_RDONLY | O_DIRECTORY, O_WRONLY, O_RDWR, O_RDWR | O_CLOEXEC}) {
        EXPECT_FALSE(hands_over(Handed::Commands, openat_with(flags))) << flags;
        EXPECT_EQ(hands_over(Handed::CommandsAndOpensForWriting, openat_with(flags)), (flags & O_ACCMODE) != O_RDONLY)
            << flags;
        EXPECT_TRUE(hands_over(Handed::CommandsAndOpens, openat_with(flags))) << flags;
    }
    const seccomp_data openat2 {SYS_openat2, native, 0, {3, 0x1000, 0x1000, 24, 0, 0}};
    EXPECT_FALSE(hands_over(Handed::Commands, openat2));
    EXPECT_TRUE(hands_over(Handed::CommandsAndOpensForWriting, openat2));
    EXPECT_TRUE(hands_over(Handed::CommandsAndOpens, openat2));
#ifdef SYS_open
    const seccomp_data reading {SYS_open, native, 0, {0x1000, O_RDONLY, 0, 0, 0, 0}};
    const seccomp_data writing {SYS_open, native, 0, {0x1000, O_RDWR, 0, 0, 0, 0}};
    EXPECT_FALSE(hands_over(Handed::Commands, writing));
    EXPECT_FALSE(hands_over(Handed::CommandsAndOpensForWriting, reading));
    EXPECT_TRUE(hands_over(Handed::CommandsAndOpensForWriting, writing));
    EXPECT_TRUE(hands_over(Handed::CommandsAndOpens, reading));
#endif
}

TEST_F(Filter, LeavesAllOtherCallsAlone)
{
    for (const Handed handed : all)
        for (const int call : {SYS_read, SYS_write, SYS_close, SYS_execve, SYS_mmap, SYS_fcntl})
            EXPECT_FALSE(hands_over(handed, {call, native, 0, {3, 2, 2, 2, 0, 0}})) << call;
}

} // namespace
