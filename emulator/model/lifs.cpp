// Logical interfaces, their addresses and options.
#include "emulator/model/state.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_lifs = 10000; // of one instance, routed and bridge LIFs together
constexpr std::size_t most_ipv6 = 10;
constexpr std::size_t record_size = 576;

std::string lif_name(const Exchange& exchange)
{
    return exchange.request.text(192, 64);
}

// Finds the LIF that the request names and hands it to change.
template <class Change>
int on_lif(Exchange& exchange, Change change)
{
    Instance* instance = instance_of(exchange);
    Lif* lif = instance == nullptr ? nullptr : instance->find_lif(lif_name(exchange));
    return lif == nullptr ? ENOENT : change(*lif);
}

void write(const Lif& lif, std::vector<std::byte>& reply)
{
    Record record(reply, record_size);
    record.text(0, 64, lif.name).text(64, 64, lif.aux_name);
    record.u32(128, lif.address).u32(132, lif.mask).u32(136, lif.di_address).bytes(140, lif.mac);
    record.u32(146, lif.param_a).u32(150, lif.param_b).u32(154, lif.param_c);
    record.u8(158, lif.enabled).u8(159, lif.vxlan_control_plane).u8(160, lif.multicast_routing);
    record.u8(161, lif.kind == LifKind::Bridge);
    record.bytes(162, lif.dhcp_relay);
    for (std::size_t i = 0; i < lif.ipv6.size(); ++i)
        record.bytes(326 + 24 * i, lif.ipv6[i].address).u32(326 + 24 * i + 16, lif.ipv6[i].prefix_length);
    record.u32(566, static_cast<std::uint32_t>(lif.ipv6.size()));
    record.u32(572, lif.ra_mtu);
}

// The LIF to be set, created if need be; null with an errno if that cannot be.
Lif* lif_to_set(Exchange& exchange, LifKind kind, int& error)
{
    Instance* instance = instance_of(exchange);
    const std::string name = lif_name(exchange);
    error = instance == nullptr ? ENOENT : name.empty() ? EINVAL : 0;
    if (error != 0)
        return nullptr;
    Lif* lif = instance->find_lif(name);
    if (lif != nullptr) {
        // A name belongs to one LIF, of either kind.
        error = lif->kind == kind ? 0 : EEXIST;
        return error == 0 ? lif : nullptr;
    }
    if (instance->lifs.size() == most_lifs) {
        error = ENOSPC;
        return nullptr;
    }
    lif = &instance->lifs.emplace_back();
    lif->kind = kind;
    lif->name = name;
    return lif;
}

int set_routed(Exchange& exchange)
{
    int error = 0;
    Lif* lif = lif_to_set(exchange, LifKind::Routed, error);
    if (lif == nullptr)
        return error;
    lif->aux_name = exchange.request.text(64, 64);
    lif->address = exchange.request.u32(320);
    lif->mask = exchange.request.u32(324);
    lif->di_address = exchange.request.u32(328);
    lif->mac = exchange.request.bytes<6>(332);
    lif->param_a = exchange.request.u32(352);
    lif->param_b = exchange.request.u32(356);
    lif->param_c = exchange.request.u32(360);
    return 0;
}

int set_bridge(Exchange& exchange)
{
    int error = 0;
    Lif* lif = lif_to_set(exchange, LifKind::Bridge, error);
    if (lif == nullptr)
        return error;
    lif->aux_name = exchange.request.text(64, 64);
    lif->di_address = exchange.request.u32(328);
    lif->param_a = exchange.request.u32(352);
    lif->param_b = exchange.request.u32(356);
    return 0;
}

template <LifKind Kind>
int remove(Exchange& exchange)
{
    return on_lif(exchange, [&](const Lif& lif) {
        if (lif.kind != Kind)
            return ENOENT;
        auto& lifs = instance_of(exchange)->lifs;
        lifs.erase(lifs.begin() + (&lif - lifs.data()));
        return 0;
    });
}

template <LifKind Kind>
int get_one(Exchange& exchange)
{
    return on_lif(exchange, [&](const Lif& lif) {
        if (lif.kind != Kind)
            return ENOENT;
        write(lif, exchange.reply);
        return 0;
    });
}

template <LifKind Kind>
int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Lif& lif : instance->lifs)
        if (lif.kind == Kind)
            write(lif, exchange.reply);
    return 0;
}

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

int set_dhcp_relay(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.dhcp_relay = exchange.request.bytes<164>(364);
        return 0;
    });
}

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

constexpr Command commands[] = {
    {19, request_record, set_routed},
    {20, request_record, remove<LifKind::Routed>},
    {21, request_record, get_all<LifKind::Routed>},
    {22, request_record, get_one<LifKind::Routed>},
    {25, request_record, set_number<&Lif::di_address, 328>},
    {26, request_record, set_address},
    {27, request_record, remove_address},
    {28, request_record, turn<&Lif::vxlan_control_plane, true>},
    {29, request_record, turn<&Lif::vxlan_control_plane, false>},
    {30, request_record, turn<&Lif::enabled, true>},
    {31, request_record, turn<&Lif::enabled, false>},
    {32, request_record, set_number<&Lif::vxlan_multicast, 328>},
    {33, request_record, set_dhcp_relay},
    {57, request_record, set_bridge},
    {58, request_record, remove<LifKind::Bridge>},
    {59, request_record, get_all<LifKind::Bridge>},
    {60, request_record, get_one<LifKind::Bridge>},
    {108, request_record, add_ipv6},
    {109, request_record, remove_ipv6},
    {125, request_record, turn<&Lif::multicast_routing, true>},
    {126, request_record, turn<&Lif::multicast_routing, false>},
    {127, request_record, set_instance_multicast},
    {152, request_record, set_number<&Lif::ra_mtu, 64>},
};

} // namespace

Lif* Instance::find_lif(const std::string& lif_name)
{
    const auto found = std::find_if(lifs.begin(), lifs.end(), [&](const Lif& lif) { return lif.name == lif_name; });
    return found == lifs.end() ? nullptr : &*found;
}

std::span<const Command> lif_commands()
{
    return commands;
}

} // namespace emulator
