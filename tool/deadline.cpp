#include "tool/deadline.h"

#include "tool/mistakes.h"

#include <cmath>
#include <csignal>
#include <sys/time.h>
#include <unistd.h>

namespace tool {
namespace {

std::string* last_words;

extern "C" void end_now(int /*signal*/)
{
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, last_words->data(), last_words->size());
    _exit(failed);
}

} // namespace

void end_after(std::chrono::duration<double> time, std::string message)
{
    static std::string kept;
    kept = std::move(message);
    last_words = &kept;
    struct sigaction action
    {};
    action.sa_handler = end_now;
    sigaction(SIGALRM, &action, nullptr);
    const double whole = std::floor(time.count());
    itimerval timer {};
    timer.it_value.tv_sec = static_cast<time_t>(whole);
    timer.it_value.tv_usec = static_cast<suseconds_t>(std::ceil((time.count() - whole) * 1e6));
    setitimer(ITIMER_REAL, &timer, nullptr);
}

void end_no_more()
{
    const itimerval never {};
    setitimer(ITIMER_REAL, &never, nullptr);
}

} // namespace tool
