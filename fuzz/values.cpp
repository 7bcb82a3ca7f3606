// Reads of a 32-bit value, and of the one count that is a reply of its own.
#include "reads.h"

#include <cerrno>
#include <lumozeph.h>

namespace fuzz {

namespace {

constexpr std::uint32_t before = 4711;

void expect_value(std::uint32_t value, const Reply& reply)
{
    expect_bytes("value", {reinterpret_cast<const char*>(&value), sizeof value}, reply.content(0, sizeof value));
}

void run(const Read& read, Input& input)
{
    System system(input, {Looks::AtTheRoom, sizeof before});
    std::uint32_t value = before;
    const Ended ended = system.call([&] { return read.call(&value); });
    expect_equal("allocations", system.allocations(), 0);
    if (system.reply().error() != 0) {
        expect_failure(ended, system.reply().error());
        expect_equal("value", value, before);
        return;
    }
    expect_success(ended);
    expect_value(value, system.reply());
}

void read_policy_count(Input& input)
{
    now_reading("GetPolicyCount");
    System system(input, {Looks::AtWholeRecords, sizeof before});
    std::uint32_t count = before;
    const Ended ended = system.call([&] { return LUMOZEPH_GetPolicyCount(1, &count); });
    if (system.refused() != 0) {
        expect_failure(ended, ENOMEM);
    } else if (system.reply().error() != 0) {
        expect_failure(ended, system.reply().error());
    } else if (static_cast<std::int32_t>(system.exchanges().at(0).reported) < 4) {
        expect_failure(ended, EBADMSG);
        system.expect_left(4);
    } else {
        expect_success(ended);
        return expect_value(count, system.reply());
    }
    expect_equal("count", count, before);
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto reads = fuzz::reads_of({operations::Shape::GetValue});
    fuzz::Input input(data, size);
    if (input.byte() % 2 == 0)
        fuzz::run(fuzz::choose(reads, input), input);
    else
        fuzz::read_policy_count(input);
    return 0;
}
