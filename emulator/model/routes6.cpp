// IPv6 routes and the path-MTU table. A route is reported as the record in which it was sent.
#include "emulator/protocol/routes6.h"

#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

Route6 route_of(const Exchange& exchange)
{
    return {exchange.request[routes6::sent], exchange.request[routes6::identity]};
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Route6 route = route_of(exchange);
    if (instance->routes6.find(route.identity()) != nullptr)
        return 0;
    if (instance->routes6.size() == routes6::most)
        return ENOSPC;
    instance->routes6.add(route);
    return 0;
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    return instance->routes6.remove_if_found(exchange.request[routes6::identity]) ? 0 : ESRCH;
}

int count(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    exchange.add<routes6::count>(static_cast<std::uint32_t>(instance->routes6.size()));
    return 0;
}

int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Route6& route : instance->routes6)
        exchange.add(routes6::entry).begin_with(route.sent);
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
