// Lets one thread in at a time.
#pragma once

#include <csignal>
#include <mutex>

namespace emulator {

class Gate
{
public:
    // Passes through the gate, unless this thread is inside already: a watcher, or the handler of a signal that came
    // while the thread was inside. They must not wait for themselves.
    class Passage
    {
    public:
        explicit Passage(Gate& gate) : gate_(inside ? nullptr : &gate)
        {
            if (gate_ == nullptr)
                return;
            inside = 1;
            gate_->mutex_.lock();
        }
        ~Passage()
        {
            if (gate_ == nullptr)
                return;
            gate_->mutex_.unlock();
            inside = 0;
        }
        Passage(const Passage&) = delete;
        Passage& operator=(const Passage&) = delete;

        bool refused() const { return gate_ == nullptr; }

    private:
        Gate* gate_;
    };

    // Around a fork, so that the child finds everything whole, and the gate open.
    void close_for_fork()
    {
        if (!inside)
            mutex_.lock();
    }
    void open_after_fork()
    {
        if (!inside)
            mutex_.unlock();
    }

private:
    [[gnu::tls_model("initial-exec")]] static inline constinit thread_local volatile std::sig_atomic_t inside = 0;

    std::mutex mutex_;
};

} // namespace emulator
