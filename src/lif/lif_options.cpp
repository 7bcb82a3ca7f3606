#include "channel/device.h"
#include "channel/fail.h"
#include "lif/fields.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_SetLifIp(const char* instance, const char* lif, uint32_t address, uint32_t mask)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::SetLifIp, Request(instance_key(instance), lif_name(lif), ip_addr(address), ip_mask(mask)));
}

// Kept: the removal carries the mask, too.
int32_t LUMOZEPH_DelLifIp(const char* instance, const char* lif, uint32_t address, uint32_t mask)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::DelLifIp, Request(instance_key(instance), lif_name(lif), ip_addr(address), ip_mask(mask)));
}

int32_t LUMOZEPH_SetLifDIIp(const char* instance, const char* lif, uint32_t address)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::SetLifDIIp, Request(instance_key(instance), lif_name(lif), di_ip(address)));
}

int32_t LUMOZEPH_SetLifVxlanMulticastIp(const char* instance, const char* lif, uint32_t address)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::SetLifVxlanMulticastIp, Request(instance_key(instance), lif_name(lif), di_ip(address)));
}

int32_t LUMOZEPH_SetLifVxlanCP(const char* instance, const char* lif)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::SetLifVxlanCP, Request(instance_key(instance), lif_name(lif)));
}

int32_t LUMOZEPH_DelLifVxlanCP(const char* instance, const char* lif)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::DelLifVxlanCP, Request(instance_key(instance), lif_name(lif)));
}

int32_t LUMOZEPH_EnableLif(const char* instance, const char* lif)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::EnableLif, Request(instance_key(instance), lif_name(lif)));
}

int32_t LUMOZEPH_DisableLif(const char* instance, const char* lif)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::DisableLif, Request(instance_key(instance), lif_name(lif)));
}

// Kept: the flag chooses the command and is not sent.
int32_t LUMOZEPH_SetLifMcastRouting(const char* instance, const char* lif, uint8_t on)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(on != 0 ? Command::SetLifMcastRoutingOn : Command::SetLifMcastRoutingOff,
        Request(instance_key(instance), lif_name(lif)));
}

// Kept: neither text is tested.
int32_t LUMOZEPH_RAMTUSetv6(const char* instance, const char* lif, uint32_t mtu)
{
    return send(Command::RAMTUSetv6, Request(instance_key(instance), ra_mtu(mtu), lif_name(lif)));
}

// Kept: the interface's name goes into two fields.
int32_t LUMOZEPH_SetLifIpv6(const char* instance, const char* lif, uint64_t word1, uint64_t word2, uint32_t prefixLen)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::SetLifIpv6,
        Request(unterminated_instance_key(instance), lif_ipv6_addr(word1, word2), lif_ipv6_name(lif),
            lif_ipv6_prefix_len(static_cast<uint8_t>(prefixLen)), unterminated_lif_name(lif)));
}

// Kept: the removal carries the prefix length, too.
int32_t LUMOZEPH_DelLifIpv6(const char* instance, const char* lif, uint64_t word1, uint64_t word2, uint32_t prefixLen)
{
    if (any_null(instance, lif))
        return fail(EINVAL);
    return send(Command::DelLifIpv6,
        Request(unterminated_instance_key(instance), lif_ipv6_addr(word1, word2), lif_ipv6_name(lif),
            lif_ipv6_prefix_len(static_cast<uint8_t>(prefixLen)), unterminated_lif_name(lif)));
}

// Kept: only the instance is tested.
int32_t LUMOZEPH_SetMcastRouting(
    const char* instance, const char* name, uint32_t value1, uint32_t value2, uint16_t value3, uint8_t value4)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetMcastRouting, Request(instance_key(instance), mcast_name(name), mcast_value1(value1),
                                              mcast_value2(value2), mcast_value3(value3), mcast_value4(value4)));
}
