// A number where an address belongs. Diagnosed: ipv4
#include <lumozeph.hpp>

void set()
{
#ifdef WRONG
    lumozeph::set_cp_ip("blue", 24);
#else
    lumozeph::set_cp_ip("blue", lumozeph::ipv4("192.0.2.1"));
#endif
}
