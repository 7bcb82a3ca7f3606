// A span of a list that is gone. Diagnosed: deleted
#include <lumozeph.hpp>

std::size_t count(const lumozeph::lif_list& lifs)
{
#ifdef WRONG
    const auto records = lumozeph::get_lifs("blue").span();
#else
    const auto records = lifs.span();
#endif
    return records.size();
}
