#include "channel/read.h"
#include "lumozeph.h"
#include "mcast/fields.h"
#include "mcast/records.h"

using namespace lumo;

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
