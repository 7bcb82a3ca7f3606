#include "emulator/supervisor/supervisor.h"

#include "emulator/supervisor/crew.h"
#include "emulator/supervisor/signals.h"
#include "emulator/supervisor/world_state.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <limits>
#include <poll.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace emulator {

void Supervisor::run(Group group, const std::function<int()>& program)
{
    // Before there are threads, which would hear them instead.
    const Signals signals {SIGCHLD, SIGPIPE, SIGXFSZ};
    program_.emplace(group, premises_.handed, program);
    // What the terminal sends is not for the supervisor, whose process group the program was started in.
    setpgid(0, 0);
    if (Descriptor listener = program_->take_listener())
        Crew::serve(module_, premises_.device, std::move(listener));
    program_->start();
    loop(signals);
}

void Supervisor::serve()
{
    const Signals signals {SIGCHLD, SIGPIPE, SIGXFSZ};
    setpgid(0, 0);
    loop(signals);
}

void Supervisor::loop(const Signals& signals)
{
    if (lifetime_.timeout)
        timeout_ = Clock::now() + *lifetime_.timeout;
    while (!end_ || !(deserted_ || killed_)) {
        std::vector<pollfd> events {{link_.descriptor(), POLLIN, 0}, {signals.descriptor(), POLLIN, 0},
            {control_ == nullptr ? -1 : control_->listener(), POLLIN, 0}};
        for (const Visitor& visitor : visitors_)
            events.push_back({visitor.link.descriptor(), POLLIN, 0});
        if (poll(events.data(), events.size(), until_next_deadline()) < 0)
            continue;
        if (events[0].revents != 0)
            hear_link();
        while (signals.next())
            continue;
        auto event = events.begin() + 3;
        for (Visitor& visitor : visitors_)
            if ((event++)->revents != 0)
                hear(visitor);
        visitors_.remove_if([](const Visitor& visitor) { return visitor.has_left; });
        if (events[2].revents != 0)
            admit();
        look_around();
        look_at_clock();
    }
    link_.send(end_->word, end_->number);
}

void Supervisor::hear_link()
{
    const auto message = link_.receive();
    if (!message) {
        // Whoever started the world has gone.
        end_by({Word::Killed, SIGKILL, {}, {}});
        kill();
    } else if (program_ && !end_) {
        program_->heed(*message);
    } else if (message->number != SIGCONT) {
        end_by({Word::Exited, 0, {}, {}});
        killing_ ? kill() : ask_to_end();
    }
}

void Supervisor::admit()
{
    Descriptor socket(accept4(control_->listener(), nullptr, nullptr, SOCK_CLOEXEC));
    if (!socket)
        return;
    Link link(std::move(socket));
    if (is_same_user(link))
        visitors_.push_back({std::move(link)});
}

void Supervisor::hear(Visitor& visitor)
{
    auto message = visitor.link.receive();
    visitor.has_left = !message;
    if (!message)
        return;
    if (is_about_module(message->word)) {
        answer_about_module(module_, *message, visitor.link);
        return;
    }
    switch (message->word) {
    case Word::Join:
        let_join(visitor.link);
        break;
    case Word::Listener:
        try {
            Crew::serve(module_, premises_.device, std::move(message->passed));
            visitor.has_joined = true;
        } catch (const std::exception& refusal) {
            // The guest, who is waited for by nobody, ends.
            visitor.has_left = true;
        }
        break;
    case Word::Describe:
        visitor.link.send(Word::Ready, 0, premises_.description);
        break;
    case Word::Stop:
        if (!program_)
            end_by({Word::Exited, 0, {}, {}});
        if (!killing_)
            ask_to_end();
        break;
    default:
        visitor.has_left = true;
    }
}

void Supervisor::let_join(const Link& link) const
{
    if (killing_) {
        link.send(Word::Failed, 0, "the world is about to end");
        return;
    }
    const Descriptor self(static_cast<int>(syscall(SYS_pidfd_open, getpid(), 0)));
    if (!self) {
        link.send(Word::Failed, 0, "the world has no descriptor left");
        return;
    }
    link.send(Word::Handed, static_cast<int>(premises_.handed));
    link.pass(Word::Ready, self.number(), premises_.namespaces);
}

void Supervisor::look_around()
{
    int status = 0;
    pid_t child = 0;
    while ((child = waitpid(-1, &status, WNOHANG | WUNTRACED)) > 0) {
        if (!program_ || child != program_->number())
            continue;
        if (Message news = tell(status); news.word == Word::Stopped)
            link_.send(news.word, news.number);
        else
            end_by(std::move(news));
    }
    const auto has_joined = [](const Visitor& visitor) { return visitor.has_joined; };
    deserted_ = child < 0 && errno == ECHILD && std::none_of(visitors_.begin(), visitors_.end(), has_joined);
    if (!deserted_ && end_ && !killing_ && lifetime_.leftovers == Leftovers::End)
        ask_to_end();
}

void Supervisor::end_by(Message end)
{
    if (!end_)
        end_ = std::move(end);
}

void Supervisor::ask_to_end()
{
    premises_.inhabitants.signal(SIGTERM);
    premises_.inhabitants.signal(SIGCONT);
    killing_ = Clock::now() + lifetime_.grace;
}

void Supervisor::kill()
{
    premises_.inhabitants.kill();
    end_by({Word::Killed, SIGKILL, {}, {}});
    killed_ = true;
}

void Supervisor::look_at_clock()
{
    const auto now = Clock::now();
    if (timeout_ && now >= *timeout_) {
        timeout_.reset();
        end_by({Word::Exited, timed_out, {}, {}});
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
