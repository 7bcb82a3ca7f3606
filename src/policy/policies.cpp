#include "channel/read.h"
#include "lumozeph.h"
#include "policy/fields.h"
#include "policy/records.h"

#include <cstring>

using namespace lumo;

int32_t LUMOZEPH_GetPolicy(uint32_t table, LumoPolicyList** out)
{
    return get_list(Command::GetPolicy, Request(policy_table_id(table)), policies, out);
}

int32_t LUMOZEPH_GetPolicyCount(uint32_t table, uint32_t* count)
{
    ReplyBuffer reply(sizeof *count);
    if (!reply.allocated())
        return fail(ENOMEM);
    // Kept: nothing else of the request is cleared; the module reads only the table's number.
    const Request request(Request::Remainder::Uncleared, empty_instance_key, policy_table_id(table));
    if (reply.receive(Command::GetPolicyCount, request) != 0)
        return reply.fail(errno);
    if (reply.length() < static_cast<int32_t>(sizeof *count)) {
        // Kept: the buffer of a short reply stays allocated.
        reply.leave_allocated();
        return fail(EBADMSG);
    }
    std::memcpy(count, reply.bytes(), sizeof *count);
    return 0;
}

int32_t LUMOZEPH_SetPolicy(uint32_t table, uint32_t key1, uint32_t key2, uint32_t value, LumoCmdResult* result)
{
    return send(Command::SetPolicy,
        Request(policy_key1(key1), policy_key2(key2), policy_value(value), policy_table_id(table)), result);
}

int32_t LUMOZEPH_DelPolicy(uint32_t table, uint32_t key1, uint32_t key2, LumoCmdResult* result)
{
    return send(Command::DelPolicy, Request(policy_key1(key1), policy_key2(key2), policy_table_id(table)), result);
}

int32_t LUMOZEPH_ReleaseAllPolicy(LumoPolicyList* list)
{
    return release_list(list);
}
