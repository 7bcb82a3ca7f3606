#include "list_reads.h"

#include <cerrno>
#include <cstring>

namespace fuzz {

namespace {

// A list holder as it lies in memory.
struct Listed
{
    std::int32_t count;
    const char* records;
};

// Of a long list, the records at both ends and in the middle tell enough.
void expect_records(const ListRead& row, const Reply& reply, const Listed& list, std::size_t count)
{
    const std::size_t size = row.layout.size;
    expect_equal("count", list.count, static_cast<std::int64_t>(count));
    for (const std::size_t index : {std::size_t {0}, std::size_t {1}, count / 2, count - 1})
        if (index < count)
            expect_record(one_of(row.layout), list.records + index * size, reply.content(index * size, size));
    for (const std::size_t index : {count, row.cap - 1})
        if (index >= count && index < row.cap)
            expect_bytes("past the last record", {list.records + index * size, size}, std::string(size, '\0'));
}

} // namespace

void run(const ListRead& row, Input& input)
{
    const std::size_t size = row.layout.size;
    System system(input, {row.looks, size});
    void* out = elsewhere;
    const Ended ended = system.call([&] { return row.read(&out); });

    const auto expect_null = [&](int error) {
        expect_failure(ended, error);
        expect_equal("out", out, nullptr);
    };
    const Reply& reply = system.reply();
    if (system.refused() == 1 || system.refused() == 2)
        return expect_null(ENOMEM);
    if (reply.error() != 0) {
        expect_null(reply.error());
        if (row.on_device_error == Holder::LeftAllocated)
            system.expect_left(sizeof(Listed));
        return;
    }
    if (system.refused() == 3)
        return expect_null(ENOMEM);

    const Exchange& exchange = system.exchanges().at(0);
    expect_equal("room", exchange.room, static_cast<std::int64_t>(row.cap * size));
    const std::int32_t reported = static_cast<std::int32_t>(exchange.reported);
    const std::size_t length = static_cast<std::size_t>(std::max(reported, 0));
    if (length / size < row.cap && length % size != 0 && row.looks == Looks::AtWholeRecords)
        return expect_null(EBADMSG);
    expect_success(ended);
    Listed list;
    std::memcpy(&list, out, sizeof list);
    expect_records(row, reply, list, std::min(row.cap, (length + size - 1) / size));
    expect_success(system.call([&] { return row.release(out); }));
}

} // namespace fuzz
