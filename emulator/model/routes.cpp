// IPv4 routes. Masks are bit masks, in the byte order of the addresses.
#include "emulator/protocol/routes.h"

#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/route_record.h"

#include <algorithm>
#include <bit>
#include <optional>

namespace emulator {

using namespace protocol;

namespace {

auto find_route(Instance& instance, std::uint32_t dest, std::uint32_t mask)
{
    return std::find_if(instance.routes.begin(), instance.routes.end(),
        [&](const Route& route) { return route.dest == dest && route.mask == mask; });
}

NextHop next_hop_of(const Exchange& exchange)
{
    return {exchange.request[routes::gateway], exchange.request[routes::lif]};
}

// The network that an enabled LIF with an address is on.
std::optional<Route> connected_route(const Lif& lif)
{
    if (!lif.enabled || lif.address == 0)
        return std::nullopt;
    return Route {lif.address & lif.mask, lif.mask, 0, {{0, lif.name}}};
}

// What is left of a route when only the next hops count whose LIF is enabled, or that name none.
Route usable_part(Instance& instance, Route route)
{
    std::erase_if(route.next_hops, [&](const NextHop& hop) {
        const Lif* lif = instance.find_lif(hop.lif);
        return !hop.lif.empty() && (lif == nullptr || !lif->enabled);
    });
    return route;
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    const NextHop hop = next_hop_of(exchange);
    if (instance == nullptr || (!hop.lif.empty() && instance->find_lif(hop.lif) == nullptr))
        return ENOENT;
    const std::uint32_t dest = exchange.request[routes::dest];
    const std::uint32_t mask = exchange.request[routes::mask];
    if ((dest & ~mask) != 0)
        return EINVAL;
    auto route = find_route(*instance, dest, mask);
    if (route == instance->routes.end()) {
        if (instance->routes.size() == routes::most)
            return ENOSPC;
        route = instance->routes.insert(route, {dest, mask, 0, {}});
    }
    if (std::find(route->next_hops.begin(), route->next_hops.end(), hop) == route->next_hops.end()) {
        if (route->next_hops.size() == routes::most_next_hops)
            return ENOSPC;
        route->next_hops.push_back(hop);
    }
    route->param = exchange.request[routes::param];
    return done(exchange);
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const auto route = find_route(*instance, exchange.request[routes::dest], exchange.request[routes::mask]);
    if (route == instance->routes.end() || std::erase(route->next_hops, next_hop_of(exchange)) == 0)
        return ESRCH;
    if (route->next_hops.empty())
        instance->routes.erase(route);
    return done(exchange);
}

int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Lif& lif : instance->lifs)
        if (const auto route = connected_route(lif))
            write_route(*route, RouteOrigin::Connected, exchange);
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
    std::optional<Route> best;
    RouteOrigin origin = RouteOrigin::Static;
    const auto consider = [&](const Route& route, RouteOrigin candidate) {
        if ((dest & route.mask) == route.dest && !route.next_hops.empty() &&
            (!best || std::popcount(route.mask) > std::popcount(best->mask))) {
            best = route;
            origin = candidate;
        }
    };
    for (const Lif& lif : instance->lifs)
        if (const auto route = connected_route(lif))
            consider(*route, RouteOrigin::Connected);
    for (const Route& route : instance->routes)
        consider(usable_part(*instance, route), RouteOrigin::Static);
    if (!best)
        return ENETUNREACH;
    write_route(*best, origin, exchange);
    return 0;
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
