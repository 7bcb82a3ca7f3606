#include "emulator/trace/journal.h"

#include "emulator/trace/line.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace emulator {

namespace {

constexpr std::size_t largest = 16 << 20;

} // namespace

void Journal::add(std::shared_ptr<const Event> event)
{
    const std::lock_guard lock(mutex_);
    size_ += size_of(*event);
    events_.push_back(std::move(event));
    for (; events_.size() > most_ || size_ > largest; ++forgotten_) {
        size_ -= size_of(*events_.front());
        events_.pop_front();
    }
}

std::string Journal::lines(TraceFormat format) const
{
    std::string out;
    std::vector<std::shared_ptr<const Event>> events;
    {
        const std::lock_guard lock(mutex_);
        if (forgotten_ > 0)
            append_forgotten(out, format, forgotten_);
        events.assign(events_.begin(), events_.end());
    }
    for (const auto& event : events)
        append_line(out, format, *event);
    return out;
}

} // namespace emulator
