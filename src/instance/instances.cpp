#include "channel/read.h"
#include "instance/fields.h"
#include "instance/records.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_SetLumoInstance(const char* instance, uint32_t value1, const char* text, uint32_t value2)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetLumoInstance, Request(instance_key(instance), instance_value1(value1),
                                              instance_text.if_given(text), instance_value2(value2)));
}

int32_t LUMOZEPH_DelLumoInstance(const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelLumoInstance, Request(instance_key(instance)));
}

// Kept: only the instance is tested.
int32_t LUMOZEPH_SetLumoInstanceTunables(const char* instance, const char* text, uint32_t value)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(
        Command::SetLumoInstanceTunables, Request(instance_key(instance), tunables(text), tunables_value(value)));
}

int32_t LUMOZEPH_GetInstance(const char* instance, LumoInstanceInfo** out)
{
    if (any_null(instance))
        return fail(EINVAL);
    return get_one(Command::GetInstance, Request(instance_key(instance)), out);
}

int32_t LUMOZEPH_GetInstances(LumoInstanceList** out)
{
    return get_list(Command::GetInstances, Request(), instances, out);
}

int32_t LUMOZEPH_ReleaseInstance(LumoInstanceInfo* instance)
{
    return release(instance);
}

int32_t LUMOZEPH_ReleaseInstances(LumoInstanceList* list)
{
    // Kept: three values of every record are wiped before the memory goes back.
    if (list != nullptr && list->records != nullptr) {
        for (int32_t i = 0; i < list->count; ++i) {
            list->records[i].value3 = 0;
            list->records[i].value4 = 0;
            list->records[i].value5 = 0;
        }
    }
    return release_list(list);
}
