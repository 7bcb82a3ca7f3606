// Two ways of doing the same, measured in turns in one process, so that what disturbs one disturbs the other, too.
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstddef>
#include <vector>

namespace bench {

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Seconds of one call, out of so many.
template <class Work>
double seconds(std::size_t calls, Work& work)
{
    const auto begin = std::chrono::steady_clock::now();
    for (std::size_t i = 0; i < calls; ++i)
        work();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    return passed.count() / static_cast<double>(calls);
}

// As many calls as are long enough for the clock.
template <class Work>
std::size_t calls_per_turn(Work& work)
{
    constexpr double turn = 50e-6;
    seconds(3, work);
    return static_cast<std::size_t>(std::max(1.0, turn / seconds(3, work)));
}

// The benchmark's own time is that of one turn of the library. Its counters are medians: nanoseconds a call of both,
// and their ratio turn by turn.
template <class Library, class Limit>
void compare(benchmark::State& state, Library library, Limit limit)
{
    const std::size_t calls = calls_per_turn(library);
    seconds(calls, limit);
    std::vector<double> library_times;
    std::vector<double> limit_times;
    std::vector<double> ratios;
    for (auto _ : state) {
        double of_library;
        double of_limit;
        if (ratios.size() % 2 == 0) {
            of_library = seconds(calls, library);
            of_limit = seconds(calls, limit);
        } else {
            of_limit = seconds(calls, limit);
            of_library = seconds(calls, library);
        }
        state.SetIterationTime(of_library * static_cast<double>(calls));
        library_times.push_back(of_library * 1e9);
        limit_times.push_back(of_limit * 1e9);
        ratios.push_back(of_library / of_limit);
    }
    state.counters["library_ns"] = median(library_times);
    state.counters["limit_ns"] = median(limit_times);
    state.counters["ratio"] = median(ratios);
}

} // namespace bench
