// A failure that nobody looks at. Diagnosed: nodiscard
#include <lumozeph.hpp>

void remove()
{
#ifdef WRONG
    lumozeph::try_del_lif_ip("blue", "uplink", {});
#else
    static_cast<void>(lumozeph::try_del_lif_ip("blue", "uplink", {}));
#endif
}
