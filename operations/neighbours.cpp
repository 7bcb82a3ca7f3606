// ARP entries, IPv6 neighbours and proxy entries.
#include "operations/operations.h"

#include <lumozeph.h>

namespace operations {

namespace {

constexpr std::uint64_t word1 = 0x0102030405060708;
constexpr std::uint64_t word2 = 0x1112131415161718;

constexpr Request arp_entry = Request().text(0, "inst").u32(64, 0x01020304).text(192, "lif");
constexpr Request proxy_entry = Request().text(0, "inst").u32(64, 0x01020304).text(192, "lif").u8(596, 1);
constexpr Request neighbour = Request().text(0, "inst").text(64, "lif").u64(128, word1).u64(136, word2);
constexpr Request proxy_neighbour =
    Request().text(0, "inst").text(64, "lif").u64(128, word1).u64(136, word2).u8(596, 1);

constexpr Operation rows[] {
    {.function = NAMED(LUMOZEPH_SetArp),
        .command = 38,
        .shape = Shape::Send,
        .required = {3},
        .cases = {{"SetArp", {0x01020304, "00:11:22:33:44:55", "lif", "inst"},
                      Request().text(0, "inst").u32(64, 0x01020304).text(192, "lif").text(332, "00:11:22:33:44:55")},
            {"SetArpWithMacCutAt17", {0, "00:11:22:33:44:55x", "l", "i"},
                Request().text(0, "i").text(192, "l").text(332, "00:11:22:33:44:55")},
            {"SetArpWithLongTexts", {0, text_of<64, 'm'>, text_of<64, 'l'>, text_of<64, 'i'>},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>).text(332, text_of<17, 'm'>)}}},
    {.function = NAMED(LUMOZEPH_SetProxyArp),
        .command = 38,
        .shape = Shape::Send,
        .required = {2},
        .cases = {{"SetProxyArp", {0x01020304, "lif", "inst"}, proxy_entry}}},
    {.function = NAMED(LUMOZEPH_DelArp),
        .command = 39,
        .shape = Shape::Send,
        .required = {2},
        .cases = {{"DelArp", {0x01020304, "lif", "inst"}, arp_entry}}},
    {.function = NAMED(LUMOZEPH_DelProxyArp),
        .command = 39,
        .shape = Shape::Send,
        .required = {2},
        .cases = {{"DelProxyArp", {0x01020304, "lif", "inst"}, proxy_entry}}},
    {.function = NAMED(LUMOZEPH_GetArps),
        .command = 40,
        .shape = Shape::RawRead,
        .room = 7471104,
        .cases = {{"GetArps", {"inst", "lif", out}, Request().text(0, "inst").text(192, "lif")},
            {"GetArpsOfTheInstance", {"inst", nullptr, out}, Request().text(0, "inst")},
            {"GetArpsWithLongTexts", {text_of<64, 'i'>, text_of<64, 'l'>, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_GetProxyArps),
        .command = 40,
        .shape = Shape::RawRead,
        .room = 7471104,
        .cases = {{"GetProxyArps", {"inst", "lif", out}, Request().text(0, "inst").text(192, "lif").u8(596, 1)},
            {"GetProxyArpsOfTheInstance", {"inst", nullptr, out}, Request().text(0, "inst").u8(596, 1)},
            {"GetProxyArpsWithLongTexts", {text_of<64, 'i'>, text_of<64, 'l'>, out},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>).u8(596, 1)}}},
    {.function = NAMED(LUMOZEPH_ClearArp),
        .command = 41,
        .shape = Shape::Send,
        .cases = {{"ClearArp", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")},
            {"ClearArpOfTheInstance", {"inst", nullptr}, Request().text(0, "inst")},
            {"ClearArpWithLongTexts", {text_of<64, 'i'>, text_of<64, 'l'>},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_SetArpv6),
        .command = 112,
        .shape = Shape::Send,
        .required = {4},
        .cases = {{"SetArpv6", {word1, word2, "00:11:22:33:44:55", "lif", "inst"},
                      Request()
                          .text(0, "inst")
                          .text(64, "lif")
                          .u64(128, word1)
                          .u64(136, word2)
                          .text(144, "00:11:22:33:44:55")},
            {"SetArpv6WithUnterminatedTexts", {word1, word2, text_of<19, 'm'>, text_of<65, 'l'>, text_of<65, 'i'>},
                Request()
                    .text(0, text_of<64, 'i'>)
                    .text(64, text_of<64, 'l'>)
                    .u64(128, word1)
                    .u64(136, word2)
                    .text(144, text_of<18, 'm'>)}}},
    {.function = NAMED(LUMOZEPH_SetProxyArpv6),
        .command = 112,
        .shape = Shape::Send,
        .required = {3},
        .cases = {{"SetProxyArpv6", {word1, word2, "lif", "inst"}, proxy_neighbour},
            {"SetProxyArpv6WithUnterminatedTexts", {word1, word2, text_of<64, 'l'>, text_of<64, 'i'>},
                Request()
                    .text(0, text_of<64, 'i'>)
                    .text(64, text_of<64, 'l'>)
                    .u64(128, word1)
                    .u64(136, word2)
                    .u8(596, 1)}}},
    {.function = NAMED(LUMOZEPH_DelArpv6),
        .command = 113,
        .shape = Shape::Send,
        .required = {3},
        .cases = {{"DelArpv6", {word1, word2, "lif", "inst"}, neighbour},
            {"DelArpv6WithUnterminatedTexts", {word1, word2, text_of<64, 'l'>, text_of<64, 'i'>},
                Request().text(0, text_of<64, 'i'>).text(64, text_of<64, 'l'>).u64(128, word1).u64(136, word2)}}},
    {.function = NAMED(LUMOZEPH_DelProxyArpv6),
        .command = 113,
        .shape = Shape::Send,
        .required = {3},
        .cases = {{"DelProxyArpv6", {word1, word2, "lif", "inst"}, proxy_neighbour},
            {"DelProxyArpv6WithUnterminatedTexts", {word1, word2, text_of<64, 'l'>, text_of<64, 'i'>},
                Request()
                    .text(0, text_of<64, 'i'>)
                    .text(64, text_of<64, 'l'>)
                    .u64(128, word1)
                    .u64(136, word2)
                    .u8(596, 1)}}},
    // Kept: the interface lies where the IPv4 commands have it, not where the set and delete of a neighbour
    // have it.
    {.function = NAMED(LUMOZEPH_GetArpsv6),
        .command = 116,
        .shape = Shape::RawRead,
        .room = 7471104,
        .cases = {{"GetArpsv6WithTheInterfaceWhereIpv4HasIt", {"inst", "lif", out},
                      Request().text(0, "inst").text(192, "lif")},
            {"GetArpsv6OfTheInstance", {"inst", nullptr, out}, Request().text(0, "inst")},
            {"GetArpsv6WithUnterminatedTexts", {text_of<65, 'i'>, text_of<65, 'l'>, out},
                Request().text(0, text_of<64, 'i'>).text(192, text_of<64, 'l'>)}}},
    {.function = NAMED(LUMOZEPH_ClearArpv6),
        .command = 117,
        .shape = Shape::Send,
        .cases = {{"ClearArpv6", {"inst", "lif"}, Request().text(0, "inst").text(192, "lif")},
            {"ClearArpv6OfTheInstance", {"inst", nullptr}, Request().text(0, "inst")},
            // Kept: the only IPv6 command here whose texts are terminated.
            {"ClearArpv6WithTerminatedTexts", {text_of<64, 'i'>, text_of<64, 'l'>},
                Request().text(0, text_of<63, 'i'>).text(192, text_of<63, 'l'>)}}},
};
static_assert(are_consistent(rows));

} // namespace

constinit const Chapter neighbours {"neighbours", rows};

} // namespace operations
