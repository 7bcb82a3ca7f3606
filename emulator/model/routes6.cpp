// IPv6 routes and the path-MTU table.
#include "emulator/protocol/routes6.h"

#include "emulator/model/addresses.h"
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"
#include "emulator/model/subnets.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

Route6 route_of(const Exchange& exchange)
{
    const Input& request = exchange.request;
    return {request[routes6::dest], request[routes6::prefix_len], request[routes6::gateway], request[routes6::lif]};
}

// A next hop is on a network of its LIF, or of any if it names none. Every LIF is on the network of local addresses.
int reach(const Instance& instance, const Lif* lif, const Ipv6Address& gateway)
{
    if (lif == nullptr)
        return is_on_any_subnet(instance, gateway) ? 0 : ENETUNREACH;
    if (!lif->enabled)
        return ENETDOWN;
    const bool is_on_its_network = std::any_of(lif->ipv6.begin(), lif->ipv6.end(), [&](const LifIpv6& own) {
        return network_of(gateway, own.prefix_length) == network_of(own.address, own.prefix_length);
    });
    return gateway == Ipv6Address {} || is_link_local(gateway) || is_on_its_network ? 0 : ENETUNREACH;
}

int check(Exchange& exchange, Instance& instance)
{
    const std::string name = exchange.request[routes6::lif];
    const Lif* lif = instance.lifs.find(name);
    if (lif == nullptr && !name.empty())
        return ENOENT;
    const Ipv6Address dest = exchange.request[routes6::dest];
    const std::uint8_t length = exchange.request[routes6::prefix_len];
    if (length > longest_prefix || dest != network_of(dest, length))
        return EINVAL;
    return reach(instance, lif, exchange.request[routes6::gateway]);
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    if (const int error = exchange.state.is_strict() ? check(exchange, *instance) : 0; error != 0)
        return error;
    const Route6 route = route_of(exchange);
    if (instance->routes6.find(route.identity()) != nullptr)
        return 0;
    if (!has_room_for_subnets6(*instance, 1))
        return ENOSPC;
    use_lif<&Lif::routes6>(*instance, route.lif, instance->routes6.add(route));
    return 0;
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Route6* route = instance->routes6.find(route_of(exchange).identity());
    if (route == nullptr)
        return ESRCH;
    leave_lif<&Lif::routes6>(*instance, route->lif, *route);
    instance->routes6.remove(*route);
    return 0;
}

int count(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    exchange.add<routes6::count>(
        static_cast<std::uint32_t>(instance->routes6.size() + instance->addresses_on_subnets6));
    return 0;
}

// The network that an address of a LIF is on.
Route6 connected_route(const Lif& lif, const LifIpv6& ipv6)
{
    return {network_of(ipv6.address, ipv6.prefix_length), ipv6.prefix_length, {}, lif.name};
}

void write(const Instance& instance, const Route6& route, Exchange& exchange)
{
    const Record record = exchange.add(routes6::entry);
    record[routes6::instance] = instance.name;
    record[routes6::dest] = route.dest;
    record[routes6::prefix_len] = route.prefix_length;
    record[routes6::gateway] = route.gateway;
    record[routes6::lif] = route.lif;
}

int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Lif& lif : instance->lifs)
        if (lif.enabled)
            for (const LifIpv6& ipv6 : lif.ipv6)
                write(*instance, connected_route(lif, ipv6), exchange);
    for (const Route6& route : instance->routes6)
        write(*instance, route, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"SetRoutev6", set},
    {"DelRoutev6", remove},
    {"GetRoutesv6", get_all},
    {"GetRoutesv6Count", count},
    // The model finds no path MTUs: there is nothing to clear.
    {"PMTUTableCearv6", accepted},
};

} // namespace

const Handlers handlers::routes6(routes6::commands, answers);

} // namespace emulator
