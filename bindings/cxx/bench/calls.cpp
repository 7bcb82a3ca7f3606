// Calls of the layer beside the same calls in C. A list is one of 10,000 LIFs, of which every field is read.
#include "bench/compare.h"
#include "bench/kernel.h"
#include "bindings/cxx/bench/kinds.h"

int main(int argc, char** argv)
{
    static const std::vector<char> records = cost::lifs(LUMOZEPH_LIFS_MAX);
    for (const cost::Kind& kind : cost::kinds)
        benchmark::RegisterBenchmark((std::string("cxx/") + kind.name).c_str(), [&kind](benchmark::State& state) {
            answer_calls(bench::Kernel::Instant, {records.data(), kind.size * kind.most});
            bench::compare(state, kind.in_cxx, kind.in_c);
        })->UseManualTime();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
