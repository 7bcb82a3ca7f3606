// Rules that leave a member out. Diagnosed: rules_do_not_tile_the_record
#include "sample.h"

// clang-format off
template <>
inline constexpr auto lumo::layout<Sample> = lumo::describe<Sample>(
    lumo::copy(0, AT(Sample, number)),
    lumo::text(4, AT(Sample, name)),
#ifdef WRONG
    lumo::copy(70, AT(Sample, last)));
#else
    lumo::copy(68, AT(Sample, value)),
    lumo::copy(70, AT(Sample, last)));
#endif
// clang-format on

void decode(char* to, const char* from)
{
    lumo::decode<Sample>(to, from);
}
