// A table whose width is not a whole number of entries. Diagnosed: rules_do_not_tile_the_record
#include "channel/record.h"

#pragma pack(push, 1)
struct Entry
{
    char name[32];
    uint16_t value;
};
struct Sample
{
    uint32_t count;
#ifdef WRONG
    char entries[69];
#else
    char entries[68];
#endif
};
#pragma pack(pop)

template <>
inline constexpr auto lumo::layout<Entry> = lumo::describe<Entry>(
    lumo::text(0, AT(Entry, name)), lumo::copy(32, AT(Entry, value)));

template <>
inline constexpr auto lumo::layout<Sample> = lumo::describe<Sample>(
    lumo::copy(0, AT(Sample, count)), lumo::table<Entry>(4, AT(Sample, entries), AT(Sample, count)));

void decode(char* to, const char* from)
{
    lumo::decode<Sample>(to, from);
}
