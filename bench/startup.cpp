// What it costs to load the library, beside an empty shared object.
#include "compare.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>

namespace {

void load(const char* path)
{
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        std::exit(1);
    }
    dlclose(library);
}

void load_and_unload(benchmark::State& state)
{
    bench::compare(
        state, [] { load(LUMOZEPH_LIBRARY); }, [] { load(LUMOZEPH_EMPTY_LIBRARY); });
}
BENCHMARK(load_and_unload)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
