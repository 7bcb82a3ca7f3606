// Nothing where a name belongs. Diagnosed: deleted
#include <lumozeph.hpp>

void read()
{
#ifdef WRONG
    lumozeph::get_lifs(nullptr);
#else
    lumozeph::get_lifs("blue");
#endif
}
