#include "channel/read.h"

namespace lumo {

int32_t fail_freeing(int error, void* records, void* holder, void* buffer)
{
    release(records);
    release(holder);
    release(buffer);
    return fail(error);
}

int32_t count_records(const ReplyBuffer& reply, const ListShape& shape, int32_t size)
{
    const int32_t length = std::max(reply.length(), 0);
    int32_t whole = length / size;
    int32_t tail = length % size;
    if (whole >= shape.cap) {
        whole = shape.cap;
        tail = 0;
    }
    if (tail > 0 && shape.fragment == Fragment::Rejected)
        return -1;
    return tail > 0 ? whole + 1 : whole;
}

[[gnu::flatten]] int32_t send_value(Command command, uint32_t value)
{
    return send(command, Input {&value, sizeof value});
}

[[gnu::flatten]] int32_t read_value(Command command, uint32_t* out)
{
    // Kept: neither is the slot set before the call nor the reported length looked at, so that a module that answers
    // with fewer than four bytes hands over the rest of the slot as it was.
    uint32_t slot;
    Room room {&slot, sizeof slot};
    const int32_t result = exchange(command, no_input, room);
    if (result == 0)
        *out = slot;
    return result;
}

} // namespace lumo
