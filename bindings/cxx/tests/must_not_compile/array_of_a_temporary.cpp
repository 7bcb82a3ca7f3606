// The next hops of a route that is gone. Diagnosed: deleted
#include <lumozeph.hpp>

std::size_t count(const lumozeph::route_info& route)
{
#ifdef WRONG
    const auto hops = lumozeph::next_hops(lumozeph::route_info(route));
#else
    const auto hops = lumozeph::next_hops(route);
#endif
    return hops.size();
}
