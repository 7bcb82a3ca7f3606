// What was asked and answered, a line of JSON for each command, and for each open of the device if that is wished.
#pragma once

#include "emulator/model/module.h"
#include "emulator/supervisor/descriptor.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace emulator {

// What there are lines for.
enum class Traced
{
    Commands,
    CommandsAndOpens, // of the device
};

struct Asked
{
    std::uint32_t pid;
    std::uint32_t number;
    std::uint32_t in_len;
    std::uint32_t room;
};

// Nobody waits for the lines to be written: a thread writes them. Those that find no room while whoever reads them is
// behind, or cannot be written, are counted, and the user is told.
class Trace
{
public:
    // file: where the lines go, or -1 for nowhere.
    Trace(int file, Traced traced) : file_(file), traced_(traced) {}
    Trace(const Trace&) = delete;
    Trace& operator=(const Trace&) = delete;

    // order: that of the commands, which may be answered in another.
    void write(std::uint64_t order, const Asked& asked, const Answer& answer);

    // path: that of the device; error: the errno with which it is made to fail, or 0.
    void write_open(std::uint32_t pid, std::string_view path, std::uint64_t flags, int error);

    // Waits until all has been written, but not for long, and says on the standard error what was not.
    void finish(std::chrono::milliseconds patience);

private:
    void add(const std::string& line);
    void start();
    void work();

    int file_;
    Traced traced_;
    std::mutex mutex_;
    std::condition_variable something_;
    std::condition_variable nothing_;
    std::string waiting_;       // lines to be written
    std::string writing_;       // those that the thread has taken
    std::uint64_t omitted_ = 0; // lines left out since the last one that found room
    std::uint64_t lost_ = 0;    // lines that were left out or could not be written
    int error_ = 0;             // why no more can be written
    std::thread thread_;
};

} // namespace emulator
