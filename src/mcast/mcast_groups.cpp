#include "channel/read.h"
#include "lumozeph.h"
#include "mcast/fields.h"
#include "mcast/records.h"

using namespace lumo;

int32_t LUMOZEPH_GetMRoutingAllMcastGroups(const char* instance, LumoMcastGroupList** out)
{
    return get_list(Command::GetMRoutingAllMcastGroups, Request(instance_key(instance)), groups, out);
}

int32_t LUMOZEPH_ReleaseMRoutingMcastGroups(LumoMcastGroupList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_GetMRoutingReplicationIP(const char* instance, uint32_t value, uint32_t* address)
{
    return read_raw(Command::GetMRoutingReplicationIP, Request(instance_key(instance), mcast_value(value)), address,
        sizeof *address);
}

int32_t LUMOZEPH_GetMRoutingMRouterIP(const char* instance, uint32_t value, uint32_t* address)
{
    return read_raw(
        Command::GetMRoutingMRouterIP, Request(instance_key(instance), mcast_value(value)), address, sizeof *address);
}

int32_t LUMOZEPH_AddMRoutingMRouter(const char* instance, uint32_t value)
{
    return send(Command::AddMRoutingMRouter, Request(instance_key(instance), mcast_value(value)));
}

// Kept: the removal names no value.
int32_t LUMOZEPH_DelMRoutingMRouter(const char* instance)
{
    return send(Command::DelMRoutingMRouter, Request(instance_key(instance)));
}
