#include "channel/read.h"
#include "lumozeph.h"
#include "mcast/fields.h"
#include "mcast/records.h"

using namespace lumo;

namespace {

constexpr uint32_t entry_size = sizeof(LumoVtepEntry);
constexpr uint32_t count_size = sizeof(uint32_t);
constexpr uint32_t most_entries = 2048;
constexpr uint32_t entries_room = most_entries * entry_size;

// Returns whether the table can be handed over; if not, with what errno the call fails.
bool fill_table(const ReplyBuffer& reply, LumoVtepTable& table, int& error)
{
    error = EBADMSG;
    if (reply.length() < static_cast<int32_t>(count_size))
        return false;
    uint32_t count;
    std::memcpy(&count, reply.bytes(), sizeof count);
    // Kept: the length that the count calls for is computed in 32 bits and compared as signed.
    const uint32_t called_for = count * entry_size + count_size;
    if (reply.length() < static_cast<int32_t>(called_for))
        return false;

    table.count = count;
    table.records = static_cast<LumoVtepEntry*>(calloc(count, entry_size));
    error = ENOMEM;
    if (table.records == nullptr)
        return false;
    const uint64_t length = uint64_t {count} * entry_size;
    std::memcpy(table.records, reply.bytes() + count_size, std::min<uint64_t>(length, entries_room));
    // Kept: a count whose length wraps around fails only now, and without setting errno.
    error = errno;
    return length + count_size <= INT32_MAX;
}

} // namespace

int32_t LUMOZEPH_GetMRoutingDomain(const char* instance, LumoMcastDomainInfo** out)
{
    return get_one(Command::GetMRoutingDomain, Request(instance_key(instance)), out);
}

int32_t LUMOZEPH_ReleaseMRoutingDomainData(LumoMcastDomainInfo* domain)
{
    return release(domain);
}

int32_t LUMOZEPH_GetMRoutingLocalRcvrs(const char* instance, uint32_t value, LumoLocalRcvrList** out)
{
    return get_list(
        Command::GetMRoutingLocalRcvrs, Request(instance_key(instance), mcast_value(value)), local_receivers, out);
}

int32_t LUMOZEPH_AddMRoutingLocalRcvrs(const char* instance, uint32_t value, const char* text)
{
    return send(Command::AddMRoutingLocalRcvrs,
        Request(instance_key(instance), mcast_value(value), receiver_text.if_given(text)));
}

int32_t LUMOZEPH_DelMRoutingLocalRcvrs(const char* instance, uint32_t value, const char* text)
{
    return send(Command::DelMRoutingLocalRcvrs,
        Request(instance_key(instance), mcast_value(value), receiver_text.if_given(text)));
}

int32_t LUMOZEPH_ReleaseMRoutingLocalRcvrs(LumoLocalRcvrList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_AddMRoutingRemoteRcvrs(
    const char* instance, uint32_t value, uint32_t key, const uint8_t* hwAddr, uint32_t value1, uint32_t value2)
{
    return send(
        Command::AddMRoutingRemoteRcvrs, Request(instance_key(instance), mcast_value(value), remote_value1(value1),
                                             remote_key(key), remote_hw_addr(hwAddr), remote_value2(value2)));
}

// Kept: nothing else of the request is cleared; the module reads only these fields.
int32_t LUMOZEPH_DelMRoutingRemoteRcvrs(const char* instance, uint32_t value, uint32_t key)
{
    return send(Command::DelMRoutingRemoteRcvrs,
        Request(Request::Remainder::Uncleared, instance_key(instance), mcast_value(value), remote_key(key)));
}

int32_t LUMOZEPH_GetMRoutingRemoteRcvrs(const char* instance, uint32_t value, LumoVtepTable** out)
{
    ReplyBuffer reply(count_size + entries_room);
    if (!reply.allocated())
        return fail(ENOMEM);
    if (reply.receive(Command::GetMRoutingRemoteRcvrs, Request(instance_key(instance), mcast_value(value))) != 0)
        return reply.fail(errno);

    LumoVtepTable* table = static_cast<LumoVtepTable*>(calloc(1, sizeof(LumoVtepTable)));
    *out = table;
    if (table == nullptr)
        return reply.fail(ENOMEM);
    int error;
    if (fill_table(reply, *table, error))
        return 0;
    *out = nullptr;
    return reply.fail(error, table, table->records);
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
