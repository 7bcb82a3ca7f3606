#include "channel/read.h"
#include "lumozeph.h"
#include "routing/fields.h"
#include "routing/records.h"

using namespace lumo;

namespace {

// The kind whose policies apply to what a text names.
constexpr int32_t kind_with_text = 4;

// Kept: the set and the delete ignore the text of every other kind, which the read sends.
const char* text_of(int32_t kind, const char* text)
{
    return kind == kind_with_text ? text : nullptr;
}

} // namespace

int32_t LUMOZEPH_SetLifPolicy(int32_t kind, const char* text, uint32_t dest, uint32_t mask, uint32_t gateway,
    const char* lif, const char* instance, uint32_t param, LumoCmdResult* result)
{
    if (any_null(instance) || (kind == kind_with_text && any_null(text)))
        return fail(EINVAL);
    return send(Command::SetLifPolicy,
        Request(instance_key(instance), route_dest(dest), route_mask(mask), route_gateway(gateway), route_param(param),
            route_lif_name.if_given(lif), policy_kind_text.if_given(text_of(kind, text)), policy_kind(kind)),
        result);
}

int32_t LUMOZEPH_DelLifPolicy(int32_t kind, const char* text, uint32_t dest, uint32_t mask, uint32_t gateway,
    const char* lif, const char* instance, uint32_t param, LumoCmdResult* result)
{
    if (any_null(instance) || (kind == kind_with_text && any_null(text)))
        return fail(EINVAL);
    return send(Command::DelLifPolicy,
        Request(instance_key(instance), route_dest(dest), route_mask(mask), route_gateway(gateway), route_param(param),
            route_lif_name.if_given(lif), policy_kind_text.if_given(text_of(kind, text)), policy_kind(kind)),
        result);
}

int32_t LUMOZEPH_GetLifPolicies(const char* instance, uint32_t kind, const char* text, LumoRouteList** out)
{
    if (kind == kind_with_text && any_null(text))
        return fail(EINVAL);
    return get_list(Command::GetLifPolicies,
        Request(instance_key(instance), policy_kind_text.if_given(text), policy_kind(static_cast<int32_t>(kind))),
        routes, out);
}
