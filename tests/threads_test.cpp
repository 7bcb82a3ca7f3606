// The library has no state: any number of threads may be in any of its functions at once. ThreadSanitizer looks on.
#include "support/commands.h"
#include "support/matchers.h"

#include <atomic>
#include <pthread.h>

using namespace world;

namespace {

constexpr std::uint32_t largest_record = 1420;
constexpr unsigned long vtep_table = 129;

// Has no state either. Single records are zero, lists and tables empty.
class StatelessDevice : public Device
{
public:
    Answer answer(const Sent& sent) override
    {
        if (sent.number == vtep_table)
            return replies(Bytes(4, '\0'));
        return replies(Bytes(sent.out_len <= largest_record ? sent.out_len : 0, '\0'));
    }
};

struct List
{
    std::int32_t count;
    void* records;
};

void free_results(const CommandRow& row)
{
    const bool is_list = row.out_len > largest_record && row.command != 114;
    for (void* result : {caller.out, caller.held}) {
        if (result != nullptr && is_list)
            free(static_cast<List*>(result)->records);
        free(result);
    }
    caller.out = nullptr;
    caller.held = nullptr;
}

// Every operation a few times, from another one on in every thread.
void call_everything(std::size_t first, std::atomic<int>& failures)
{
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < command_rows.size(); ++i) {
            const CommandRow& row = command_rows[(first + i) % command_rows.size()];
            errno = untouched;
            if (row.call() != 0 || errno != untouched)
                ++failures;
            free_results(row);
        }
}

struct Start
{
    std::size_t first;
    std::atomic<int>* failures;
};

TEST(Threads, CallEverythingAtOnce)
{
    StatelessDevice device;
    const Installed installed(device);
    std::atomic<int> failures = 0;
    // What the calls of the table write to lies with the thread, and is large.
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, 64 << 20);
    constexpr std::size_t count = 8;
    Start starts[count];
    pthread_t threads[count];
    for (std::size_t i = 0; i < count; ++i) {
        starts[i] = {i * command_rows.size() / count, &failures};
        ASSERT_EQ(pthread_create(
                      &threads[i], &attributes,
                      [](void* start) -> void* {
                          const Start& at = *static_cast<Start*>(start);
                          call_everything(at.first, *at.failures);
                          return nullptr;
                      },
                      &starts[i]),
            0);
    }
    for (const pthread_t thread : threads)
        pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(failures, 0);
}

} // namespace
