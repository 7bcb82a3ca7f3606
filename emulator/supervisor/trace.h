// Writes what was asked and answered, a line for each event.
#pragma once

#include "emulator/trace/event.h"
#include "emulator/trace/fields.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace emulator {

// Nobody waits for the lines to be made and written: a thread does that. Events that find no room while whoever reads is
// behind, and lines that cannot be written, are counted, and the user is told.
class Trace
{
public:
    Trace(int file, TraceFormat format) : file_(file), format_(format) {}
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    void add(std::shared_ptr<const Event> event);

    // Waits until all has been written, but not for long, and says on the standard error what was not.
    void finish(std::chrono::milliseconds patience);

private:
    struct Entry
    {
        std::uint64_t lost_before;
        std::shared_ptr<const Event> event;
    };

    void start();
    void work();
    void write(const std::vector<Entry>& entries);
    void write_lines(std::string& lines, std::uint64_t& count);

    const int file_;
    const TraceFormat format_;
    std::mutex mutex_;
    std::condition_variable something_;
    std::condition_variable ended_;
    std::vector<Entry> waiting_;
    std::size_t size_ = 0;        // of what waits, in bytes
    std::uint64_t unwritten_ = 0; // events that wait or are being written
    std::uint64_t omitted_ = 0;   // events left out since the last one that found room
    std::uint64_t lost_ = 0;      // events that were left out
    int error_ = 0;               // why no more can be written
    bool is_over_ = false;        // no more events come
    bool has_ended_ = false;      // the thread
    std::thread thread_;
};

} // namespace emulator
