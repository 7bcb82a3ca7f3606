// The entries of a block that is gone. Diagnosed: deleted
#include <lumozeph.hpp>

std::size_t count(const lumozeph::route_v6_block& block)
{
#ifdef WRONG
    const auto entries = lumozeph::get_routes_v6("blue").all();
#else
    const auto entries = block.all();
#endif
    return entries.size();
}
