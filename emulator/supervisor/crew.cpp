#include "emulator/supervisor/crew.h"

#include "emulator/supervisor/failure.h"

#include <cerrno>
#include <chrono>
#include <poll.h>
#include <system_error>
#include <thread>
#include <utility>

namespace emulator {

namespace {

// How long a call may keep others waiting; the model itself answers most commands in a hundredth of it.
constexpr std::chrono::milliseconds patience {1};
// How often the watch finds nothing to do before it lies down.
constexpr int quiet_looks = 50;
constexpr int spare_threads = 4;

// False, with errno, if there can be no more threads.
template <typename Work>
bool start(Work work)
{
    try {
        std::thread(std::move(work)).detach();
    } catch (const std::system_error& refusal) {
        errno = refusal.code().value();
        return false;
    }
    return true;
}

} // namespace

void Crew::serve(SharedModule& module, const Device& device, Descriptor listener)
{
    const std::shared_ptr<Crew> crew(new Crew(module, device, std::move(listener)));
    if (!crew->add_thread() || !start([crew] { crew->watch(); }))
        fail("cannot start a thread");
}

Crew::Crew(SharedModule& module, const Device& device, Descriptor listener)
    : module_(module), device_(device), listener_(std::move(listener))
{
    prepare(listener_.number());
}

bool Crew::add_thread()
{
    return start([crew = shared_from_this()] { crew->work(); });
}

void Crew::work()
{
    Server server(module_, device_, listener_.number());
    std::unique_lock lock(mutex_);
    while (!over_ && idle_ < spare_threads) {
        wait_for_turn(lock);
        taken_ = true;
        const std::uint64_t turn = ++turn_;
        while (turn == turn_ && !over_) {
            lock.unlock();
            const bool received = server.receive();
            lock.lock();
            if (!received) {
                over_ = everybody_has_left();
                continue;
            }
            ++calls_;
            answering_ = true;
            if (!watched_)
                received_.notify_one();
            lock.unlock();
            server.answer();
            lock.lock();
            if (turn == turn_)
                answering_ = false;
        }
    }
    vacant_.notify_all();
    received_.notify_all();
}

void Crew::wait_for_turn(std::unique_lock<std::mutex>& lock)
{
    ++idle_;
    vacant_.wait(lock, [this] { return !taken_ || over_; });
    --idle_;
}

bool Crew::everybody_has_left() const
{
    pollfd listener {listener_.number(), 0, 0};
    return poll(&listener, 1, 0) > 0 && (listener.revents & (POLLHUP | POLLERR)) != 0;
}

void Crew::watch()
{
    std::unique_lock lock(mutex_);
    std::uint64_t seen = 0;
    for (int quiet = 0; !over_; ++quiet) {
        if (quiet == quiet_looks) {
            watched_ = false;
            received_.wait(lock, [this, seen] { return calls_ != seen || over_; });
            watched_ = true;
        }
        if (calls_ != seen)
            quiet = 0;
        else if (answering_)
            relieve();
        seen = calls_;
        lock.unlock();
        std::this_thread::sleep_for(patience);
        lock.lock();
    }
}

void Crew::relieve()
{
    ++turn_;
    taken_ = false;
    answering_ = false;
    if (idle_ > 0)
        vacant_.notify_one();
    else
        add_thread(); // Without it, the others wait until the slow call has been answered.
}

} // namespace emulator
