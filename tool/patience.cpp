#include "tool/patience.h"

#include "tool/waiting.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

// As good as never, and still a time that clocks know.
constexpr std::chrono::duration<double> longest {1e9};
// A signal that ends a watch does not wake who waits for an answer.
constexpr std::chrono::milliseconds look {20};
constexpr unsigned most_given_up = 16;

std::optional<std::chrono::duration<double>> time_for_a_call;
std::atomic<unsigned> given_up {0};

// A call in a thread of its own. There is no other way out of one that hangs: a signal does not end it, a thread is left.
struct Attempt
{
    explicit Attempt(std::function<int()> what) : call(std::move(what)) {}

    std::function<int()> call;
    std::mutex mutex;
    std::condition_variable answered;
    std::optional<Called> answer;
    bool is_given_up = false;
};

Called call_here(const std::function<int()>& call)
{
    errno = 0;
    const int result = call();
    return {result, errno};
}

void carry_out(Attempt& attempt)
{
    const Called called = call_here(attempt.call);
    const std::lock_guard lock(attempt.mutex);
    attempt.answer = called;
    if (attempt.is_given_up)
        --given_up;
    attempt.answered.notify_one();
}

void start(const std::shared_ptr<Attempt>& attempt)
{
    // Signals are for the thread that can take them.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread([attempt] { carry_out(*attempt); }).detach();
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace

Patience::Patience(std::chrono::duration<double> time)
{
    time_for_a_call = std::min(time, longest);
}

Patience::~Patience()
{
    time_for_a_call.reset();
}

std::chrono::duration<double> Patience::time()
{
    return time_for_a_call.value_or(longest);
}

bool can_make_calls()
{
    return given_up < most_given_up;
}

std::optional<Called> make_call(std::function<int()> call)
{
    if (!time_for_a_call && !Waiting::is_there())
        return call_here(call);
    if (!can_make_calls())
        return std::nullopt;
    const auto attempt = std::make_shared<Attempt>(std::move(call));
    const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(Patience::time());
    start(attempt);
    std::unique_lock lock(attempt->mutex);
    while (!attempt->answer && Clock::now() < end && !Waiting::is_ended())
        attempt->answered.wait_until(lock, std::min<Clock::time_point>(end, Clock::now() + look));
    if (!attempt->answer) {
        attempt->is_given_up = true;
        ++given_up;
    }
    return attempt->answer;
}

unsigned calls_given_up()
{
    return given_up;
}

} // namespace tool
