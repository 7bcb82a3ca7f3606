// An iterator into a list that is gone. Diagnosed: deleted
#include <lumozeph.hpp>

bool is_first(const lumozeph::lif_list& lifs)
{
#ifdef WRONG
    const auto* const first = lumozeph::get_lifs("blue").begin();
#else
    const auto* const first = lifs.begin();
#endif
    return first == lifs.begin();
}
