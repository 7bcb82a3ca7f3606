#include "tool/waiting.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

volatile std::sig_atomic_t has_come = 0;
std::optional<Clock::time_point> end_of_all;

extern "C" void note(int /*signal*/)
{
    has_come = 1;
}

timespec rest_until(Clock::time_point time)
{
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(time - Clock::now());
    const auto count = rest.count() > 0 ? rest.count() : 0;
    constexpr auto second = std::chrono::nanoseconds(std::chrono::seconds(1)).count();
    return {count / second, count % second};
}

} // namespace

Waiting::Waiting(Clock::time_point end)
{
    end_of_all = end;
    struct sigaction action
    {};
    action.sa_handler = note;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    action.sa_flags = 0;
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

Waiting::~Waiting()
{
    end_of_all.reset();
}

bool Waiting::is_there()
{
    return end_of_all.has_value();
}

bool Waiting::is_ended()
{
    return has_come != 0 || (end_of_all && Clock::now() >= *end_of_all);
}

bool Waiting::until(Clock::time_point time)
{
    const Clock::time_point next = std::min(time, end_of_all.value_or(time));
    // A signal that comes after the flag was looked at must end the poll.
    sigset_t signals;
    sigset_t before;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, &before);
    bool goes_on = true;
    while (goes_on) {
        const timespec rest = rest_until(next);
        pollfd reader {STDOUT_FILENO, 0, 0};
        goes_on = has_come == 0;
        if (!goes_on)
            break;
        const int polled = ppoll(&reader, 1, &rest, &before);
        if (polled == 0)
            break;
        goes_on = polled < 0 && errno == EINTR;
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return goes_on && !is_ended();
}

} // namespace tool
