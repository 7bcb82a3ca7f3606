#include "emulator/supervisor/supervisor.h"

#include "emulator/supervisor/crew.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/signals.h"

#include <array>
#include <csignal>
#include <fmt/core.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>

namespace emulator {

namespace {

constexpr int emulator_failed = 125;

} // namespace

void Supervisor::run(const std::function<int()>& program)
{
    // Before there are threads, which would hear them instead.
    const Signals signals {SIGCHLD};
    start(program);
    // What the terminal sends is not for the supervisor, whose process group the program was started in.
    setpgid(0, 0);
    while (!(end_ && deserted_)) {
        std::array<pollfd, 2> events {{{link_.descriptor(), POLLIN, 0}, {signals.descriptor(), POLLIN, 0}}};
        if (poll(events.data(), events.size(), -1) < 0)
            continue;
        if (events[0].revents != 0)
            hear_link();
        if (events[1].revents != 0) {
            while (signals.next())
                continue;
            reap();
        }
    }
    link_.send(end_->word, end_->number);
}

void Supervisor::start(const std::function<int()>& program)
{
    auto [here, there] = Link::pair();
    program_ = fork();
    if (program_ < 0)
        fail("cannot start a process");
    if (program_ == 0)
        become(program, there);
    there.close();
    if (auto message = here.receive())
        Crew::serve(module_, premises_.device, std::move(message->passed));
}

void Supervisor::become(const std::function<int()>& program, const Link& to_supervisor) const
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        const Descriptor listener = enter_filter(premises_.handed);
        to_supervisor.pass(Word::Listener, listener.number());
    } catch (const std::exception& error) {
        fmt::print(stderr, "lumozeph-emulator: {}\n", error.what());
        _exit(emulator_failed);
    }
    _exit(program());
}

void Supervisor::hear_link()
{
    const auto message = link_.receive();
    if (message && !end_) {
        kill(program_, message->number);
        return;
    }
    // Whoever started the world has gone, or asks again.
    premises_.inhabitants.kill();
    deserted_ = true;
    if (!end_)
        end_ = Message {Word::Killed, SIGKILL, {}, {}};
}

void Supervisor::reap()
{
    int status = 0;
    pid_t child = 0;
    while ((child = waitpid(-1, &status, WNOHANG | WUNTRACED)) > 0) {
        if (child != program_)
            continue;
        if (WIFSTOPPED(status)) {
            // The terminal stops the whole process group.
            if (WSTOPSIG(status) == SIGSTOP)
                link_.send(Word::Stopped);
        } else if (WIFSIGNALED(status)) {
            end_ = Message {Word::Killed, WTERMSIG(status), {}, {}};
            premises_.inhabitants.kill();
            deserted_ = true;
        } else {
            end_ = Message {Word::Exited, WEXITSTATUS(status), {}, {}};
        }
    }
    if (child < 0 && errno == ECHILD)
        deserted_ = true;
}

} // namespace emulator
