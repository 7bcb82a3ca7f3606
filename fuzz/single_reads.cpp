// Reads of one decoded record.
#include "reads.h"

#include <cerrno>

namespace fuzz {

namespace {

void run(const Read& read, Input& input)
{
    const std::size_t size = read.operation->room;
    System system(input, {Looks::AtWholeRecords, size});
    void* out = elsewhere;
    const Ended ended = system.call([&] { return read.call(&out); });

    const Reply& reply = system.reply();
    if (system.refused() == 1) {
        expect_failure(ended, ENOMEM);
        expect_equal("out", out, elsewhere);
    } else if (reply.error() != 0) {
        expect_failure(ended, reply.error());
        expect_equal("out", out, elsewhere);
    } else if (system.refused() == 2) {
        expect_failure(ended, ENOMEM);
        expect_equal("out", out, nullptr);
    } else if (static_cast<std::int32_t>(system.exchanges().at(0).reported) < static_cast<std::int32_t>(size)) {
        expect_failure(ended, EBADMSG);
        expect_equal("out", out, nullptr);
    } else {
        expect_success(ended);
        expect_record(*read.operation, out, reply.content(0, size));
        expect_success(system.call([&] { return read.release(out); }));
    }
}

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const auto reads = fuzz::reads_of({operations::Shape::SingleRead});
    fuzz::Input input(data, size);
    fuzz::run(fuzz::choose(reads, input), input);
    return 0;
}
