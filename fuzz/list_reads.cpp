#include "list_reads.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace fuzz {

namespace {

// A list holder as it lies in memory.
struct Listed
{
    std::int32_t count;
    const char* records;
};

// A worker fills a list of the caller's and frees it when it fails: with the allocation of the list, it is what the
// read of the same list is.
std::int32_t call(const Read& read, void** out)
{
    if (read.operation->shape == operations::Shape::ListRead)
        return read.call(out);
    *out = calloc(1, sizeof(Listed));
    if (*out == nullptr) {
        errno = ENOMEM;
        return -1;
    }
    const std::int32_t result = read.call(*out);
    if (result != 0)
        *out = nullptr;
    return result;
}

// Of a long list, the records at both ends and in the middle tell enough.
void expect_records(const operations::Operation& operation, const Reply& reply, const Listed& list, std::size_t count)
{
    const std::size_t size = operation.layouts.begin()->size;
    const std::size_t cap = static_cast<std::size_t>(operation.cap);
    expect_equal("count", list.count, static_cast<std::int64_t>(count));
    for (const std::size_t index : {std::size_t {0}, std::size_t {1}, count / 2, count - 1})
        if (index < count)
            expect_record(operation, list.records + index * size, reply.content(index * size, size));
    for (const std::size_t index : {count, cap - 1})
        if (index >= count && index < cap)
            expect_bytes("past the last record", {list.records + index * size, size}, std::string(size, '\0'));
}

} // namespace

void read_list(const Read& read, Input& input)
{
    const operations::Operation& operation = *read.operation;
    const std::size_t size = operation.layouts.begin()->size;
    const std::size_t cap = static_cast<std::size_t>(operation.cap);
    const Looks looks = operation.fragment == operations::Fragment::Rejected ? Looks::AtWholeRecords
                                                                             : Looks::AtWholeRecordsAndAFragment;
    System system(input, {looks, size});
    void* out = elsewhere;
    const Ended ended = system.call([&] { return call(read, &out); });

    const auto expect_null = [&](int error) {
        expect_failure(ended, error);
        expect_equal("out", out, nullptr);
    };
    const Reply& reply = system.reply();
    if (system.refused() == 1 || system.refused() == 2)
        return expect_null(ENOMEM);
    if (reply.error() != 0) {
        expect_null(reply.error());
        if (operation.on_device_error == operations::Holder::LeftAllocated)
            system.expect_left(sizeof(Listed));
        return;
    }
    if (system.refused() == 3)
        return expect_null(ENOMEM);

    const Exchange& exchange = system.exchanges().at(0);
    expect_equal("room", exchange.room, operation.room);
    const std::int32_t reported = static_cast<std::int32_t>(exchange.reported);
    const std::size_t length = static_cast<std::size_t>(std::max(reported, 0));
    if (length / size < cap && length % size != 0 && looks == Looks::AtWholeRecords)
        return expect_null(EBADMSG);
    expect_success(ended);
    Listed list;
    std::memcpy(&list, out, sizeof list);
    expect_records(operation, reply, list, std::min(cap, (length + size - 1) / size));
    expect_success(system.call([&] { return read.release(out); }));
}

} // namespace fuzz
