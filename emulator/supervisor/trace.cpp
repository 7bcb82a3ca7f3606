#include "emulator/supervisor/trace.h"

#include "emulator/supervisor/output.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace emulator {

namespace {

constexpr std::size_t room = 1 << 20;

std::uint64_t lines_in(const std::string& text)
{
    return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

void Trace::write(std::uint64_t order, const Asked& asked, const Answer& answer)
{
    if (file_ < 0)
        return;
    add(fmt::format(
        "{{\"order\":{},\"pid\":{},\"command\":{},\"inLen\":{},\"room\":{},\"errno\":{},\"replyLen\":{}}}\n", order,
        asked.pid, asked.number, asked.in_len, asked.room, answer.error, answer.error == 0 ? answer.length() : 0));
}

void Trace::write_open(std::uint32_t pid, std::string_view path, std::uint64_t flags, int error)
{
    if (file_ < 0 || traced_ != Traced::CommandsAndOpens)
        return;
    const std::string failure = error != 0 ? fmt::format(",\"errno\":{}", error) : "";
    add(fmt::format("{{\"pid\":{},\"open\":\"{}\",\"flags\":{}{}}}\n", pid, path, flags, failure));
}

void Trace::add(const std::string& line)
{
    const std::lock_guard lock(mutex_);
    if (error_ != 0 || waiting_.size() + line.size() > room) {
        ++lost_;
        ++omitted_;
        return;
    }
    if (omitted_ > 0)
        waiting_ += fmt::format("{{\"lost\":{}}}\n", omitted_);
    omitted_ = 0;
    waiting_ += line;
    start();
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
        lost_ += lines_in(waiting_);
        waiting_.clear();
    }
}

void Trace::work()
{
    std::unique_lock lock(mutex_);
    while (error_ == 0) {
        nothing_.notify_all();
        something_.wait(lock, [this] { return !waiting_.empty(); });
        std::swap(waiting_, writing_);
        lock.unlock();
        const bool written = write_all(file_, writing_);
        const int error = errno;
        lock.lock();
        if (!written) {
            error_ = error;
            lost_ += lines_in(writing_) + lines_in(waiting_);
            waiting_.clear();
        }
        writing_.clear();
    }
    nothing_.notify_all();
}

void Trace::finish(std::chrono::milliseconds patience)
{
    std::unique_lock lock(mutex_);
    nothing_.wait_for(lock, patience, [this] { return error_ != 0 || (waiting_.empty() && writing_.empty()); });
    // The thread may go on waiting for whoever reads; the process ends without it.
    if (thread_.joinable())
        thread_.detach();
    const std::uint64_t lost = lost_ + (error_ == 0 ? lines_in(waiting_) + lines_in(writing_) : 0);
    // The standard error may be where nobody reads, too.
    pollfd standard_error {STDERR_FILENO, POLLOUT, 0};
    if (lost > 0 && poll(&standard_error, 1, 0) > 0)
        fmt::print(stderr, "lumozeph-emulator: lines lost from the trace: {} ({})\n", lost,
            error_ != 0 ? std::strerror(error_) : "nobody read them in time");
}

} // namespace emulator
