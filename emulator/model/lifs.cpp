// Logical interfaces: routed ones, and bridge LIFs.
#include "emulator/protocol/lifs.h"

#include "emulator/model/addresses.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"
#include "emulator/model/subnets.h"

namespace emulator {

using namespace protocol;

namespace {

void write(const Lif& lif, Exchange& exchange)
{
    namespace to = lifs::record;
    const Record record = exchange.add(to::layout);
    record[to::name] = lif.name;
    record[to::aux_name] = lif.aux_name;
    record[to::address] = lif.address;
    record[to::mask] = lif.mask;
    record[to::di_address] = lif.di_address;
    record[to::mac] = lif.mac;
    record[to::param_a] = lif.param_a;
    record[to::param_b] = lif.param_b;
    record[to::param_c] = lif.param_c;
    record[to::up] = lif.enabled;
    record[to::vxlan_control_plane] = lif.vxlan_control_plane;
    record[to::multicast_routing] = lif.multicast_routing;
    record[to::bridge_lif] = lif.kind == LifKind::Bridge;
    record[to::relay_count] = lif.dhcp_relay.count;
    for (std::size_t i = 0; i < lif.dhcp_relay.servers.size(); ++i) {
        record[to::relay_servers][i][dhcp_relay::server::address] = lif.dhcp_relay.servers[i].address;
        record[to::relay_servers][i][dhcp_relay::server::family] = lif.dhcp_relay.servers[i].family;
    }
    for (std::size_t i = 0; i < lif.ipv6.size(); ++i) {
        record[to::ipv6][i][lifs::ipv6_entry::address] = lif.ipv6[i].address;
        record[to::ipv6][i][lifs::ipv6_entry::prefix_len] = lif.ipv6[i].prefix_length;
    }
    record[to::ipv6_count] = static_cast<std::uint32_t>(lif.ipv6.size());
    record[to::ra_mtu] = lif.ra_mtu;
}

// The LIF to be set, created if need be; null with an errno if that cannot be.
Lif* lif_to_set(Exchange& exchange, LifKind kind, int& error)
{
    Instance* instance = instance_of(exchange);
    const std::string name = exchange.request[lifs::lif];
    error = instance == nullptr ? ENOENT : name.empty() ? EINVAL : 0;
    if (error != 0)
        return nullptr;
    Lif* lif = instance->lifs.find(name);
    if (lif != nullptr) {
        // A name belongs to one LIF, of either kind.
        error = lif->kind == kind ? 0 : EEXIST;
        return error == 0 ? lif : nullptr;
    }
    if (instance->lifs.size() == lifs::most) {
        error = ENOSPC;
        return nullptr;
    }
    Lif created;
    created.created = instance->lifs_created++;
    created.kind = kind;
    created.name = name;
    return &instance->lifs.add(std::move(created));
}

int set_routed(Exchange& exchange)
{
    const Instance* before = instance_of(exchange);
    if (before == nullptr)
        return ENOENT;
    if (exchange.state.is_strict() && !is_contiguous(exchange.request[lifs::mask]))
        return EINVAL;
    const Lif* existing = lif_of(exchange);
    if (existing != nullptr && existing->enabled && existing->address == 0 && exchange.request[lifs::address] != 0 &&
        !has_room_for_a_subnet(*before))
        return ENOSPC;
    int error = 0;
    Lif* lif = lif_to_set(exchange, LifKind::Routed, error);
    if (lif == nullptr)
        return error;
    Instance& instance = *instance_of(exchange);
    lif->aux_name = exchange.request[lifs::aux_name];
    leave_subnet(instance, *lif);
    lif->address = exchange.request[lifs::address];
    lif->mask = exchange.request[lifs::mask];
    join_subnet(instance, *lif);
    lif->di_address = exchange.request[lifs::di_address];
    lif->mac = exchange.request[lifs::mac];
    lif->param_a = exchange.request[lifs::param_a];
    lif->param_b = exchange.request[lifs::param_b];
    lif->param_c = exchange.request[lifs::param_c];
    return 0;
}

// A second name is that of the LIF's bridge.
int set_bridge(Exchange& exchange)
{
    const std::string bridge = exchange.request[lifs::aux_name];
    if (exchange.state.is_strict() && !bridge.empty() && exchange.state.bridges.find(bridge) == nullptr)
        return ENOENT;
    int error = 0;
    Lif* lif = lif_to_set(exchange, LifKind::Bridge, error);
    if (lif == nullptr)
        return error;
    detach_lif(exchange.state, *lif);
    lif->aux_name = bridge;
    attach_lif(exchange.state, *instance_of(exchange), *lif);
    lif->di_address = exchange.request[lifs::di_value];
    lif->param_a = exchange.request[lifs::param_a];
    lif->param_b = exchange.request[lifs::param_b];
    return 0;
}

template <LifKind Kind>
int remove(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        if (lif.kind != Kind)
            return ENOENT;
        remove_lif(exchange.state, *instance_of(exchange), lif);
        return 0;
    });
}

template <LifKind Kind>
int get_one(Exchange& exchange)
{
    return on_lif(exchange, [&](const Lif& lif) {
        if (lif.kind != Kind)
            return ENOENT;
        write(lif, exchange);
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
            write(lif, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"SetLif", set_routed},
    {"DelLif", remove<LifKind::Routed>},
    {"GetLifs", get_all<LifKind::Routed>},
    {"GetLif", get_one<LifKind::Routed>},
    {"SetBridgeLifOn", set_bridge},
    {"SetBridgeLifOff", remove<LifKind::Bridge>},
    {"GetBridgeLifs", get_all<LifKind::Bridge>},
    {"GetBridgeLif", get_one<LifKind::Bridge>},
};

} // namespace

const Handlers handlers::lifs(lifs::commands, answers);

} // namespace emulator
