// A small call is three system calls: open, ioctl, close.
// usage: system_calls PROBE KIND EXPECTED
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// How many system calls the probe issues, from its start to its end. Negative if it cannot be told.
long system_calls_of(const char* probe, const char* kind, int calls)
{
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        execl(probe, probe, kind, std::to_string(calls).c_str(), nullptr);
        _exit(127);
    }
    long stops = 0;
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
        return -1;
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) == 0 && waitpid(child, &status, 0) == child) {
        if (WIFEXITED(status))
            return WEXITSTATUS(status) == 0 ? stops / 2 : -1;
        if (WIFSTOPPED(status) && WSTOPSIG(status) == (SIGTRAP | 0x80))
            ++stops;
    }
    return -1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    constexpr int calls = 100;
    // The first calls also let the heap grow.
    const long first = system_calls_of(argv[1], argv[2], calls);
    const long all = system_calls_of(argv[1], argv[2], 2 * calls);
    if (first < 0 || all < 0) {
        std::fprintf(stderr, "the probe could not be traced, or failed\n");
        return 1;
    }
    std::printf("%s: %ld system calls for %d calls\n", argv[2], all - first, calls);
    return all - first == calls * std::atol(argv[3]) ? 0 : 1;
}
