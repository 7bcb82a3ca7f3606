// The library has no state: any number of threads may be in any of its functions at once. ThreadSanitizer looks on.
#include "fake/matchers.h"
#include "operations/operations.h"

#include <atomic>
#include <thread>

using namespace fake;
using operations::Case;
using operations::Operation;
using operations::Shape;

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

// What one thread's calls write to.
struct Caller
{
    std::vector<char> memory = std::vector<char>(7471104);
    void* out = nullptr;
    std::uint32_t count = 0;
};

// Whether the call succeeds, as it must.
bool succeeds(const Operation& operation, const Case& one, Caller& caller)
{
    List* list = operation.shape == Shape::ListWorker ? static_cast<List*>(calloc(1, sizeof(List))) : nullptr;
    void* const target = list != nullptr        ? list
                         : hands_out(operation) ? static_cast<void*>(&caller.out)
                                                : caller.memory.data();
    errno = untouched;
    if (operations::call(operation, one, {target, &caller.count}) != 0 || errno != untouched)
        return false;
    if (hands_out(operation)) {
        if (operation.shape == Shape::CountedTable)
            free(static_cast<List*>(caller.out)->records); // The release leaves that of an empty table.
        if (operation.release.call == nullptr)
            free(caller.out);
        else if (operation.release.call(caller.out) != 0)
            return false;
    }
    return list == nullptr || operation.release.call(list) == 0;
}

// Every call of the tables a few times, from another one on in every thread.
void call_everything(std::size_t first, std::atomic<int>& failures)
{
    std::vector<std::pair<const Operation*, const Case*>> calls;
    operations::for_each_case(
        [&](const Operation& operation, const Case& one) { calls.emplace_back(&operation, &one); });
    Caller caller;
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < calls.size(); ++i) {
            const auto& [operation, one] = calls[(first + i) % calls.size()];
            if (!succeeds(*operation, *one, caller))
                ++failures;
        }
}

TEST(Threads, CallEverythingAtOnce)
{
    StatelessDevice device;
    const Installed installed(device);
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 8; ++i)
        threads.emplace_back(call_everything, 40 * i, std::ref(failures));
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

} // namespace
