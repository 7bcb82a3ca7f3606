// Addresses and options of LIFs, of either kind.
#include "emulator/protocol/lif_options.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

int set_address(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.address = exchange.request[lif_options::address];
        lif.mask = exchange.request[lif_options::mask];
        return 0;
    });
}

int remove_address(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        if (lif.address != exchange.request[lif_options::address] || lif.mask != exchange.request[lif_options::mask])
            return EADDRNOTAVAIL;
        lif.address = 0;
        lif.mask = 0;
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
        const Ipv6Address address = exchange.request[lif_options::ipv6_address];
        auto ipv6 = find_ipv6(lif, address);
        if (ipv6 == lif.ipv6.end()) {
            if (lif.ipv6.size() == lifs::most_ipv6)
                return ENOSPC;
            ipv6 = lif.ipv6.insert(lif.ipv6.end(), {address, 0});
        }
        ipv6->prefix_length = exchange.request[lif_options::prefix_len];
        return 0;
    });
}

int remove_ipv6(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        const auto ipv6 = find_ipv6(lif, exchange.request[lif_options::ipv6_address]);
        if (ipv6 == lif.ipv6.end() || ipv6->prefix_length != exchange.request[lif_options::prefix_len])
            return EADDRNOTAVAIL;
        lif.ipv6.erase(ipv6);
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
    {"EnableLif", turn<&Lif::enabled, true>},
    {"DisableLif", turn<&Lif::enabled, false>},
    {"SetLifVxlanMulticastIp", set_number<&Lif::vxlan_multicast, lif_options::vxlan_multicast>},
    {"SetLifIpv6", add_ipv6},
    {"DelLifIpv6", remove_ipv6},
    {"SetLifMcastRoutingOn", turn<&Lif::multicast_routing, true>},
    {"SetLifMcastRoutingOff", turn<&Lif::multicast_routing, false>},
    {"SetMcastRouting", set_instance_multicast},
    {"RAMTUSetv6", set_number<&Lif::ra_mtu, lif_options::mtu>},
};

} // namespace

const Handlers handlers::lif_options(lif_options::commands, answers);

} // namespace emulator
