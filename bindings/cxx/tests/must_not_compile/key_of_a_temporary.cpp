// A name that refers to a key that is gone. Diagnosed: deleted
#include <lumozeph.hpp>

void read(const lumozeph::instance_key& key)
{
#ifdef WRONG
    const lumozeph::instance_argument instance = lumozeph::instance_key("blue");
#else
    const lumozeph::instance_argument instance = key;
#endif
    lumozeph::get_lifs(instance);
}
