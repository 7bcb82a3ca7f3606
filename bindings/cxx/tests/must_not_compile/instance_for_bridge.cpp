// A router instance where a bridge belongs. Diagnosed: kinds::bridge
#include <lumozeph.hpp>

void read(lumozeph::instance_argument instance, lumozeph::bridge_argument bridge)
{
    static_cast<void>(instance);
    static_cast<void>(bridge);
#ifdef WRONG
    lumozeph::get_bridge_instance(instance);
#else
    lumozeph::get_bridge_instance(bridge);
#endif
}
