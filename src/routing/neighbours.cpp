#include "channel/device.h"
#include "channel/fail.h"
#include "lumozeph.h"
#include "routing/fields.h"

using namespace lumo;

namespace {

constexpr uint32_t table_size = 7471104;

} // namespace

int32_t LUMOZEPH_SetArp(uint32_t address, const char* mac, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetArp, Request(instance_key(instance), arp_ip(address), lif_name(lif), arp_mac_text(mac)));
}

int32_t LUMOZEPH_DelArp(uint32_t address, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelArp, Request(instance_key(instance), arp_ip(address), lif_name(lif)));
}

// Kept: the same commands as for plain entries; the module tells them apart by the marker.
int32_t LUMOZEPH_SetProxyArp(uint32_t address, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetArp, Request(instance_key(instance), arp_ip(address), lif_name(lif), is_proxy));
}

int32_t LUMOZEPH_DelProxyArp(uint32_t address, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelArp, Request(instance_key(instance), arp_ip(address), lif_name(lif), is_proxy));
}

int32_t LUMOZEPH_GetArps(const char* instance, const char* lif, void* buffer)
{
    return read_raw(Command::GetArps, Request(instance_key(instance), lif_name.if_given(lif)), buffer, table_size);
}

int32_t LUMOZEPH_GetProxyArps(const char* instance, const char* lif, void* buffer)
{
    return read_raw(
        Command::GetArps, Request(instance_key(instance), lif_name.if_given(lif), is_proxy), buffer, table_size);
}

int32_t LUMOZEPH_ClearArp(const char* instance, const char* lif)
{
    return send(Command::ClearArp, Request(instance_key(instance), lif_name.if_given(lif)));
}

// Kept: the only IPv6 command here whose texts are terminated.
int32_t LUMOZEPH_ClearArpv6(const char* instance, const char* lif)
{
    return send(Command::ClearArpv6, Request(instance_key(instance), lif_name.if_given(lif)));
}

int32_t LUMOZEPH_SetArpv6(uint64_t word1, uint64_t word2, const char* mac, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetArpv6,
        Request(unterminated_instance_key(instance), arp6_lif_name(lif), arp6_ip(word1, word2), arp6_mac_text(mac)));
}

int32_t LUMOZEPH_DelArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(
        Command::DelArpv6, Request(unterminated_instance_key(instance), arp6_lif_name(lif), arp6_ip(word1, word2)));
}

int32_t LUMOZEPH_SetProxyArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetArpv6,
        Request(unterminated_instance_key(instance), arp6_lif_name(lif), arp6_ip(word1, word2), is_proxy));
}

int32_t LUMOZEPH_DelProxyArpv6(uint64_t word1, uint64_t word2, const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelArpv6,
        Request(unterminated_instance_key(instance), arp6_lif_name(lif), arp6_ip(word1, word2), is_proxy));
}

// Kept: the interface lies where the IPv4 commands have it, not where the set and delete of a neighbour have it.
int32_t LUMOZEPH_GetArpsv6(const char* instance, const char* lif, void* buffer)
{
    return read_raw(Command::GetArpsv6,
        Request(unterminated_instance_key(instance), unterminated_lif_name.if_given(lif)), buffer, table_size);
}
