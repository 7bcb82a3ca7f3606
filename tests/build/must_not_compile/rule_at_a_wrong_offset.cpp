// A rule whose offset on the wire is not that of the member. Diagnosed: wire_offset_is_not_that_of_the_member
#include "sample.h"

// clang-format off
template <>
inline constexpr auto lumo::layout<Sample> = lumo::describe<Sample>(
    lumo::copy(0, AT(Sample, number)),
    lumo::text(4, AT(Sample, name)),
#ifdef WRONG
    lumo::copy(67, AT(Sample, value)),
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
