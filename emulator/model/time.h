// The module's time, and numbers that move with it.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>

namespace emulator {

// What has passed since the module began.
using Time = std::chrono::nanoseconds;

// A century, for what has passed and for what is to pass.
constexpr std::chrono::seconds longest_time {3155760000};

enum class Clock
{
    Real,  // time passes by itself
    Manual // it passes when it is told to
};

class Stopwatch
{
public:
    explicit Stopwatch(Clock clock) : clock_(clock) {}

    Time now() const
    {
        return clock_ == Clock::Real ? advanced_ + (std::chrono::steady_clock::now() - begun_) : advanced_;
    }

    // False, and nothing has changed, if that leads beyond the longest time.
    bool advance(Time by)
    {
        if (by < Time(0) || by > longest_time - std::min<Time>(now(), longest_time))
            return false;
        advanced_ += by;
        return true;
    }

private:
    Clock clock_;
    std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
    Time advanced_ {};
};

constexpr Time in_whole_seconds(Time time)
{
    return std::chrono::floor<std::chrono::seconds>(time);
}

// What is not yet one.
constexpr std::uint64_t most_billionths = 999999999;

// Grows by so many a second since it was set.
struct Counter
{
    std::uint64_t value = 0;
    std::uint64_t rate = 0;
    Time since {};
    std::uint64_t billionths = 0; // of the next one

    std::uint64_t at(Time now) const { return reading(now).value; }

    // The same counter, from now on.
    Counter reading(Time now) const
    {
        if (now < since)
            return *this;
        constexpr std::uint64_t billion = 1000000000;
        const auto passed = static_cast<std::uint64_t>((now - since).count());
        // In parts, none of which is too large for what it is kept in.
        const std::uint64_t seconds = passed / billion;
        const std::uint64_t part = passed % billion;
        const std::uint64_t rest = rate % billion * part + billionths;
        return {value + rate * seconds + rate / billion * part + rest / billion, rate, now, rest % billion};
    }
};

// The counters of a record, by their places in it. What has never counted is zero.
class Counters
{
public:
    auto begin() const { return all_.begin(); }
    auto end() const { return all_.end(); }

    void set(std::uint32_t place, const Counter& counter) { all_[place] = counter; }
    void add_one(std::uint32_t place) { ++all_[place].value; }

    // Those that grow by themselves go on at their rates.
    void reset(Time now)
    {
        std::erase_if(all_, [](const auto& placed) { return placed.second.rate == 0; });
        for (auto& [place, counter] : all_)
            counter = {0, counter.rate, now, 0};
    }

private:
    std::map<std::uint32_t, Counter> all_;
};

} // namespace emulator
