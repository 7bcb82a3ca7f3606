// IPv4 routes. Masks are bit masks, in the byte order of the addresses.
#include "emulator/protocol/routes.h"

#include "emulator/model/addresses.h"
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"
#include "emulator/model/route_record.h"
#include "emulator/model/subnets.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

NextHop next_hop_of(const Exchange& exchange)
{
    return {exchange.request[routes::gateway], exchange.request[routes::lif]};
}

// The network that a LIF is on.
Route connected_route(const Lif& lif)
{
    return {lif.address & lif.mask, lif.mask, 0, {{0, lif.name}}};
}

// What is left of a route when only the next hops count whose LIF is enabled, or that name none.
Route usable_part(Instance& instance, Route route)
{
    std::erase_if(route.next_hops, [&](const NextHop& hop) {
        const Lif* lif = instance.lifs.find(hop.lif);
        return !hop.lif.empty() && (lif == nullptr || !lif->enabled);
    });
    return route;
}

// A next hop is on the network of its LIF, or of any if it names none.
int reach(Instance& instance, const NextHop& hop)
{
    if (hop.lif.empty())
        return is_on_any_subnet(instance, hop.gateway) ? 0 : ENETUNREACH;
    const Lif& lif = *instance.lifs.find(hop.lif);
    if (!lif.enabled)
        return ENETDOWN;
    const bool is_on_its_network = lif.address != 0 && (hop.gateway & lif.mask) == (lif.address & lif.mask);
    return hop.gateway == 0 || is_on_its_network ? 0 : ENETUNREACH;
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    const NextHop hop = next_hop_of(exchange);
    if (instance == nullptr || (!hop.lif.empty() && instance->lifs.find(hop.lif) == nullptr))
        return ENOENT;
    const std::uint32_t dest = exchange.request[routes::dest];
    const std::uint32_t mask = exchange.request[routes::mask];
    if ((dest & ~mask) != 0 || (exchange.state.is_strict() && !is_contiguous(mask)))
        return EINVAL;
    if (const int error = exchange.state.is_strict() ? reach(*instance, hop) : 0; error != 0)
        return error;
    Route* route = instance->routes.find(std::tuple(dest, mask));
    if (route == nullptr) {
        if (instance->routes.size() + instance->lifs_on_subnets >= routes::most)
            return ENOSPC;
        route = &instance->routes.add({dest, mask, 0, {}});
        count_mask(*instance, mask);
    }
    if (std::find(route->next_hops.begin(), route->next_hops.end(), hop) == route->next_hops.end()) {
        if (route->next_hops.size() == routes::most_next_hops)
            return ENOSPC;
        route->next_hops.push_back(hop);
        use_lif<&Lif::routes>(*instance, hop.lif, *route);
    }
    route->param = exchange.request[routes::param];
    return done(exchange);
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    Route* route = instance->routes.find(std::tuple(exchange.request[routes::dest], exchange.request[routes::mask]));
    const NextHop hop = next_hop_of(exchange);
    if (route == nullptr || std::erase(route->next_hops, hop) == 0)
        return ESRCH;
    const bool is_over_another = std::any_of(
        route->next_hops.begin(), route->next_hops.end(), [&](const NextHop& other) { return other.lif == hop.lif; });
    if (!is_over_another)
        leave_lif<&Lif::routes>(*instance, hop.lif, *route);
    if (route->next_hops.empty()) {
        discount_mask(*instance, route->mask);
        instance->routes.remove(*route);
    }
    return done(exchange);
}

int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Lif& lif : instance->lifs)
        if (is_on_a_subnet(lif))
            write_route(connected_route(lif), RouteOrigin::Connected, exchange);
    for (const Route& route : instance->routes)
        write_route(route, RouteOrigin::Static, exchange);
    return 0;
}

// The longest prefix wins, and of two as long, the connected one.
int resolve(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const std::uint32_t dest = exchange.request[routes::dest];
    for (const auto& [mask, known] : instance->masks) {
        if (const Lif* lif = lif_on_subnet(*instance, dest & mask, mask)) {
            write_route(connected_route(*lif), RouteOrigin::Connected, exchange);
            return 0;
        }
        const Route* route = instance->routes.find(std::tuple(dest & mask, mask));
        if (route == nullptr)
            continue;
        if (const Route usable = usable_part(*instance, *route); !usable.next_hops.empty()) {
            write_route(usable, RouteOrigin::Static, exchange);
            return 0;
        }
    }
    return ENETUNREACH;
}

constexpr Handler answers[] = {
    {"SetRoute", set},
    {"DelRoute", remove},
    {"GetRoutes", get_all},
    {"GetResolveRoute", resolve},
};

} // namespace

const Handlers handlers::routes(routes::commands, answers);

} // namespace emulator
