#include "channel/read.h"
#include "lumozeph.h"
#include "mcast/fields.h"

using namespace lumo;

namespace {

constexpr uint32_t entry_size = sizeof(LumoVtepEntry);
constexpr uint32_t count_size = sizeof(uint32_t);
constexpr uint32_t most_entries = 2048;
constexpr uint32_t entries_room = most_entries * entry_size;

int32_t fill_table(const ReplyBuffer& reply, LumoVtepTable& table)
{
    uint32_t count;
    std::memcpy(&count, reply.bytes(), sizeof count);
    // Kept: the length that the count calls for is computed in 32 bits and compared as signed.
    const uint32_t called_for = count * entry_size + count_size;
    if (reply.length() < static_cast<int32_t>(called_for))
        return fail(EBADMSG);

    table.count = count;
    table.records = static_cast<LumoVtepEntry*>(calloc(count, entry_size));
    if (table.records == nullptr)
        return fail(ENOMEM);
    const uint64_t length = uint64_t {count} * entry_size;
    std::memcpy(table.records, reply.bytes() + count_size, std::min<uint64_t>(length, entries_room));
    // Kept: a count whose length wraps around fails only now, and without setting errno.
    return length + count_size > INT32_MAX ? -1 : 0;
}

} // namespace

int32_t LUMOZEPH_GetMRoutingRemoteRcvrs(const char* instance, uint32_t value, LumoVtepTable** out)
{
    ReplyBuffer reply(count_size + entries_room);
    if (!reply.allocated())
        return fail(ENOMEM);
    if (reply.receive(Command::GetMRoutingRemoteRcvrs, Request(instance_key(instance), mcast_value(value))) != 0)
        return -1;

    LumoVtepTable* table = static_cast<LumoVtepTable*>(calloc(1, sizeof(LumoVtepTable)));
    *out = table;
    if (table == nullptr)
        return fail(ENOMEM);
    const int32_t result = fill_table(reply, *table);
    if (result != 0) {
        release_list(table);
        *out = nullptr;
    }
    return result;
}

// Kept: the array of a table without entries stays allocated.
int32_t LUMOZEPH_ReleaseVTEPTable(LumoVtepTable* table)
{
    if (table == nullptr)
        return 0;
    if (table->count != 0)
        release(table->records);
    return release(table);
}
