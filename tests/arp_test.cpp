// ARP entries, IPv6 neighbours and proxy entries.
#include "lumozeph.h"
#include "support/sends.h"

using namespace world;

namespace {

const Bytes arp_entry = Record().text(0, "inst").u32(64, 0x01020304).text(192, "lif");
const Bytes proxy_entry = Record().text(0, "inst").u32(64, 0x01020304).text(192, "lif").u8(596, 1);
const Bytes neighbour =
    Record().text(0, "inst").text(64, "lif").u64(128, 0x0102030405060708).u64(136, 0x1112131415161718);
const Bytes proxy_neighbour =
    Record().text(0, "inst").text(64, "lif").u64(128, 0x0102030405060708).u64(136, 0x1112131415161718).u8(596, 1);

constexpr std::uint64_t word1 = 0x0102030405060708;
constexpr std::uint64_t word2 = 0x1112131415161718;

const std::vector<Send> sends {
    {"SetArp", 38, Record().text(0, "inst").u32(64, 0x01020304).text(192, "lif").text(332, "00:11:22:33:44:55"),
        [] { return LUMOZEPH_SetArp(0x01020304, "00:11:22:33:44:55", "lif", "inst"); }},
    {"SetArpWithMacCutAt17", 38, Record().text(0, "i").text(192, "l").text(332, "00:11:22:33:44:55"),
        [] { return LUMOZEPH_SetArp(0, "00:11:22:33:44:55x", "l", "i"); }},
    {"SetArpWithLongTexts", 38, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')).text(332, Bytes(17, 'm')),
        [] { return LUMOZEPH_SetArp(0, Bytes(64, 'm').c_str(), Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str()); }},
    {"DelArp", 39, arp_entry, [] { return LUMOZEPH_DelArp(0x01020304, "lif", "inst"); }},
    {"SetProxyArp", 38, proxy_entry, [] { return LUMOZEPH_SetProxyArp(0x01020304, "lif", "inst"); }},
    {"DelProxyArp", 39, proxy_entry, [] { return LUMOZEPH_DelProxyArp(0x01020304, "lif", "inst"); }},
    {"ClearArp", 41, Record().text(0, "inst").text(192, "lif"), [] { return LUMOZEPH_ClearArp("inst", "lif"); }},
    {"ClearArpOfTheInstance", 41, Record().text(0, "inst"), [] { return LUMOZEPH_ClearArp("inst", nullptr); }},
    {"ClearArpWithLongTexts", 41, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [] { return LUMOZEPH_ClearArp(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str()); }},
    {"ClearArpv6", 117, Record().text(0, "inst").text(192, "lif"), [] { return LUMOZEPH_ClearArpv6("inst", "lif"); }},
    {"ClearArpv6OfTheInstance", 117, Record().text(0, "inst"), [] { return LUMOZEPH_ClearArpv6("inst", nullptr); }},
    // Kept: the only IPv6 command here whose texts are terminated.
    {"ClearArpv6WithTerminatedTexts", 117, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [] { return LUMOZEPH_ClearArpv6(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str()); }},
    {"SetArpv6", 112,
        Record().text(0, "inst").text(64, "lif").u64(128, word1).u64(136, word2).text(144, "00:11:22:33:44:55"),
        [] { return LUMOZEPH_SetArpv6(word1, word2, "00:11:22:33:44:55", "lif", "inst"); }},
    {"SetArpv6WithUnterminatedTexts", 112,
        Record()
            .text(0, Bytes(64, 'i'))
            .text(64, Bytes(64, 'l'))
            .u64(128, word1)
            .u64(136, word2)
            .text(144, Bytes(18, 'm')),
        [] {
            return LUMOZEPH_SetArpv6(
                word1, word2, Bytes(19, 'm').c_str(), Bytes(65, 'l').c_str(), Bytes(65, 'i').c_str());
        }},
    {"DelArpv6", 113, neighbour, [] { return LUMOZEPH_DelArpv6(word1, word2, "lif", "inst"); }},
    {"DelArpv6WithUnterminatedTexts", 113,
        Record().text(0, Bytes(64, 'i')).text(64, Bytes(64, 'l')).u64(128, word1).u64(136, word2),
        [] { return LUMOZEPH_DelArpv6(word1, word2, Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str()); }},
    {"SetProxyArpv6", 112, proxy_neighbour, [] { return LUMOZEPH_SetProxyArpv6(word1, word2, "lif", "inst"); }},
    {"SetProxyArpv6WithUnterminatedTexts", 112,
        Record().text(0, Bytes(64, 'i')).text(64, Bytes(64, 'l')).u64(128, word1).u64(136, word2).u8(596, 1),
        [] { return LUMOZEPH_SetProxyArpv6(word1, word2, Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str()); }},
    {"DelProxyArpv6", 113, proxy_neighbour, [] { return LUMOZEPH_DelProxyArpv6(word1, word2, "lif", "inst"); }},
    {"DelProxyArpv6WithUnterminatedTexts", 113,
        Record().text(0, Bytes(64, 'i')).text(64, Bytes(64, 'l')).u64(128, word1).u64(136, word2).u8(596, 1),
        [] { return LUMOZEPH_DelProxyArpv6(word1, word2, Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str()); }},
};

INSTANTIATE_TEST_SUITE_P(Arp, Sends, testing::ValuesIn(sends), NameOfRow());

const std::vector<RawRead> raw_reads {
    {"GetArps", 40, Record().text(0, "inst").text(192, "lif"), 7471104,
        [](void* buffer) { return LUMOZEPH_GetArps("inst", "lif", buffer); }},
    {"GetArpsOfTheInstance", 40, Record().text(0, "inst"), 7471104,
        [](void* buffer) { return LUMOZEPH_GetArps("inst", nullptr, buffer); }},
    {"GetArpsWithLongTexts", 40, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')), 7471104,
        [](void* buffer) { return LUMOZEPH_GetArps(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), buffer); }},
    {"GetProxyArps", 40, Record().text(0, "inst").text(192, "lif").u8(596, 1), 7471104,
        [](void* buffer) { return LUMOZEPH_GetProxyArps("inst", "lif", buffer); }},
    {"GetProxyArpsOfTheInstance", 40, Record().text(0, "inst").u8(596, 1), 7471104,
        [](void* buffer) { return LUMOZEPH_GetProxyArps("inst", nullptr, buffer); }},
    {"GetProxyArpsWithLongTexts", 40, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')).u8(596, 1), 7471104,
        [](void* buffer) { return LUMOZEPH_GetProxyArps(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), buffer); }},
    // Kept: the interface lies where the IPv4 commands have it, not where the set and delete of a neighbour have it.
    {"GetArpsv6WithTheInterfaceWhereIpv4HasIt", 116, Record().text(0, "inst").text(192, "lif"), 7471104,
        [](void* buffer) { return LUMOZEPH_GetArpsv6("inst", "lif", buffer); }},
    {"GetArpsv6OfTheInstance", 116, Record().text(0, "inst"), 7471104,
        [](void* buffer) { return LUMOZEPH_GetArpsv6("inst", nullptr, buffer); }},
    {"GetArpsv6WithUnterminatedTexts", 116, Record().text(0, Bytes(64, 'i')).text(192, Bytes(64, 'l')), 7471104,
        [](void* buffer) { return LUMOZEPH_GetArpsv6(Bytes(65, 'i').c_str(), Bytes(65, 'l').c_str(), buffer); }},
};

INSTANTIATE_TEST_SUITE_P(Arp, RawReads, testing::ValuesIn(raw_reads), NameOfRow());

TEST(Arp, NeedsAnInstanceToSetOrDeleteAnEntry)
{
    expect_rejected([] { return LUMOZEPH_SetArp(1, "mac", "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_DelArp(1, "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_SetProxyArp(1, "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_DelProxyArp(1, "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_SetArpv6(1, 2, "mac", "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_DelArpv6(1, 2, "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_SetProxyArpv6(1, 2, "lif", nullptr); });
    expect_rejected([] { return LUMOZEPH_DelProxyArpv6(1, 2, "lif", nullptr); });
}

} // namespace
