// ARP entries, IPv6 neighbours, and proxy entries of both.
#include "emulator/protocol/neighbours.h"

#include "emulator/model/addresses.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"

namespace emulator {

using namespace protocol;

namespace {

Entry entry_of(const Exchange& exchange)
{
    return exchange.request[neighbours::proxy] ? Entry::Proxy : Entry::Plain;
}

// The neighbour that a set or delete names, with no MAC address.
template <Family Of>
Neighbour named_by(const Exchange& exchange)
{
    const Input& request = exchange.request;
    Neighbour neighbour;
    neighbour.family = Of;
    neighbour.entry = entry_of(exchange);
    if constexpr (Of == Family::Ipv4) {
        neighbour.ipv4_address = request[neighbours::arp::address];
        neighbour.lif = request[neighbours::lif];
    } else {
        neighbour.ipv6_address = request[neighbours::ipv6::address];
        neighbour.lif = request[neighbours::ipv6::lif];
    }
    return neighbour;
}

template <Family Of>
int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    Neighbour neighbour = named_by<Of>(exchange);
    if (instance == nullptr || instance->lifs.find(neighbour.lif) == nullptr)
        return ENOENT;
    neighbour.mac =
        Of == Family::Ipv4 ? exchange.request[neighbours::arp::mac] : exchange.request[neighbours::ipv6::mac];
    // The library sends none with a proxy entry.
    const bool needs_mac = neighbour.entry == Entry::Plain || !neighbour.mac.empty();
    if (exchange.state.is_strict() && needs_mac && !parse_mac(neighbour.mac))
        return EINVAL;
    auto& all = instance->neighbours;
    if (Neighbour* existing = all.find(neighbour.identity()))
        *existing = neighbour;
    else if (all.size() == neighbours::most)
        return ENOSPC;
    else
        use_lif<&Lif::neighbours>(*instance, neighbour.lif, all.add(neighbour));
    return 0;
}

template <Family Of>
int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Neighbour* neighbour = instance->neighbours.find(named_by<Of>(exchange).identity());
    if (neighbour == nullptr)
        return ENOENT;
    leave_lif<&Lif::neighbours>(*instance, neighbour->lif, *neighbour);
    instance->neighbours.remove(*neighbour);
    return 0;
}

// The reads and clears of both families name the interface in the same place, or none for all.
bool on_interface(const Exchange& exchange, const Neighbour& neighbour)
{
    const std::string lif = exchange.request[neighbours::lif];
    return lif.empty() || lif == neighbour.lif;
}

template <Family Of>
void write(const Neighbour& neighbour, Exchange& exchange)
{
    namespace to = neighbours::entry;
    const Record record = exchange.add(Of == Family::Ipv4 ? to::of_arp : to::of_ipv6);
    if constexpr (Of == Family::Ipv4)
        record[to::ipv4_address] = neighbour.ipv4_address;
    else
        record[to::ipv6_address] = neighbour.ipv6_address;
    record[to::lif] = neighbour.lif;
    record[to::mac] = neighbour.mac;
    record[to::proxy] = neighbour.entry == Entry::Proxy;
    record[to::present] = true;
}

template <Family Of>
int dump(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Entry entry : {Entry::Plain, Entry::Proxy}) {
        // Only ARP has a table of its own for proxy entries; that of neighbours holds both, these last.
        if (Of == Family::Ipv4 && entry != entry_of(exchange))
            continue;
        for (const Neighbour& neighbour : instance->neighbours)
            if (neighbour.family == Of && neighbour.entry == entry && on_interface(exchange, neighbour))
                write<Of>(neighbour, exchange);
    }
    // An entry of zeros ends the dump.
    exchange.add(Of == Family::Ipv4 ? neighbours::entry::of_arp : neighbours::entry::of_ipv6);
    return 0;
}

template <Family Of>
int clear(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    instance->neighbours.remove_all([&](const Neighbour& neighbour) {
        const bool is_meant = neighbour.family == Of && on_interface(exchange, neighbour);
        if (is_meant)
            leave_lif<&Lif::neighbours>(*instance, neighbour.lif, neighbour);
        return is_meant;
    });
    return 0;
}

constexpr Handler answers[] = {
    {"SetArp", set<Family::Ipv4>},
    {"DelArp", remove<Family::Ipv4>},
    {"GetArps", dump<Family::Ipv4>},
    {"ClearArp", clear<Family::Ipv4>},
    {"SetArpv6", set<Family::Ipv6>},
    {"DelArpv6", remove<Family::Ipv6>},
    {"GetArpsv6", dump<Family::Ipv6>},
    {"ClearArpv6", clear<Family::Ipv6>},
};

} // namespace

const Handlers handlers::neighbours(neighbours::commands, answers);

} // namespace emulator
