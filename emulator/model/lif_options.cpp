// Addresses and options of LIFs, of either kind.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

int set_address(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.address = exchange.request.u32(320);
        lif.mask = exchange.request.u32(324);
        return 0;
    });
}

int remove_address(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        if (lif.address != exchange.request.u32(320) || lif.mask != exchange.request.u32(324))
            return EADDRNOTAVAIL;
        lif.address = 0;
        lif.mask = 0;
        return 0;
    });
}

template <auto Member, std::size_t Offset>
int set_number(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.*Member = exchange.request.u32(Offset);
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

constexpr std::size_t most_ipv6 = 10;

auto find_ipv6(Lif& lif, const Exchange& exchange)
{
    return std::find_if(lif.ipv6.begin(), lif.ipv6.end(),
        [address = exchange.request.bytes<16>(64)](const LifIpv6& ipv6) { return ipv6.address == address; });
}

int add_ipv6(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        auto ipv6 = find_ipv6(lif, exchange);
        if (ipv6 == lif.ipv6.end()) {
            if (lif.ipv6.size() == most_ipv6)
                return ENOSPC;
            ipv6 = lif.ipv6.insert(lif.ipv6.end(), {exchange.request.bytes<16>(64), 0});
        }
        ipv6->prefix_length = exchange.request.u8(148);
        return 0;
    });
}

int remove_ipv6(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        const auto ipv6 = find_ipv6(lif, exchange);
        if (ipv6 == lif.ipv6.end() || ipv6->prefix_length != exchange.request.u8(148))
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
    const Request& request = exchange.request;
    instance->multicast = {request.text(64, 64), request.u32(128), request.u32(132), request.u16(136), request.u8(138)};
    return 0;
}

constexpr Handler answers[] = {
    {25, request_record, set_number<&Lif::di_address, 328>},
    {26, request_record, set_address},
    {27, request_record, remove_address},
    {28, request_record, turn<&Lif::vxlan_control_plane, true>},
    {29, request_record, turn<&Lif::vxlan_control_plane, false>},
    {30, request_record, turn<&Lif::enabled, true>},
    {31, request_record, turn<&Lif::enabled, false>},
    {32, request_record, set_number<&Lif::vxlan_multicast, 328>},
    {108, request_record, add_ipv6},
    {109, request_record, remove_ipv6},
    {125, request_record, turn<&Lif::multicast_routing, true>},
    {126, request_record, turn<&Lif::multicast_routing, false>},
    {127, request_record, set_instance_multicast},
    {152, request_record, set_number<&Lif::ra_mtu, 64>},
};

} // namespace

const std::span<const Handler> handlers::lif_options = answers;

} // namespace emulator
