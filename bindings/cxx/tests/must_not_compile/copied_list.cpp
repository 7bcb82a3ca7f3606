// A list with two owners. Diagnosed: deleted
#include <lumozeph.hpp>

void copy(lumozeph::lif_list& lifs)
{
#ifdef WRONG
    const lumozeph::lif_list other = lifs;
#else
    const lumozeph::lif_list other = std::move(lifs);
#endif
}
