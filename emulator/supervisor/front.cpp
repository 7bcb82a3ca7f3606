#include "emulator/supervisor/front.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <poll.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace emulator {

Signals heard_by_front()
{
    return Signals {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGCONT};
}

void work_until_end(const Link& link, const std::function<void(const Link&)>& work)
{
    try {
        work(link);
    } catch (const std::exception& error) {
        link.send(Word::Failed, 0, error.what());
    }
    // Threads may still be waiting for memory that never comes.
    _exit(0);
}

Front::Front(pid_t worker, Link link, Group group, const Foreground& foreground)
    : worker_(worker), link_(std::move(link)), group_(group), foreground_(foreground)
{
    const auto answer = link_.receive();
    if (answer && answer->word == Word::Ready)
        return;
    end();
    throw std::runtime_error(answer ? answer->text : "the supervisor was killed");
}

Ending Front::wait(const Signals& signals)
{
    std::optional<Ending> ending;
    for (bool there = true; there;) {
        std::array<pollfd, 2> events {{{link_.descriptor(), POLLIN, 0}, {signals.descriptor(), POLLIN, 0}}};
        if (poll(events.data(), events.size(), -1) < 0)
            continue;
        if (events[0].revents != 0)
            there = hear(ending);
        if (events[1].revents != 0)
            while (const auto signal = signals.next())
                pass_on(*signal);
    }
    end();
    if (!ending)
        throw std::runtime_error("the supervisor was killed");
    foreground_.take();
    // Whoever waits in the process group that had the terminal would have been interrupted, too.
    if (group_ == Group::Own && (ending->signal == SIGINT || ending->signal == SIGQUIT))
        kill(0, ending->signal);
    return *ending;
}

void Front::pass_on(const signalfd_siginfo& signal)
{
    const int number = static_cast<int>(signal.ssi_signo);
    if (number == SIGCONT && group_ == Group::Own && has_terminal())
        link_.send(Word::Terminal);
    // What is sent to the whole process group by the terminal, or by a shell that continues it, has been heard by all
    // who are in it.
    if (number == SIGCONT ? group_ == Group::Own || stopped_ : signal.ssi_code != SI_KERNEL)
        link_.send(Word::Signal, number);
    if (number == SIGCONT)
        stopped_ = false;
}

// Whoever started the emulator waits for it, not for the program.
void Front::stop_by(int signal)
{
    if (group_ == Group::Own) {
        foreground_.take();
        kill(signal == SIGSTOP ? getpid() : 0, signal);
    } else if (signal == SIGSTOP) {
        stopped_ = true;
        raise(SIGSTOP);
    }
}

// False when there is nothing more to hear.
bool Front::hear(std::optional<Ending>& ending)
{
    const auto message = link_.receive();
    if (!message)
        return false;
    switch (message->word) {
    case Word::Stopped:
        stop_by(message->number);
        break;
    case Word::Exited:
        ending = Ending {message->number, 0};
        break;
    case Word::Killed:
        ending = Ending {0, message->number};
        break;
    default:
        end();
        throw std::runtime_error(message->text);
    }
    return true;
}

// Whoever is left when the supervisor was killed has become a child of the caller, or the kernel has ended them.
void Front::end()
{
    link_.close();
    while (waitpid(worker_, nullptr, 0) < 0 && errno == EINTR)
        continue;
    descendants_.kill();
}

} // namespace emulator
