// The same among the arguments that have names. Diagnosed: kinds::lif
#include <lumozeph.hpp>

void add(lumozeph::instance_argument instance, lumozeph::lif_argument lif)
{
#ifdef WRONG
    const lumozeph::set_route_arguments route {.dest {}, .gateway {}, .lif = instance, .instance = lif};
#else
    const lumozeph::set_route_arguments route {.dest {}, .gateway {}, .lif = lif, .instance = instance};
#endif
    lumozeph::set_route(route);
}
