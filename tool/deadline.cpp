#include "tool/deadline.h"

#include <condition_variable>
#include <mutex>
#include <unistd.h>

namespace tool {
namespace {

void end_after(std::chrono::duration<double> time, int status, const std::stop_token& stop)
{
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any never;
    never.wait_for(lock, stop, time, [] { return false; });
    if (!stop.stop_requested())
        _exit(status);
}

} // namespace

Deadline::Deadline(std::chrono::duration<double> time, int status)
    : _thread([time, status](const std::stop_token& stop) { end_after(time, status, stop); })
{}

} // namespace tool
