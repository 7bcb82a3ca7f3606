// Every kind of operation beside its limit.
#include "operations/operations.h"
#include "calls.h"
#include "compare.h"
#include "kernel.h"
#include "replies.h"

#include <fstream>
#include <malloc.h>
#include <string>
#include <sys/resource.h>

namespace {

using namespace bench;
using namespace operations;

// --- operations that read nothing

void compare_set(benchmark::State& state, Kernel kernel, const Set& set)
{
    answer_calls(kernel);
    compare(
        state, [&] { benchmark::DoNotOptimize(set.send()); }, [&] { benchmark::DoNotOptimize(set.limit()); });
    answer_calls(Kernel::Real);
}

// --- reads of one record

void compare_get(benchmark::State& state, const Operation& operation)
{
    const std::vector<char> reply = reply_of(operation, 1);
    answer_calls(Kernel::Instant, {reply.data(), operation.room});
    compare(state, library_get(operation), limit_of_get(operation));
    answer_calls(Kernel::Real);
}

void compare_get_value(benchmark::State& state, const Operation& operation)
{
    constexpr std::uint32_t value = 7;
    answer_calls(Kernel::Instant, {&value, sizeof value});
    compare(state, library_get_value(operation), limit_of_get_value());
    answer_calls(Kernel::Real);
}

// --- lists

// Pages of this process's memory, in KiB, as the kernel names them.
long memory(const char* name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    long size = 0;
    while (status >> word)
        if (word == name)
            status >> size;
    return size;
}

// What a call adds to the process's memory while it runs, when none is kept from earlier calls.
template <class Work>
long peak_memory(Work& work)
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5; // The peak is what it is now.
    const long before = memory("VmRSS:");
    work();
    return memory("VmHWM:") - before;
}

long minor_faults()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

void compare_list(benchmark::State& state, const Operation& operation, std::size_t count, Texts texts = Texts::Tidy)
{
    const std::vector<char> reply = reply_of(operation, count, texts);
    answer_calls(Kernel::Instant, {reply.data(), static_cast<std::uint32_t>(reply.size())});
    const auto read = library_get_list(operation, count);
    compare(state, read, limit_of_get_list(operation));
    read();
    const long faults = minor_faults();
    constexpr int reads = 4;
    for (int i = 0; i < reads; ++i)
        read();
    state.counters["faults"] = static_cast<double>(minor_faults() - faults) / reads;
    state.counters["peak_kib"] = static_cast<double>(peak_memory(read));
    state.counters["records"] = static_cast<double>(count);
    answer_calls(Kernel::Real);
}

// --- one benchmark for every operation of these shapes

std::string name_of(const Operation& operation)
{
    return std::string(operation.function.name).substr(std::string_view("LUMOZEPH_").size());
}

template <class Compare>
auto* add(const std::string& name, Compare compare_it)
{
    return benchmark::RegisterBenchmark(name.c_str(), compare_it)->UseManualTime();
}

void add_list(const Operation& operation)
{
    const std::size_t cap = static_cast<std::size_t>(operation.cap);
    for (const auto& [fill, count] : {std::pair("empty", std::size_t {0}), {"1%", (cap + 99) / 100}, {"full", cap}}) {
        auto* const added = add("list/" + name_of(operation) + "/" + fill,
            [&operation, count = count](benchmark::State& state) { compare_list(state, operation, count); });
        // Seconds each: as many turns as a median needs.
        if (operation.room > 100'000'000)
            added->Iterations(15);
    }
}

bool has_texts(const Layout& layout)
{
    return layout.texts.size() > 0 ||
           std::ranges::any_of(layout.tables, [](const Table& table) { return table.texts.size() > 0; });
}

// A full list, over what the module leaves in its texts.
void add_texts(const Operation& operation)
{
    if (!has_texts(*operation.layouts.begin()))
        return;
    for (const auto& [name, texts] : {std::pair("tidy", Texts::Tidy), {"untidy", Texts::Untidy},
             {"mixed", Texts::Mixed}, {"any_length", Texts::AnyLength}})
        add("texts/" + name_of(operation) + "/" + name, [&operation, texts = texts](benchmark::State& state) {
            compare_list(state, operation, static_cast<std::size_t>(operation.cap), texts);
        });
}

// The cost of a record, over how many there are.
void add_growth(const Operation& operation)
{
    const std::size_t cap = static_cast<std::size_t>(operation.cap);
    for (std::size_t count = 1; count < cap * 10; count *= 10) {
        const std::size_t records = std::min(count, cap);
        add("growth/" + name_of(operation) + "/" + std::to_string(records),
            [&operation, records](benchmark::State& state) { compare_list(state, operation, records); });
    }
}

void add_reads()
{
    for_each_operation([](const Chapter&, const Operation& operation) {
        const auto get = [&operation](benchmark::State& state) { compare_get(state, operation); };
        const auto get_value = [&operation](benchmark::State& state) { compare_get_value(state, operation); };
        if (operation.shape == Shape::SingleRead)
            add("get/" + name_of(operation), get);
        if (operation.shape == Shape::GetValue)
            add("get/" + name_of(operation), get_value);
        if (operation.shape == Shape::ListRead)
            add_list(operation), add_texts(operation), add_growth(operation);
    });
}

} // namespace

int main(int argc, char** argv)
{
    for (const Set& set : sets) {
        for (const auto& [kernel, name] : {std::pair(Kernel::Instant, "user_part"), {Kernel::DevNull, "system_calls"}})
            benchmark::RegisterBenchmark((std::string("set/") + set.name + "/" + name).c_str(),
                [kernel = kernel, &set](benchmark::State& state) { compare_set(state, kernel, set); })
                ->UseManualTime();
    }
    add_reads();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
}
