#include "channel/read.h"

namespace lumo {

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
