// Logical interfaces: routed ones, and bridge LIFs.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

constexpr std::size_t most_lifs = 10000; // of one instance, routed and bridge LIFs together
constexpr std::size_t record_size = 576;

std::string lif_name(const Exchange& exchange)
{
    return exchange.request.text(192, 64);
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

constexpr Handler answers[] = {
    {19, request_record, set_routed},
    {20, request_record, remove<LifKind::Routed>},
    {21, request_record, get_all<LifKind::Routed>},
    {22, request_record, get_one<LifKind::Routed>},
    {57, request_record, set_bridge},
    {58, request_record, remove<LifKind::Bridge>},
    {59, request_record, get_all<LifKind::Bridge>},
    {60, request_record, get_one<LifKind::Bridge>},
};

} // namespace

const std::span<const Handler> handlers::lifs = answers;

} // namespace emulator
