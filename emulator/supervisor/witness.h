// Sees what is asked and answered in a world, and tells of it: at once, later and in the end.
#pragma once

#include "emulator/supervisor/callers.h"
#include "emulator/supervisor/recorder.h"
#include "emulator/supervisor/trace.h"
#include "emulator/trace/journal.h"
#include "emulator/trace/summary.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace emulator {

// What is told of.
enum class Traced
{
    Commands,
    CommandsAndOpens, // of the device
};

// What a world is to tell.
struct Telling
{
    int trace = -1; // where to write a line for each event as it happens, if anywhere
    TraceFormat format = TraceFormat::Text;
    int recording = -1; // where to write a recording, if anywhere
    Traced traced = Traced::Commands;
    std::optional<std::size_t> journal; // how many events to remember, for who may ask
    bool summary = false;               // in the end, on the standard error
};

class Witness
{
public:
    explicit Witness(const Telling& telling);

    // Whether anybody wants to know.
    bool sees_commands() const { return sees_commands_; }
    bool sees_opens() const { return sees_commands_ && traced_ == Traced::CommandsAndOpens; }

    // Something will be told.
    void expect() { ++expected_; }

    // What was expected. Commands have their whole replies.
    void tell(Event event);

    std::string journal(TraceFormat format) const { return journal_ ? journal_->lines(format) : ""; }

    // When nothing more begins. Waits for what is expected, and for whoever reads the trace, but not for long.
    void finish(std::chrono::milliseconds patience);

private:
    const Traced traced_;
    const bool sees_commands_;
    std::optional<Recorder> recorder_;
    std::optional<Trace> trace_;
    std::optional<Journal> journal_;
    std::atomic<std::size_t> expected_ = 0;
    std::mutex mutex_;
    std::optional<Summary> summary_;
};

} // namespace emulator
