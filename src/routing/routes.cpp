#include "channel/read.h"
#include "lumozeph.h"
#include "routing/fields.h"
#include "routing/records.h"

using namespace lumo;

int32_t LUMOZEPH_SetRoute(uint32_t dest, uint32_t mask, uint32_t gateway, const char* lif, const char* instance,
    uint32_t param, LumoCmdResult* result)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetRoute,
        Request(instance_key(instance), route_dest(dest), route_mask(mask), route_gateway(gateway), route_param(param),
            route_lif_name.if_given(lif)),
        result);
}

// Kept: the delete carries no route_param.
int32_t LUMOZEPH_DelRoute(
    uint32_t dest, uint32_t mask, uint32_t gateway, const char* lif, const char* instance, LumoCmdResult* result)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelRoute,
        Request(instance_key(instance), route_dest(dest), route_mask(mask), route_gateway(gateway),
            route_lif_name.if_given(lif)),
        result);
}

int32_t LUMOZEPH_GetRoutes(const char* instance, LumoRouteList** out)
{
    return get_list(Command::GetRoutes, Request(instance_key(instance)), routes, out);
}

int32_t LUMOZEPH_GetResolveRoute(
    const char* instance, uint32_t dest, uint32_t mask, uint32_t param, LumoRouteInfo** out)
{
    if (any_null(instance))
        return fail(EINVAL);
    return get_one(Command::GetResolveRoute,
        Request(instance_key(instance), route_dest(dest), route_mask(mask), resolve_param(param)), out);
}

int32_t LUMOZEPH_ReleaseRoute(LumoRouteInfo* route)
{
    return release(route);
}

int32_t LUMOZEPH_ReleaseRoutes(LumoRouteList* list)
{
    return release_list(list);
}
