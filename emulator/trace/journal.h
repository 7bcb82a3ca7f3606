// The last events, for those who ask later.
#pragma once

#include "emulator/trace/event.h"
#include "emulator/trace/fields.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>

namespace emulator {

// However many threads use it.
class Journal
{
public:
    // most: events that it remembers, fewer of large ones.
    explicit Journal(std::size_t most) : most_(most) {}

    void add(std::shared_ptr<const Event> event);

    // As a trace has them, in the order in which the commands took place. If it has forgotten some, the first line says
    // how many.
    std::string lines(TraceFormat format) const;

private:
    const std::size_t most_;
    mutable std::mutex mutex_;
    std::deque<std::shared_ptr<const Event>> events_;
    std::size_t size_ = 0; // in bytes
    std::uint64_t forgotten_ = 0;
};

} // namespace emulator
