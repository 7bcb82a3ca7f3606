// Calls of every shape at once, in threads of one process and in as many processes, beside their limits. Nothing is
// shared in the library, so that the ratio of both must be the same; what the allocator shares is in library and limit.
#include "calls.h"
#include "compare.h"
#include "kernel.h"
#include "operations/operations.h"
#include "replies.h"

#include <functional>
#include <new>
#include <pthread.h>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace bench;
using namespace operations;

// A call of the library, its limit, and what the device answers to both.
struct Pair
{
    std::function<void()> library;
    std::function<void()> limit;
    std::vector<char> reply;
};

std::vector<Pair> pairs_of_every_shape()
{
    std::vector<Pair> pairs;
    for (const Set& set : sets)
        pairs.push_back({[&set] { expect(set.send() == 0); }, [&set] { expect(set.limit() == 0); }, {}});
    for_each_operation([&pairs](const Chapter&, const Operation& operation) {
        if (operation.shape == Shape::SingleRead)
            pairs.push_back({library_get(operation), limit_of_get(operation), reply_of(operation, 1)});
        if (operation.shape == Shape::GetValue)
            pairs.push_back({library_get_value(operation), limit_of_get_value(), std::vector<char>(4)});
        if (operation.shape == Shape::ListRead) {
            const std::size_t count = std::min<std::size_t>(static_cast<std::size_t>(operation.cap), 100);
            pairs.push_back(
                {library_get_list(operation, count), limit_of_get_list(operation), reply_of(operation, count)});
        }
    });
    return pairs;
}

// What the workers and who measures them meet at; in memory that processes share.
class Meeting
{
public:
    explicit Meeting(unsigned workers)
    {
        pthread_barrierattr_t shared;
        pthread_barrierattr_init(&shared);
        pthread_barrierattr_setpshared(&shared, PTHREAD_PROCESS_SHARED);
        pthread_barrier_init(&barrier_, &shared, workers + 1);
    }
    void wait() { pthread_barrier_wait(&barrier_); }

    enum class Next
    {
        Library,
        Limit,
        Stop
    };
    Next next = Next::Library;

private:
    pthread_barrier_t barrier_;
};

// Each worker begins with another call, so that different ones are under way at the same time.
void work(Meeting& meeting, const std::vector<Pair>& pairs, std::size_t first)
{
    constexpr int rounds = 4;
    for (meeting.wait(); meeting.next != Meeting::Next::Stop; meeting.wait()) {
        for (std::size_t i = 0; i < rounds * pairs.size(); ++i) {
            const Pair& pair = pairs[(first + i) % pairs.size()];
            answer_calls(Kernel::Instant, {pair.reply.data(), static_cast<std::uint32_t>(pair.reply.size())});
            meeting.next == Meeting::Next::Library ? pair.library() : pair.limit();
        }
        meeting.wait();
    }
}

double seconds_of(Meeting& meeting, Meeting::Next next)
{
    meeting.next = next;
    const auto begin = std::chrono::steady_clock::now();
    meeting.wait();
    meeting.wait();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void measure(benchmark::State& state, Meeting& meeting)
{
    std::vector<double> ratios;
    seconds_of(meeting, Meeting::Next::Library);
    seconds_of(meeting, Meeting::Next::Limit);
    for (auto _ : state) {
        const double library = seconds_of(meeting, Meeting::Next::Library);
        state.SetIterationTime(library);
        ratios.push_back(library / seconds_of(meeting, Meeting::Next::Limit));
    }
    state.counters["ratio"] = median(ratios);
    meeting.next = Meeting::Next::Stop;
    meeting.wait();
}

void in_threads(benchmark::State& state)
{
    const std::vector<Pair> pairs = pairs_of_every_shape();
    const std::size_t count = static_cast<std::size_t>(state.range(0));
    Meeting meeting(static_cast<unsigned>(count));
    std::vector<std::thread> workers;
    for (std::size_t i = 0; i < count; ++i)
        workers.emplace_back([&, i] { work(meeting, pairs, i * pairs.size() / count); });
    measure(state, meeting);
    for (std::thread& worker : workers)
        worker.join();
}

void in_processes(benchmark::State& state)
{
    const std::vector<Pair> pairs = pairs_of_every_shape();
    const std::size_t count = static_cast<std::size_t>(state.range(0));
    void* const memory = mmap(nullptr, sizeof(Meeting), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    expect(memory != MAP_FAILED);
    Meeting& meeting = *new (memory) Meeting(static_cast<unsigned>(count));
    for (std::size_t i = 0; i < count; ++i) {
        const pid_t worker = fork();
        expect(worker >= 0);
        if (worker == 0) {
            work(meeting, pairs, i * pairs.size() / count);
            _exit(0);
        }
    }
    measure(state, meeting);
    for (std::size_t i = 0; i < count; ++i)
        wait(nullptr);
    munmap(memory, sizeof(Meeting));
}

} // namespace

BENCHMARK(in_threads)->RangeMultiplier(2)->Range(1, 8)->UseManualTime();
BENCHMARK(in_processes)->RangeMultiplier(2)->Range(1, 8)->UseManualTime();

BENCHMARK_MAIN();
