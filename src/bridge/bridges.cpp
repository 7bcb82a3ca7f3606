#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_GetBridgeInstance(const char* key, LumoBridgeInstanceInfo** out)
{
    if (any_null(key))
        return fail(EINVAL);
    return get_one(Command::GetBridgeInstance, Request(instance_key(key)), out);
}

int32_t LUMOZEPH_GetBridgeInstances(LumoBridgeInstanceList** out)
{
    return get_list(out, LUMOZEPHGetBridgeInstances);
}

int32_t LUMOZEPHGetBridgeInstances(LumoBridgeInstanceList* list)
{
    return fill_list(Command::GetBridgeInstances, Request(), bridge_instances, list);
}

int32_t LUMOZEPH_ReleaseBridgeInstance(LumoBridgeInstanceInfo* bridge)
{
    return release(bridge);
}

int32_t LUMOZEPH_ReleaseBridgeInstances(LumoBridgeInstanceList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_BridgeAdd(const char* key, uint32_t value)
{
    return send(Command::BridgeAdd, Request(instance_key(key), bridge_param(value)));
}

int32_t LUMOZEPH_BridgeDel(const char* key, uint32_t value)
{
    return send(Command::BridgeDel, Request(instance_key(key), bridge_param(value)));
}

// Kept: one byte, where the other commands have four.
int32_t LUMOZEPH_BridgeEnable(const char* key, uint8_t value)
{
    return send(Command::BridgeEnable, Request(instance_key(key), bridge_param_byte(value)));
}

int32_t LUMOZEPH_BridgeDisable(const char* key, uint8_t value)
{
    return send(Command::BridgeDisable, Request(instance_key(key), bridge_param_byte(value)));
}

int32_t LUMOZEPH_BridgeSetHAAdminState(const char* key, uint32_t state)
{
    return send(Command::BridgeSetHAAdminState, Request(instance_key(key), bridge_param(state)));
}

int32_t LUMOZEPH_SetBridgeRepMode(const char* key, uint32_t mode)
{
    return send(Command::SetBridgeRepMode, Request(instance_key(key), rep_mode(mode)));
}

// Kept: the number is the caller's and sent unchecked.
int32_t LUMOZEPH_BridgeSetConfig(const char* key, int32_t command, uint32_t value)
{
    return send(static_cast<Command>(command), Request(instance_key(key), config_value(value)));
}
