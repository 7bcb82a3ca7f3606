// A reference into a record that is gone. Diagnosed: non-const lvalue reference
#include <lumozeph.hpp>

void change(lumozeph::owned_lif_info& lif)
{
#ifdef WRONG
    lumozeph::lif_info& record = *lumozeph::get_lif("blue", "uplink");
#else
    lumozeph::lif_info& record = *lif;
#endif
    record.lifValue1 = 0;
}
