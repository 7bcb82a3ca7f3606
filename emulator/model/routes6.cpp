// IPv6 routes and the path-MTU table. A route is reported as the record in which it was sent.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_routes = 29999;

// Prefix, prefix length, gateway and interface tell routes apart: bytes 68 to 180.
bool same(const Route6& left, const Route6& right)
{
    return std::equal(left.begin() + 68, left.begin() + 181, right.begin() + 68);
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Route6 route = exchange.request.bytes<776>(0);
    for (const Route6& existing : instance->routes6)
        if (same(existing, route))
            return 0;
    if (instance->routes6.size() == most_routes)
        return ENOSPC;
    instance->routes6.push_back(route);
    return 0;
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const Route6 route = exchange.request.bytes<776>(0);
    return std::erase_if(instance->routes6, [&](const Route6& existing) { return same(existing, route); }) > 0 ? 0
                                                                                                               : ESRCH;
}

int count(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    Record(exchange.reply, 4).u32(0, static_cast<std::uint32_t>(instance->routes6.size()));
    return 0;
}

int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    for (const Route6& route : instance->routes6)
        Record(exchange.reply, route.size()).bytes(0, route);
    return 0;
}

// The model finds no path MTUs, so that there is nothing to clear.
int clear_path_mtus(Exchange&)
{
    return 0;
}

constexpr Handler answers[] = {
    {110, request_record, set},
    {111, request_record, remove},
    {114, request_record, get_all},
    {115, request_record, count},
    {151, 0, clear_path_mtus},
};

} // namespace

const std::span<const Handler> handlers::routes6 = answers;

} // namespace emulator
