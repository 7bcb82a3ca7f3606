// A LIF's name and its instance's key in each other's place. Diagnosed: kinds::lif
#include <lumozeph.hpp>

void read(lumozeph::instance_argument instance, lumozeph::lif_argument lif)
{
#ifdef WRONG
    lumozeph::get_lif(lif, instance);
#else
    lumozeph::get_lif(instance, lif);
#endif
}
