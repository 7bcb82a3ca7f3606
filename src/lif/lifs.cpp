#include "channel/read.h"
#include "lif/fields.h"
#include "lif/records.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_SetLif(const char* lif, const char* auxName, uint32_t address, uint32_t mask, uint32_t paramA,
    uint32_t paramB, uint32_t diAddress, uint32_t paramC, const char* instance, const uint8_t* mac)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetLif,
        Request(instance_key(instance), lif_aux_name(auxName), lif_name(lif), ip_addr(address), ip_mask(mask),
            di_ip(diAddress), lif_mac.if_given(mac), lif_param_a(paramA), lif_param_b(paramB), lif_param_c(paramC)));
}

int32_t LUMOZEPH_DelLif(const char* lif, const char* auxName, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelLif, Request(instance_key(instance), lif_aux_name(auxName), lif_name(lif)));
}

// Kept: no argument is tested.
int32_t LUMOZEPH_SetBridgeLif(const char* lif, const char* auxName, uint32_t paramA, uint32_t paramB, uint32_t diValue,
    const char* instance, int add)
{
    return send(add != 0 ? Command::SetBridgeLifOn : Command::SetBridgeLifOff,
        Request(instance_key(instance), lif_aux_name(auxName), lif_name(lif), di_ip(diValue), lif_param_a(paramA),
            lif_param_b(paramB)));
}

int32_t LUMOZEPH_GetLif(const char* instance, const char* lif, LumoLifInfo** out)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return get_one(Command::GetLif, Request(instance_key(instance), lif_name(lif)), out);
}

int32_t LUMOZEPH_GetBridgeLif(const char* instance, const char* lif, LumoLifInfo** out)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return get_one(Command::GetBridgeLif, Request(instance_key(instance), lif_name(lif)), out);
}

int32_t LUMOZEPH_GetLifs(const char* instance, LumoLifList** out)
{
    return get_list(Command::GetLifs, Request(instance_key(instance)), lifs, out);
}

int32_t LUMOZEPH_GetBridgeLifs(const char* instance, LumoLifList** out)
{
    return get_list(Command::GetBridgeLifs, Request(instance_key(instance)), bridge_lifs, out);
}

int32_t LUMOZEPH_ReleaseLif(LumoLifInfo* lif)
{
    return release(lif);
}

int32_t LUMOZEPH_ReleaseLifs(LumoLifList* list)
{
    return release_list(list);
}
