// What one small call costs end to end, beside the system calls that it cannot do without. Run it where the device
// exists: on a host with the module, or under the emulator.
#include <benchmark/benchmark.h>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <lumozeph.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

void open_ioctl_close_of_dev_null(benchmark::State& state)
{
    for (auto _ : state) {
        const int descriptor = open64("/dev/null", O_RDWR);
        // A number above those of the module, so that the emulator is not asked.
        benchmark::DoNotOptimize(ioctl(descriptor, 0x5401, nullptr));
        close(descriptor);
    }
}
BENCHMARK(open_ioctl_close_of_dev_null);

void get_log_level(benchmark::State& state)
{
    std::uint32_t level = 0;
    for (auto _ : state)
        if (LUMOZEPH_GetLogLevel(&level) != 0) {
            state.SkipWithError(std::strerror(errno));
            break;
        }
}
BENCHMARK(get_log_level);

void set_log_level(benchmark::State& state)
{
    for (auto _ : state)
        if (LUMOZEPH_SetLogLevel(1) != 0) {
            state.SkipWithError(std::strerror(errno));
            break;
        }
}
BENCHMARK(set_log_level);

} // namespace
