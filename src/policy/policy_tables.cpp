#include "channel/read.h"
#include "lumozeph.h"
#include "policy/fields.h"
#include "policy/records.h"

using namespace lumo;

int32_t LUMOZEPH_GetPolicyTable(LumoPolicyTableList** out)
{
    return get_list(Command::GetPolicyTable, Request(), policy_tables, out);
}

int32_t LUMOZEPH_SetPolicyTable(uint32_t table, const char* name, LumoCmdResult* result)
{
    return send(Command::SetPolicyTable, Request(policy_table_id(table), policy_table_name(name)), result);
}

int32_t LUMOZEPH_DelPolicyTable(uint32_t table, LumoCmdResult* result)
{
    return send(Command::DelPolicyTable, Request(policy_table_id(table)), result);
}

int32_t LUMOZEPH_ReleaseAllPolicyTable(LumoPolicyTableList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_GetLifPolicyTableRef(const char* instance, const char* lif, LumoLifPolicyTableRef** out)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return get_one(Command::GetLifPolicyTableRef, Request(instance_key(instance), lif_name(lif)), out);
}

// Kept: the count is sent as it is; entries that reach beyond the end of the request are cut there.
int32_t LUMOZEPH_SetLifPolicyTableRef(const char* instance, const char* lif, uint16_t count,
    const LumoPolicyTableRefEntry* entries, LumoCmdResult* result)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::SetLifPolicyTableRef,
        Request(instance_key(instance), lif_name(lif), ref_count(count), ref_entries(entries, count * sizeof *entries)),
        result);
}

int32_t LUMOZEPH_DelLifPolicyTableRef(const char* instance, const char* lif, LumoCmdResult* result)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::DelLifPolicyTableRef, Request(instance_key(instance), lif_name(lif)), result);
}

int32_t LUMOZEPH_ReleaseLifPolicyTableRef(LumoLifPolicyTableRef* ref)
{
    return release(ref);
}
