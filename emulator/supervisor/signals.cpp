#include "emulator/supervisor/signals.h"

#include "emulator/supervisor/failure.h"

namespace emulator {

namespace {

bool is_ignored(int signal)
{
    struct sigaction action
    {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

Signals::Signals(std::initializer_list<int> heard)
{
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : heard)
        if (signal == SIGCHLD || !is_ignored(signal))
            sigaddset(&set, signal);
    descriptor_ = Descriptor(signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!descriptor_)
        fail("cannot hear signals");
    sigprocmask(SIG_BLOCK, &set, &mask_before_);
    // A parent that ignores SIGCHLD would never learn how its children end.
    struct sigaction child
    {};
    child.sa_handler = SIG_DFL;
    sigaction(SIGCHLD, &child, &child_before_);
}

void Signals::restore() const
{
    sigaction(SIGCHLD, &child_before_, nullptr);
    sigprocmask(SIG_SETMASK, &mask_before_, nullptr);
}

std::optional<signalfd_siginfo> Signals::next() const
{
    signalfd_siginfo signal {};
    if (read(descriptor(), &signal, sizeof signal) != sizeof signal)
        return std::nullopt;
    return signal;
}

} // namespace emulator
