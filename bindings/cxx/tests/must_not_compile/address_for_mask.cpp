// An address where its mask belongs. Diagnosed: ipv4_mask
#include <lumozeph.hpp>

void resolve(lumozeph::ipv4 address, lumozeph::ipv4_mask mask)
{
#ifdef WRONG
    const lumozeph::get_resolve_route_arguments route {.instance = "blue", .dest = mask, .mask = address};
#else
    const lumozeph::get_resolve_route_arguments route {.instance = "blue", .dest = address, .mask = mask};
#endif
    lumozeph::get_resolve_route(route);
}
