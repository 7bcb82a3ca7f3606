#include "emulator/supervisor/trace.h"

#include "emulator/supervisor/output.h"
#include "emulator/trace/line.h"

#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace emulator {

namespace {

// Of events that wait.
constexpr std::size_t room = 16 << 20;
// How long the first of them waits for others: to wake the thread costs more than to leave it an event.
constexpr std::chrono::milliseconds gathering {5};
// Written at once; a pipe takes all of it or nothing.
constexpr std::size_t piece = 4096;

} // namespace

void Trace::add(std::shared_ptr<const Event> event)
{
    const std::size_t size = size_of(*event);
    const std::lock_guard lock(mutex_);
    if (error_ != 0 || is_over_ || size_ + size > room) {
        ++lost_;
        ++omitted_;
        return;
    }
    waiting_.push_back({std::exchange(omitted_, 0), std::move(event)});
    size_ += size;
    ++unwritten_;
    start();
    if (waiting_.size() == 1)
        something_.notify_one();
}

void Trace::start()
{
    if (thread_.joinable())
        return;
    try {
        thread_ = std::thread([this] { work(); });
    } catch (const std::system_error& refusal) {
        error_ = refusal.code().value();
    }
}

void Trace::work()
{
    std::vector<Entry> entries;
    std::unique_lock lock(mutex_);
    while (error_ == 0) {
        something_.wait(lock, [this] { return is_over_ || !waiting_.empty(); });
        if (waiting_.empty())
            break;
        something_.wait_for(lock, gathering, [this] { return is_over_ || size_ > room / 2; });
        std::swap(waiting_, entries);
        size_ = 0;
        lock.unlock();
        write(entries);
        entries.clear();
        lock.lock();
    }
    if (const std::uint64_t last = std::exchange(omitted_, 0); last > 0 && error_ == 0) {
        std::string line;
        append_lost(line, format_, last);
        lock.unlock();
        std::uint64_t none = 0;
        write_lines(line, none);
        lock.lock();
    }
    has_ended_ = true;
    ended_.notify_all();
}

void Trace::write(const std::vector<Entry>& entries)
{
    std::string lines;
    std::uint64_t count = 0;
    for (const Entry& entry : entries) {
        const std::size_t before = lines.size();
        if (entry.lost_before > 0)
            append_lost(lines, format_, entry.lost_before);
        append_line(lines, format_, *entry.event);
        if (before > 0 && lines.size() > piece) {
            std::string last = lines.substr(before);
            lines.resize(before);
            write_lines(lines, count);
            lines.swap(last);
        }
        ++count;
    }
    write_lines(lines, count);
}

// Both are nothing afterwards.
void Trace::write_lines(std::string& lines, std::uint64_t& count)
{
    const bool written = write_all(file_, lines);
    const int error = errno;
    lines.clear();
    const std::lock_guard lock(mutex_);
    if (written)
        unwritten_ -= count;
    else
        error_ = error;
    count = 0;
}

void Trace::finish(std::chrono::milliseconds patience)
{
    std::unique_lock lock(mutex_);
    is_over_ = true;
    something_.notify_one();
    // The thread may go on waiting for whoever reads; the process ends without it.
    if (thread_.joinable() && !ended_.wait_for(lock, patience, [this] { return has_ended_; }))
        thread_.detach();
    const std::uint64_t lost = lost_ + unwritten_;
    // The standard error may be where nobody reads, too.
    pollfd standard_error {STDERR_FILENO, POLLOUT, 0};
    if (lost > 0 && poll(&standard_error, 1, 0) > 0)
        fmt::print(stderr, "lumozeph-emulator: lines lost from the trace: {} ({})\n", lost,
            error_ != 0 ? std::strerror(error_) : "nobody read them in time");
    lock.unlock();
    if (thread_.joinable())
        thread_.join();
}

} // namespace emulator
