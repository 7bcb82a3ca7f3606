#include "reads.h"

namespace fuzz {

std::vector<Read> reads_of(std::initializer_list<operations::Shape> shapes, Rooms rooms)
{
    std::vector<Read> reads;
    operations::for_each_case([&](const operations::Operation& operation, const operations::Case& one) {
        const bool is_large = operation.room > largest_room;
        if (is_large == (rooms == Rooms::Larger) &&
            std::find(shapes.begin(), shapes.end(), operation.shape) != shapes.end())
            reads.push_back({&operation, &one});
    });
    return reads;
}

const Read& choose(const std::vector<Read>& reads, Input& input)
{
    const Read& read = reads[input.byte() % reads.size()];
    now_reading(read.one->name);
    return read;
}

void expect_record(const operations::Operation& operation, const void* record, const std::string& reply)
{
    expect_bytes("record", {static_cast<const char*>(record), reply.size()},
        operations::decoded(operations::layout_of(operation.layouts, reply), reply));
}

} // namespace fuzz
