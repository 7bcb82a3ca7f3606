// What must be given, left out. Diagnosed: instance
#include <lumozeph.hpp>

void add()
{
#ifdef WRONG
    lumozeph::set_route({.dest {}, .gateway {}});
#else
    lumozeph::set_route({.dest {}, .gateway {}, .instance = "blue"});
#endif
}
