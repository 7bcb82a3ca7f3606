// The calls that calls.py measures, in C, and what the module replies to both.
#include "bench/kernel.h"
#include "bindings/cxx/bench/kinds.h"

#include <chrono>
#include <string_view>

namespace {

// The numbers of all records that are no arrays.
void sum_columns()
{
    LumoLifList* list = nullptr;
    if (LUMOZEPH_GetLifs(cost::instance, &list) != 0)
        cost::failed();
    std::uint64_t sum = 0;
    for (std::int32_t i = 0; i < list->count; ++i) {
        const LumoLifInfo& lif = list->records[i];
        sum += std::uint64_t {lif.ipAddr} + lif.ipMask + lif.diIp + lif.lifValue1 + lif.lifValue2 + lif.lifValue3;
        sum += std::uint64_t {lif.ipv6Count} + lif.lifState1 + lif.lifState2 + lif.lifValue4;
    }
    cost::sink = sum;
    LUMOZEPH_ReleaseLifs(list);
}

constexpr cost::Kind columns {"get-list-and-sum-columns", 576, LUMOZEPH_LIFS_MAX, sum_columns, nullptr, nullptr};

const cost::Kind& kind_of(std::string_view name)
{
    for (const cost::Kind& kind : cost::kinds)
        if (kind.name == name)
            return kind;
    return columns;
}

} // namespace

extern "C" {

// From now on, calls of this kind are answered without a kernel.
void calls_answer(const char* kind)
{
    static const std::vector<char> records = cost::lifs(LUMOZEPH_LIFS_MAX);
    const cost::Kind& like = kind_of(kind);
    bench::answer_calls(bench::Kernel::Instant, {records.data(), like.size * like.most});
}

// From now on, the kernel answers.
void calls_end()
{
    bench::answer_calls(bench::Kernel::Real);
}

// Seconds of one call, out of so many.
double calls_in_c(const char* kind, unsigned count)
{
    const cost::Kind& called = kind_of(kind);
    const auto begin = std::chrono::steady_clock::now();
    for (unsigned i = 0; i < count; ++i)
        called.in_c();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begin;
    return passed.count() / count;
}

} // extern "C"
