#include "tool/deadline.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <unistd.h>
#include <utility>

namespace tool {
namespace {

// As good as never, and still a time that clocks know.
constexpr std::chrono::duration<double> longest {1e9};

void end_after(std::chrono::duration<double> time, const std::string& message, int status, const std::stop_token& stop)
{
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(std::min(time, longest));
    never.wait_for(lock, stop, rest, [] { return false; });
    if (stop.stop_requested())
        return;
    [[maybe_unused]] const ssize_t written = write(STDERR_FILENO, message.data(), message.size());
    _exit(status);
}

} // namespace

Deadline::Deadline(std::chrono::duration<double> time, std::string message, int status)
    : _thread([time, kept = std::move(message), status](
                  const std::stop_token& stop) { end_after(time, kept, status, stop); })
{}

} // namespace tool
