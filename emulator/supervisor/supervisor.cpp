#include "emulator/supervisor/supervisor.h"

#include "emulator/supervisor/crew.h"
#include "emulator/supervisor/failure.h"
#include "emulator/supervisor/signals.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <fmt/core.h>
#include <limits>
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
    const Signals signals {SIGCHLD, SIGPIPE};
    start(program);
    // What the terminal sends is not for the supervisor, whose process group the program was started in.
    setpgid(0, 0);
    if (premises_.lifetime.timeout)
        timeout_ = Clock::now() + *premises_.lifetime.timeout;
    while (!(end_ && deserted_)) {
        std::array<pollfd, 2> events {{{link_.descriptor(), POLLIN, 0}, {signals.descriptor(), POLLIN, 0}}};
        if (poll(events.data(), events.size(), until_next_deadline()) < 0)
            continue;
        if (events[0].revents != 0)
            hear_link();
        if (events[1].revents != 0) {
            while (signals.next())
                continue;
            reap();
        }
        look_at_clock();
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
    if (premises_.group == Group::Own && setpgid(0, 0) == 0)
        give_terminal_to(getpid());
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
    if (!message) {
        // Whoever started the world has gone.
        end_by(Word::Killed, SIGKILL);
        kill();
    } else if (!end_) {
        heed(*message);
    } else if (!killing_) {
        ask_to_end();
    } else {
        kill();
    }
}

void Supervisor::heed(const Message& message)
{
    if (message.word == Word::Terminal)
        give_terminal_to(program_);
    else
        ::kill(message.number == SIGCONT && premises_.group == Group::Own ? -program_ : program_, message.number);
}

void Supervisor::reap()
{
    int status = 0;
    pid_t child = 0;
    while ((child = waitpid(-1, &status, WNOHANG | WUNTRACED)) > 0) {
        if (child != program_)
            continue;
        if (WIFSTOPPED(status)) {
            link_.send(Word::Stopped, WSTOPSIG(status));
        } else if (WIFSIGNALED(status)) {
            end_by(Word::Killed, WTERMSIG(status));
        } else {
            end_by(Word::Exited, WEXITSTATUS(status));
        }
    }
    if (child < 0 && errno == ECHILD)
        deserted_ = true;
    else if (end_ && !killing_ && premises_.lifetime.leftovers == Leftovers::End)
        ask_to_end();
}

void Supervisor::end_by(Word word, int number)
{
    if (!end_)
        end_ = Message {word, number, {}, {}};
}

void Supervisor::ask_to_end()
{
    premises_.inhabitants.signal(SIGTERM);
    premises_.inhabitants.signal(SIGCONT);
    killing_ = Clock::now() + premises_.lifetime.grace;
}

void Supervisor::kill()
{
    premises_.inhabitants.kill();
    deserted_ = true;
}

void Supervisor::look_at_clock()
{
    const auto now = Clock::now();
    if (timeout_ && now >= *timeout_) {
        timeout_.reset();
        end_by(Word::Exited, timed_out);
        if (!killing_)
            ask_to_end();
    }
    if (killing_ && now >= *killing_)
        kill();
}

int Supervisor::until_next_deadline() const
{
    if (!timeout_ && !killing_)
        return -1;
    const auto next =
        std::min(timeout_.value_or(Clock::time_point::max()), killing_.value_or(Clock::time_point::max()));
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, std::numeric_limits<int>::max()));
}

} // namespace emulator
