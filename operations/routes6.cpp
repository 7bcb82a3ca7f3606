// IPv6 routes and path MTU.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::uint64_t dest1 = 0x0102030405060708;
constexpr std::uint64_t dest2 = 0x1112131415161718;
constexpr std::uint64_t gateway1 = 0x2122232425262728;
constexpr std::uint64_t gateway2 = 0x3132333435363738;

constexpr Request route6()
{
    return Request().text(0, "inst").u64(68, dest1).u64(76, dest2).u8(84, 64).u64(101, gateway1).u64(109, gateway2);
}

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SetRoutev6),
        .command = 110,
        .shape = Shape::Send,
        .required = {6},
        .cases = {{"SetRoutev6", {dest1, dest2, 64, gateway1, gateway2, "lif", "inst"}, route6().text(117, "lif")},
            {"SetRoutev6WithoutInterface", {dest1, dest2, 64, gateway1, gateway2, nullptr, "inst"}, route6()},
            {"SetRoutev6WithPrefixLengthCutToAByte", {0, 0, 300, 0, 0, nullptr, "i"},
                Request().text(0, "i").u8(84, 44)},
            {"SetRoutev6WithUnterminatedTexts", {0, 0, 255, 0, 0, text_of<65, 'l'>, text_of<65, 'i'>},
                Request().text(0, text_of<64, 'i'>).u8(84, 255).text(117, text_of<64, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_DelRoutev6),
        .command = 111,
        .shape = Shape::Send,
        .required = {6},
        .cases = {{"DelRoutev6", {dest1, dest2, 64, gateway1, gateway2, "lif", "inst"}, route6().text(117, "lif")},
            {"DelRoutev6WithoutInterface", {dest1, dest2, 64, gateway1, gateway2, nullptr, "inst"}, route6()},
            {"DelRoutev6WithPrefixLengthCutToAByte", {0, 0, 300, 0, 0, nullptr, "i"},
                Request().text(0, "i").u8(84, 44)},
            {"DelRoutev6WithUnterminatedTexts", {0, 0, 0, 0, 0, text_of<64, 'l'>, text_of<64, 'i'>},
                Request().text(0, text_of<64, 'i'>).text(117, text_of<64, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_GetRoutesv6),
        .command = 114,
        .shape = Shape::CountedBlock,
        .room = 6208000,
        .cases = {{"GetRoutesv6", {"inst", out, count}, Request().text(0, "inst")},
            {"GetRoutesv6WithUnterminatedKey", {text_of<65, 'i'>, out, count}, Request().text(0, text_of<64, 'i'>)}}},
    {.function = NAMED(LUMOZEPH_PMTUTableCearv6),
        .command = 151,
        .shape = Shape::Bare,
        .cases = {{"PMTUTableCearv6", {}}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter routes6 {"routes6", rows};

} // namespace operations
