#include "emulator/supervisor/program.h"

#include "emulator/supervisor/failure.h"

#include <csignal>
#include <fmt/core.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace emulator {

Program::Program(Group group, Handed handed, const std::function<int()>& run) : group_(group), link_(Descriptor())
{
    auto [here, there] = Link::pair();
    number_ = fork();
    if (number_ < 0)
        fail("cannot start a process");
    if (number_ == 0) {
        here.close();
        become(handed, there, run);
    }
    there.close();
    if (auto message = here.receive())
        listener_ = std::move(message->passed);
    link_ = std::move(here);
}

void Program::become(Handed handed, const Link& parent, const std::function<int()>& run) const
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (group_ == Group::Own && setpgid(0, 0) == 0)
        give_terminal_to(getpid());
    try {
        const Descriptor listener = enter_filter(handed);
        parent.pass(Word::Listener, listener.number());
        if (!parent.receive())
            _exit(emulator_failed);
    } catch (const std::exception& error) {
        fmt::print(stderr, "lumozeph-emulator: {}\n", error.what());
        _exit(emulator_failed);
    }
    _exit(run());
}

void Program::heed(const Message& message) const
{
    if (message.word == Word::Terminal)
        give_terminal_to(number_);
    else
        kill(message.number == SIGCONT && group_ == Group::Own ? -number_ : number_, message.number);
}

Message tell(int status)
{
    if (WIFSTOPPED(status))
        return {Word::Stopped, WSTOPSIG(status), {}, {}};
    if (WIFSIGNALED(status))
        return {Word::Killed, WTERMSIG(status), {}, {}};
    return {Word::Exited, WEXITSTATUS(status), {}, {}};
}

} // namespace emulator
