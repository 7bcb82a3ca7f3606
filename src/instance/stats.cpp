#include "channel/read.h"
#include "instance/fields.h"
#include "instance/records.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_GetLumoInstanceCPStats(const char* instance, LumoStats** out)
{
    if (any_null(instance))
        return fail(EINVAL);
    return get_one(Command::GetLumoInstanceCPStats, Request(instance_key(instance)), out);
}

int32_t LUMOZEPH_ResetLumoInstanceCPStats(const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::ResetLumoInstanceCPStats, Request(instance_key(instance)));
}

int32_t LUMOZEPH_GetLifStats(const char* instance, const char* lif, LumoStats** out)
{
    if (any_null(instance))
        return fail(EINVAL);
    return get_one(Command::GetLifStats, Request(instance_key(instance), lif_name(lif)), out);
}

// Kept: the same command as without the cache; the module tells them apart by the flag.
int32_t LUMOZEPH_GetLifStatsCached(const char* instance, const char* lif, LumoStats** out)
{
    if (any_null(instance))
        return fail(EINVAL);
    return get_one(Command::GetLifStats, Request(instance_key(instance), lif_name(lif), cached), out);
}

int32_t LUMOZEPH_ResetLifStats(const char* instance, const char* lif)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::ResetLifStats, Request(instance_key(instance), lif_name(lif)));
}

int32_t LUMOZEPH_GetLumoDiStats(LumoStats** out)
{
    return get_one(Command::GetLumoDiStats, Request(), out);
}

int32_t LUMOZEPH_ResetLumoDiStats()
{
    return send(Command::ResetLumoDiStats, Request());
}

int32_t LUMOZEPH_ReleaseStats(void* record)
{
    return release(record);
}
