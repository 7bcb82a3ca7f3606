#include "channel/read.h"

namespace lumo {

namespace {

// How many records of so many bytes the reply holds: at most the cap, and what the module reported beyond it is not
// looked at. -1 if a fragment is left that the shape rejects.
int32_t count_records(const ReplyBuffer& reply, const ListShape& shape, int32_t size)
{
    const int32_t length = std::max(reply.length(), 0);
    const int32_t whole = length / size;
    if (whole >= shape.cap)
        return shape.cap;
    if (length % size == 0)
        return whole;
    return shape.fragment == Fragment::Rejected ? -1 : whole + 1;
}

} // namespace

int32_t fail_freeing(int error, void* records, void* holder, void* buffer)
{
    release(records);
    release(holder);
    release(buffer);
    return fail(error);
}

int32_t fill_list(
    Command command, const Request& request, const ListShape& shape, uint32_t size, DecodeRecords* decode, void* list)
{
    ReplyBuffer reply(static_cast<uint32_t>(shape.cap) * size);
    if (!reply.allocated())
        return reply.fail(ENOMEM, list);
    if (reply.receive(command, request) != 0)
        return reply.fail(errno, shape.on_device_error == Holder::Freed ? list : nullptr);

    void* records = calloc(static_cast<std::size_t>(shape.cap), size);
    if (records == nullptr)
        return reply.fail(ENOMEM, list);
    const int32_t count = count_records(reply, shape, static_cast<int32_t>(size));
    if (count < 0)
        return reply.fail(EBADMSG, list, records);
    std::memcpy(list, &count, sizeof count);
    std::memcpy(static_cast<char*>(list) + sizeof records, &records, sizeof records);
    if (decode == nullptr)
        std::memcpy(records, reply.bytes(), static_cast<std::size_t>(count) * size);
    else
        decode(records, reply.bytes(), count);
    return 0;
}

} // namespace lumo
