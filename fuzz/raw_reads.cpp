// Reads straight into the caller's buffer, and the result areas of sets and deletes.
#include "reads.h"

#include <lumozeph.h>

namespace fuzz {

namespace {

// The reply lies at the beginning of the buffer, and behind it is what was there before.
void expect_written(const System& system, const Ended& ended, const Buffer& buffer, char behind)
{
    const Reply& reply = system.reply();
    if (reply.error() != 0)
        expect_failure(ended, reply.error());
    else
        expect_success(ended);
    const std::size_t written = reply.error() != 0 ? 0 : reply.written(buffer.size());
    expect_bytes("what was written", buffer.content(0, written), reply.content(0, written));
    const std::size_t more = std::min<std::size_t>(buffer.size() - written, 256);
    expect_bytes("what lies behind", buffer.content(written, more), std::string(more, behind));
    expect_equal("allocations", system.allocations(), 0);
}

void read_raw(const Read& read, Input& input)
{
    const std::uint32_t room = read.operation->room;
    System system(input, {Looks::Nowhere, room});
    const Buffer buffer(room);
    const Ended ended = system.call([&] { return read.call(buffer.data()); });
    expect_written(system, ended, buffer, buffer.fresh());
    if (system.reply().open_error() == 0)
        expect_equal("room", system.exchanges().at(0).room, room);
}

// The operation zeroes the area before the call.
void send_for_result(const Read& read, Input& input)
{
    constexpr std::size_t size = 88;
    System system(input, {Looks::Nowhere, size});
    const Buffer area(size);
    const Ended ended = system.call([&] { return read.call(area.data()); });
    expect_written(system, ended, area, '\0');
}

// The one buffer whose size the caller says.
void read_all_endpoints(Input& input)
{
    constexpr std::uint32_t unit = 235;
    now_reading("GetBeAll");
    const Buffer buffer(input.half());
    System system(input, {Looks::Nowhere, unit});
    std::uint32_t count = 4711;
    const Ended ended = system.call(
        [&] { return LUMOZEPH_GetBeAll(buffer.data(), static_cast<std::uint32_t>(buffer.size()), &count); });
    expect_written(system, ended, buffer, buffer.fresh());
    expect_equal("count", count, ended.result == 0 ? system.exchanges().at(0).reported / unit : 4711);
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using operations::Shape;
    static const auto raw_reads = fuzz::reads_of({Shape::RawRead});
    static const auto result_sends = fuzz::reads_of({Shape::ResultSend});
    fuzz::Input input(data, size);
    switch (input.byte() % 3) {
    case 0:
        fuzz::read_raw(fuzz::choose(raw_reads, input), input);
        break;
    case 1:
        fuzz::send_for_result(fuzz::choose(result_sends, input), input);
        break;
    default:
        fuzz::read_all_endpoints(input);
    }
    return 0;
}
