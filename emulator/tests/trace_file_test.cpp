// How lines of a trace come to whoever reads them, or do not.
#include "emulator/supervisor/trace.h"
#include "emulator/trace/line.h"

#include <array>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace emulator;
using std::chrono::milliseconds;

namespace {

// The command of a log level, as wide as a command can be.
std::shared_ptr<const Event> event(std::uint64_t order)
{
    Call call {.order = order, .number = 10, .readable = Readable::Input, .in_len = 4};
    call.input.reserve(4096);
    call.input.resize(4);
    return std::make_shared<const Event>(Event {.what = std::move(call), .error = 0});
}

std::string line_of(const Event& event)
{
    std::string line;
    append_line(line, TraceFormat::Json, event);
    return line;
}

// A pipe whose reader does what the test does.
class TraceFile : public testing::Test
{
protected:
    void SetUp() override { ASSERT_EQ(pipe2(ends_.data(), O_CLOEXEC), 0); }
    void TearDown() override
    {
        for (const int end : ends_)
            close(end);
    }

    // Reads until there is a line with this in it.
    std::string read_until(const std::string& last)
    {
        std::array<char, 65536> piece {};
        std::string text;
        while (text.find(last) == std::string::npos || text.back() != '\n') {
            const ssize_t length = read(ends_[0], piece.data(), piece.size());
            if (length <= 0)
                return text;
            text.append(piece.data(), static_cast<std::size_t>(length));
        }
        return text;
    }

    int writer() const { return ends_[1]; }
    void close_writer() { close(std::exchange(ends_[1], -1)); }

private:
    std::array<int, 2> ends_ {-1, -1};
};

TEST_F(TraceFile, HoldsALineForEachEvent)
{
    Trace trace(writer(), TraceFormat::Json);
    std::string expected;
    for (std::uint64_t order = 1; order <= 100; ++order) {
        trace.add(event(order));
        expected += line_of(*event(order));
    }
    EXPECT_EQ(read_until("\"order\":100,"), expected);
    trace.finish(milliseconds(1000));
}

TEST_F(TraceFile, LosesLinesRatherThanWaiting)
{
    constexpr std::uint64_t many = 10000;
    Trace trace(writer(), TraceFormat::Json);
    for (std::uint64_t order = 1; order <= many; ++order)
        trace.add(event(order));
    // Whoever reads begins now.
    std::string text;
    std::thread reader([&] { text = read_until("nothing that arrives"); });
    testing::internal::CaptureStderr();
    trace.finish(milliseconds(10000));
    const std::string said = testing::internal::GetCapturedStderr();
    close_writer();
    reader.join();

    std::istringstream lines(text);
    std::uint64_t seen = 0;
    std::uint64_t lost = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("{\"lost\":")) {
            const std::uint64_t here = std::stoull(line.substr(8));
            lost += here;
            seen += here;
            continue;
        }
        ASSERT_EQ(line + "\n", line_of(*event(++seen)));
    }
    EXPECT_EQ(seen, many);
    EXPECT_GT(lost, 0U);
    EXPECT_EQ(said,
        "lumozeph-emulator: lines lost from the trace: " + std::to_string(lost) + " (nobody read them in time)\n");
}

} // namespace
