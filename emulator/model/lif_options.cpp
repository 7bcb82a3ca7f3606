// Addresses and options of LIFs, of either kind.
#include "emulator/protocol/lif_options.h"

#include "emulator/model/addresses.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/subnets.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

// What an address, a mask or the state of a LIF says of the networks that it is on.
template <class Change>
void move(Exchange& exchange, Lif& lif, Change change)
{
    Instance& instance = *instance_of(exchange);
    leave_subnet(instance, lif);
    change();
    join_subnet(instance, lif);
}

int move_to(Exchange& exchange, Lif& lif, std::uint32_t address, std::uint32_t mask)
{
    if (exchange.state.is_strict() && !is_contiguous(mask))
        return EINVAL;
    if (lif.enabled && lif.address == 0 && address != 0 && !has_room_for_a_subnet(*instance_of(exchange)))
        return ENOSPC;
    move(exchange, lif, [&] {
        lif.address = address;
        lif.mask = mask;
    });
    return 0;
}

int set_address(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        return move_to(exchange, lif, exchange.request[lif_options::address], exchange.request[lif_options::mask]);
    });
}

int remove_address(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        if (lif.address != exchange.request[lif_options::address] || lif.mask != exchange.request[lif_options::mask])
            return EADDRNOTAVAIL;
        return move_to(exchange, lif, 0, 0);
    });
}

template <bool Value>
int enable(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        const Instance& instance = *instance_of(exchange);
        const bool has_room =
            (lif.address == 0 || has_room_for_a_subnet(instance)) && has_room_for_subnets6(instance, lif.ipv6.size());
        if (Value && !lif.enabled && !has_room)
            return ENOSPC;
        move(exchange, lif, [&] { lif.enabled = Value; });
        return 0;
    });
}

template <auto Member, const auto& Sent>
int set_number(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.*Member = exchange.request[Sent];
        return 0;
    });
}

template <bool Lif::*Switch, bool Value>
int turn(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.*Switch = Value;
        return 0;
    });
}

auto find_ipv6(Lif& lif, const Ipv6Address& address)
{
    return std::find_if(lif.ipv6.begin(), lif.ipv6.end(), [&](const LifIpv6& ipv6) { return ipv6.address == address; });
}

int add_ipv6(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        const LifIpv6 added {exchange.request[lif_options::ipv6_address], exchange.request[lif_options::prefix_len]};
        if (exchange.state.is_strict() && added.prefix_length > longest_prefix)
            return EINVAL;
        const auto ipv6 = find_ipv6(lif, added.address);
        const bool has_room =
            lif.ipv6.size() < lifs::most_ipv6 && (!lif.enabled || has_room_for_subnets6(*instance_of(exchange), 1));
        if (ipv6 == lif.ipv6.end() && !has_room)
            return ENOSPC;
        move(exchange, lif, [&] {
            if (ipv6 == lif.ipv6.end())
                lif.ipv6.push_back(added);
            else
                *ipv6 = added;
        });
        return 0;
    });
}

int remove_ipv6(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        const auto ipv6 = find_ipv6(lif, exchange.request[lif_options::ipv6_address]);
        if (ipv6 == lif.ipv6.end() || ipv6->prefix_length != exchange.request[lif_options::prefix_len])
            return EADDRNOTAVAIL;
        move(exchange, lif, [&] { lif.ipv6.erase(ipv6); });
        return 0;
    });
}

int set_ra_mtu(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        const std::uint32_t mtu = exchange.request[lif_options::mtu];
        if (exchange.state.is_strict() && !is_ra_mtu(mtu))
            return EINVAL;
        lif.ra_mtu = mtu;
        return 0;
    });
}

int set_instance_multicast(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Input& request = exchange.request;
    instance->multicast = {request[lif_options::name], request[lif_options::value1], request[lif_options::value2],
        request[lif_options::value3], request[lif_options::value4]};
    return 0;
}

constexpr Handler answers[] = {
    {"SetLifDIIp", set_number<&Lif::di_address, lif_options::di_address>},
    {"SetLifIp", set_address},
    {"DelLifIp", remove_address},
    {"SetLifVxlanCP", turn<&Lif::vxlan_control_plane, true>},
    {"DelLifVxlanCP", turn<&Lif::vxlan_control_plane, false>},
    {"EnableLif", enable<true>},
    {"DisableLif", enable<false>},
    {"SetLifVxlanMulticastIp", set_number<&Lif::vxlan_multicast, lif_options::vxlan_multicast>},
    {"SetLifIpv6", add_ipv6},
    {"DelLifIpv6", remove_ipv6},
    {"SetLifMcastRoutingOn", turn<&Lif::multicast_routing, true>},
    {"SetLifMcastRoutingOff", turn<&Lif::multicast_routing, false>},
    {"SetMcastRouting", set_instance_multicast},
    {"RAMTUSetv6", set_ra_mtu},
};

} // namespace

const Handlers handlers::lif_options(lif_options::commands, answers);

} // namespace emulator
