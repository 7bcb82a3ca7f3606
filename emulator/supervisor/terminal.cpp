#include "emulator/supervisor/terminal.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace emulator {

namespace {

Descriptor terminal()
{
    return Descriptor(open("/dev/tty", O_RDWR | O_CLOEXEC));
}

} // namespace

bool has_terminal()
{
    const Descriptor opened = terminal();
    return opened && tcgetpgrp(opened.number()) == getpgrp();
}

void give_terminal_to(pid_t group)
{
    const Descriptor opened = terminal();
    if (!opened)
        return;
    // The terminal stops whoever does this from the background.
    sigset_t stopping;
    sigset_t before;
    sigemptyset(&stopping);
    sigaddset(&stopping, SIGTTOU);
    sigprocmask(SIG_BLOCK, &stopping, &before);
    tcsetpgrp(opened.number(), group);
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

Foreground::Foreground() : was_here_(has_terminal()) {}

bool Foreground::is_alone() const
{
    return was_here_ && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
}

void Foreground::take() const
{
    if (was_here_ && !has_terminal())
        give_terminal_to(getpgrp());
}

} // namespace emulator
