// Writes a recording of what is asked and answered in a world.
#pragma once

#include "emulator/trace/event.h"

#include <mutex>
#include <span>

namespace emulator {

// Whoever asks waits until it is written: a recording has no gaps.
class Recorder
{
public:
    // file: is emptied.
    explicit Recorder(int file);

    void add(const Event& event);

    // Says on the standard error if not all could be written.
    void finish();

private:
    void write(std::span<const std::byte> bytes);

    const int file_;
    std::mutex mutex_;
    int error_ = 0; // why no more can be written
};

} // namespace emulator
