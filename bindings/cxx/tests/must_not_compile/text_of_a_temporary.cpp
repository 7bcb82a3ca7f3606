// A name that refers to a text that is gone. Diagnosed: deleted
#include <lumozeph.hpp>

void read(const std::string& text)
{
#ifdef WRONG
    const lumozeph::instance_argument instance = text + "-1";
#else
    const lumozeph::instance_argument instance = text;
#endif
    lumozeph::get_lifs(instance);
}
