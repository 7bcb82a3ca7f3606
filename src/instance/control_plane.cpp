#include "channel/read.h"
#include "instance/fields.h"
#include "instance/records.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_CPActivate(uint32_t value)
{
    return send_value(Command::CPActivate, value);
}

int32_t LUMOZEPH_SetCPIp(const char* instance, uint32_t address)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetCPIp, Request(instance_key(instance), cp_ip(address)));
}

int32_t LUMOZEPH_GetLumoInstanceCPSyncState(const char* instance, LumoCPSyncState** out)
{
    if (any_null(instance))
        return fail(EINVAL);
    return get_one(Command::GetLumoInstanceCPSyncState, Request(instance_key(instance)), out);
}

int32_t LUMOZEPH_SetLumoInstanceCPSyncState(const char* instance, uint32_t state)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetLumoInstanceCPSyncState, Request(instance_key(instance), cp_sync_state(state)));
}
