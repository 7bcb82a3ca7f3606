// Calls of the crate beside the same calls in C. A list is one of 10,000 LIFs, of which every field is read.
#include "bench/compare.h"
#include "bench/kernel.h"
#include "bindings/cxx/bench/kinds.h"

#include <algorithm>
#include <string_view>

extern "C" {
void rust_set();
void rust_set_with_texts();
std::uint64_t rust_get_value();
std::uint64_t rust_get_record();
std::uint64_t rust_get_list();
std::uint64_t rust_get_raw();
}

namespace {

struct Call
{
    std::string_view kind;
    void (*in_rust)();
};

constexpr Call calls[] {
    {"set", rust_set},
    {"set-with-texts", rust_set_with_texts},
    {"get-value", [] { cost::sink = rust_get_value(); }},
    {"get-record", [] { cost::sink = rust_get_record(); }},
    {"get-list", [] { cost::sink = rust_get_list(); }},
    {"get-raw", [] { cost::sink = rust_get_raw(); }},
};

const cost::Kind& kind_of(const Call& call)
{
    return *std::find_if(
        std::begin(cost::kinds), std::end(cost::kinds), [&](const cost::Kind& kind) { return kind.name == call.kind; });
}

// Whether both read every field.
bool sum_up_alike(const Call& call)
{
    kind_of(call).in_c();
    const std::uint64_t sum = cost::sink;
    call.in_rust();
    return sum == cost::sink;
}

} // namespace

int main(int argc, char** argv)
{
    static const std::vector<char> records = cost::lifs(LUMOZEPH_LIFS_MAX);
    for (const Call& call : calls) {
        const cost::Kind& kind = kind_of(call);
        benchmark::RegisterBenchmark(("rust/" + std::string(call.kind)).c_str(), [&](benchmark::State& state) {
            answer_calls(bench::Kernel::Instant, {records.data(), kind.size * kind.most});
            if (kind.most > 1 && !sum_up_alike(call)) {
                state.SkipWithError("C and Rust read different things");
                return;
            }
            bench::compare(state, call.in_rust, kind.in_c);
        })->UseManualTime();
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
