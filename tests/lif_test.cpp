// Logical interfaces: their records, what is sent to change them, and the DHCP relay.
#include "lumozeph.h"
#include "support/layouts.h"
#include "support/matchers.h"
#include "support/reads.h"
#include "support/sends.h"

#include <arpa/inet.h>

using namespace world;

namespace {

const Layout& layout = layouts::lif;

const std::vector<SingleRead> single_reads {
    {"GetLif", 22, layout, Record().text(0, "router-1").text(192, "lif-1"),
        [](void** out) { return LUMOZEPH_GetLif("router-1", "lif-1", as<LumoLifInfo>(out)); },
        releasing(LUMOZEPH_ReleaseLif)},
    {"GetLifWithLongNames", 22, layout, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [](void** out) {
            return LUMOZEPH_GetLif(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), as<LumoLifInfo>(out));
        },
        releasing(LUMOZEPH_ReleaseLif)},
    {"GetBridgeLif", 60, layout, Record().text(0, "router-1").text(192, "lif-1"),
        [](void** out) { return LUMOZEPH_GetBridgeLif("router-1", "lif-1", as<LumoLifInfo>(out)); },
        releasing(LUMOZEPH_ReleaseLif)},
};

INSTANTIATE_TEST_SUITE_P(Lif, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

const std::vector<ListRead> list_reads {
    {"GetLifs", 21, layout, 10000, 5760000, Record().text(0, "router-1"),
        [](void** out) { return LUMOZEPH_GetLifs("router-1", as<LumoLifList>(out)); }, releasing(LUMOZEPH_ReleaseLifs)},
    // Kept: the holder stays allocated when the device call fails.
    {"GetBridgeLifs", 59, layout, 10000, 5760000, Record().text(0, "router-1"),
        [](void** out) { return LUMOZEPH_GetBridgeLifs("router-1", as<LumoLifList>(out)); },
        releasing(LUMOZEPH_ReleaseLifs), Holder::LeftAllocated},
};

INSTANTIATE_TEST_SUITE_P(Lif, ListReads, testing::ValuesIn(list_reads), NameOfRow());

constexpr std::uint8_t mac[6] = {0xa1, 0xa2, 0xa3, 0xa4, 0xa5, 0xa6};
const Bytes long_text(80, 'x');

// The record of a routed LIF with every field set, and that of a bridge LIF.
const Bytes routed = Record()
                         .text(0, "inst")
                         .text(64, "aux")
                         .text(192, "lif")
                         .u32(320, 0x01020304)
                         .u32(324, 0x11121314)
                         .u32(328, 0x41424344)
                         .text(332, "\xa1\xa2\xa3\xa4\xa5\xa6")
                         .u32(352, 0x21222324)
                         .u32(356, 0x31323334)
                         .u32(360, 0x51525354);
const Bytes bridged = Record()
                          .text(0, "inst")
                          .text(64, "aux")
                          .text(192, "lif")
                          .u32(328, 0x31323334)
                          .u32(352, 0x11121314)
                          .u32(356, 0x21222324);

const std::vector<Send> sends {
    {"SetLif", 19, routed,
        [] {
            return LUMOZEPH_SetLif(
                "lif", "aux", 0x01020304, 0x11121314, 0x21222324, 0x31323334, 0x41424344, 0x51525354, "inst", mac);
        }},
    {"SetLifWithoutMac", 19, Record().text(0, "inst").text(64, "aux").text(192, "lif").u32(320, 1).u32(360, 6),
        [] { return LUMOZEPH_SetLif("lif", "aux", 1, 0, 0, 0, 0, 6, "inst", nullptr); }},
    {"SetLifWithLongNames", 19,
        Record().text(0, long_text.substr(0, 63)).text(64, long_text.substr(0, 63)).text(192, long_text.substr(0, 63)),
        [] {
            return LUMOZEPH_SetLif(long_text.c_str(), long_text.c_str(), 0, 0, 0, 0, 0, 0, long_text.c_str(), nullptr);
        }},
    {"SetLifWithANameOf64", 19, Record().text(0, "i").text(64, "a").text(192, Bytes(63, 'l')),
        [] { return LUMOZEPH_SetLif(Bytes(64, 'l').c_str(), "a", 0, 0, 0, 0, 0, 0, "i", nullptr); }},
    {"DelLif", 20, Record().text(0, "inst").text(64, "aux").text(192, "lif"),
        [] { return LUMOZEPH_DelLif("lif", "aux", "inst"); }},
    {"AddBridgeLif", 57, bridged,
        [] { return LUMOZEPH_SetBridgeLif("lif", "aux", 0x11121314, 0x21222324, 0x31323334, "inst", 1); }},
    {"AddBridgeLifByAnyFlag", 57, bridged,
        [] { return LUMOZEPH_SetBridgeLif("lif", "aux", 0x11121314, 0x21222324, 0x31323334, "inst", -256); }},
    {"RemoveBridgeLif", 58, bridged,
        [] { return LUMOZEPH_SetBridgeLif("lif", "aux", 0x11121314, 0x21222324, 0x31323334, "inst", 0); }},

    {"SetLifIp", 26, Record().text(0, "inst").text(192, "lif").u32(320, 0x01020304).u32(324, 0x11121314),
        [] { return LUMOZEPH_SetLifIp("inst", "lif", 0x01020304, 0x11121314); }},
    {"DelLifIp", 27, Record().text(0, "inst").text(192, "lif").u32(320, 0x01020304).u32(324, 0x11121314),
        [] { return LUMOZEPH_DelLifIp("inst", "lif", 0x01020304, 0x11121314); }},
    {"SetLifDIIp", 25, Record().text(0, "inst").text(192, "lif").u32(328, 0x01020304),
        [] { return LUMOZEPH_SetLifDIIp("inst", "lif", 0x01020304); }},
    {"SetLifVxlanMulticastIp", 32, Record().text(0, "inst").text(192, "lif").u32(328, 0x01020304),
        [] { return LUMOZEPH_SetLifVxlanMulticastIp("inst", "lif", 0x01020304); }},
    {"SetLifVxlanCP", 28, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_SetLifVxlanCP("inst", "lif"); }},
    {"DelLifVxlanCP", 29, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_DelLifVxlanCP("inst", "lif"); }},
    {"EnableLif", 30, Record().text(0, "inst").text(192, "lif"), [] { return LUMOZEPH_EnableLif("inst", "lif"); }},
    {"DisableLif", 31, Record().text(0, "inst").text(192, "lif"), [] { return LUMOZEPH_DisableLif("inst", "lif"); }},
    {"EnableLifWithLongNames", 30, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [] { return LUMOZEPH_EnableLif(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str()); }},
    {"McastRoutingOn", 125, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_SetLifMcastRouting("inst", "lif", 1); }},
    {"McastRoutingOnByAnyFlag", 125, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_SetLifMcastRouting("inst", "lif", 255); }},
    {"McastRoutingOff", 126, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_SetLifMcastRouting("inst", "lif", 0); }},
    {"RAMTUSetv6", 152, Record().text(0, "inst").text(192, "lif").u32(64, 0x01020304),
        [] { return LUMOZEPH_RAMTUSetv6("inst", "lif", 0x01020304); }},
    {"RAMTUSetv6WithMtu0", 152, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_RAMTUSetv6("inst", "lif", 0); }},
    {"RAMTUSetv6WithLongNames", 152, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')).u32(64, 1500),
        [] { return LUMOZEPH_RAMTUSetv6(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), 1500); }},
    // Kept: the interface's name goes into two fields.
    {"SetLifIpv6SendsTheNameTwice", 108,
        Record()
            .text(0, "inst")
            .u64(64, 0x0102030405060708)
            .u64(72, 0x1112131415161718)
            .text(84, "lif")
            .u8(148, 64)
            .text(192, "lif"),
        [] { return LUMOZEPH_SetLifIpv6("inst", "lif", 0x0102030405060708, 0x1112131415161718, 64); }},
    {"DelLifIpv6SendsTheNameTwice", 109,
        Record()
            .text(0, "inst")
            .u64(64, 0x0102030405060708)
            .u64(72, 0x1112131415161718)
            .text(84, "lif")
            .u8(148, 64)
            .text(192, "lif"),
        [] { return LUMOZEPH_DelLifIpv6("inst", "lif", 0x0102030405060708, 0x1112131415161718, 64); }},
    {"SetLifIpv6WithPrefixLengthCutToAByte", 108, Record().text(0, "i").text(84, "l").u8(148, 44).text(192, "l"),
        [] { return LUMOZEPH_SetLifIpv6("i", "l", 0, 0, 300); }},
    {"SetLifIpv6WithUnterminatedTexts", 108,
        Record()
            .text(0, Bytes(64, 'i'))
            .u64(64, 0x0102030405060708)
            .u64(72, 0x1112131415161718)
            .text(84, Bytes(64, 'l'))
            .u8(148, 128)
            .text(192, Bytes(64, 'l')),
        [] {
            return LUMOZEPH_SetLifIpv6(
                Bytes(65, 'i').c_str(), Bytes(70, 'l').c_str(), 0x0102030405060708, 0x1112131415161718, 128);
        }},
    {"DelLifIpv6WithUnterminatedTexts", 109,
        Record().text(0, Bytes(64, 'i')).text(84, Bytes(64, 'l')).text(192, Bytes(64, 'l')),
        [] { return LUMOZEPH_DelLifIpv6(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), 0, 0, 0); }},
    {"SetMcastRouting", 127,
        Record()
            .text(0, "inst")
            .text(64, "name")
            .u32(128, 0x01020304)
            .u32(132, 0x11121314)
            .u16(136, 0x2122)
            .u8(138, 0x31),
        [] { return LUMOZEPH_SetMcastRouting("inst", "name", 0x01020304, 0x11121314, 0x2122, 0x31); }},
    {"SetMcastRoutingWithLongTexts", 127, Record().text(0, Bytes(63, 'i')).text(64, Bytes(63, 'n')),
        [] { return LUMOZEPH_SetMcastRouting(Bytes(64, 'i').c_str(), Bytes(64, 'n').c_str(), 0, 0, 0, 0); }},
    {"DhcpRelayWithoutServers", 33, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_ConfigureLifDhcpRelay("inst", "lif", nullptr); }},
    {"DhcpRelayWithLongNames", 33, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [] { return LUMOZEPH_ConfigureLifDhcpRelay(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), nullptr); }},
};

INSTANTIATE_TEST_SUITE_P(Lif, Sends, testing::ValuesIn(sends), NameOfRow());

TEST(Lif, NeedsAnInstanceToBeSetOrDeleted)
{
    expect_rejected([] { return LUMOZEPH_SetLif("lif", "aux", 1, 2, 3, 4, 5, 6, nullptr, mac); });
    expect_rejected([] { return LUMOZEPH_DelLif("lif", "aux", nullptr); });
    expect_rejected([] { return LUMOZEPH_SetMcastRouting(nullptr, "name", 1, 2, 3, 4); });
}

TEST(Lif, NeedsInstanceAndNameToBeRead)
{
    LumoLifInfo* const before = reinterpret_cast<LumoLifInfo*>(elsewhere);
    LumoLifInfo* out = before;
    expect_rejected([&] { return LUMOZEPH_GetLif(nullptr, "lif", &out); });
    expect_rejected([&] { return LUMOZEPH_GetLif("inst", nullptr, &out); });
    expect_rejected([&] { return LUMOZEPH_GetBridgeLif(nullptr, "lif", &out); });
    expect_rejected([&] { return LUMOZEPH_GetBridgeLif("inst", nullptr, &out); });
    EXPECT_EQ(out, before);
}

TEST(Lif, NeedsInstanceAndNameForItsOptions)
{
    using Names = std::pair<const char*, const char*>;
    for (const Names& names : {Names {"inst", nullptr}, Names {nullptr, "lif"}}) {
        const char* const instance = names.first;
        const char* const lif = names.second;
        expect_rejected([&] { return LUMOZEPH_SetLifIp(instance, lif, 1, 2); });
        expect_rejected([&] { return LUMOZEPH_DelLifIp(instance, lif, 1, 2); });
        expect_rejected([&] { return LUMOZEPH_SetLifDIIp(instance, lif, 1); });
        expect_rejected([&] { return LUMOZEPH_SetLifVxlanMulticastIp(instance, lif, 1); });
        expect_rejected([&] { return LUMOZEPH_SetLifVxlanCP(instance, lif); });
        expect_rejected([&] { return LUMOZEPH_DelLifVxlanCP(instance, lif); });
        expect_rejected([&] { return LUMOZEPH_EnableLif(instance, lif); });
        expect_rejected([&] { return LUMOZEPH_DisableLif(instance, lif); });
        expect_rejected([&] { return LUMOZEPH_SetLifMcastRouting(instance, lif, 1); });
        expect_rejected([&] { return LUMOZEPH_SetLifIpv6(instance, lif, 1, 2, 3); });
        expect_rejected([&] { return LUMOZEPH_DelLifIpv6(instance, lif, 1, 2, 3); });
        expect_rejected([&] { return LUMOZEPH_ConfigureLifDhcpRelay(instance, lif, nullptr); });
    }
}

TEST(Lif, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(576, '\0');
    reply.replace(0, 3, "lif");
    reply.replace(64, 6, "second");
    put(reply, 128, 0x01020304, 4);
    put(reply, 132, 0x11121314, 4);
    put(reply, 136, 0x21222324, 4);
    reply.replace(140, 6, "\xa1\xa2\xa3\xa4\xa5\xa6");
    put(reply, 146, 0x31323334, 4);
    put(reply, 150, 0x41424344, 4);
    put(reply, 154, 0x51525354, 4);
    reply.replace(158, 4, "\xb1\xb2\xb3\xb4");
    put(reply, 162, 2, 4);
    reply.replace(166, 4, "\x0a\x01\x02\x03");
    put(reply, 182, 1, 4);
    reply.replace(186, 16, "0123456789abcdef");
    put(reply, 202, 3, 4);
    reply.replace(326, 16, "fedcba9876543210");
    put(reply, 342, 64, 4);
    put(reply, 346, 0xc1, 1);
    put(reply, 347, 0xffffff, 3);
    put(reply, 350, 0xff, 1); // the second entry, which does not count
    put(reply, 566, 1, 4);
    put(reply, 570, 0xd1, 1);
    put(reply, 571, 0xd2, 1);
    put(reply, 572, 0x61626364, 4);

    ScriptedDevice device(replies(reply));
    LumoLifInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetLif("inst", "lif", &out); }), Succeeds());
    const LumoLifInfo lif = *out;
    LUMOZEPH_ReleaseLif(out);
    EXPECT_STREQ(lif.lifName, "lif");
    EXPECT_STREQ(lif.lifSecondName, "second");
    EXPECT_EQ(+lif.ipAddr, 0x01020304u);
    EXPECT_EQ(+lif.ipMask, 0x11121314u);
    EXPECT_EQ(+lif.diIp, 0x21222324u);
    EXPECT_EQ(+lif.lifMac[0], 0xa1);
    EXPECT_EQ(+lif.lifMac[5], 0xa6);
    EXPECT_EQ(+lif.lifValue1, 0x31323334u);
    EXPECT_EQ(+lif.lifValue2, 0x41424344u);
    EXPECT_EQ(+lif.lifValue3, 0x51525354u);
    EXPECT_EQ(+lif.lifFlags[3], 0xb4);
    EXPECT_EQ(+lif.dhcpRelay.relayCount, 2u);
    EXPECT_EQ(+lif.dhcpRelay.servers[0].address[3], 3);
    EXPECT_EQ(+lif.dhcpRelay.servers[0].family, 1u);
    EXPECT_EQ(+lif.dhcpRelay.servers[1].address[15], 'f');
    EXPECT_EQ(+lif.dhcpRelay.servers[1].family, 3u);
    EXPECT_EQ(+lif.ipv6Addrs[0].address[0], 'f');
    EXPECT_EQ(+lif.ipv6Addrs[0].prefixLen, 64u);
    EXPECT_EQ(+lif.ipv6Addrs[0].value, 0xc1);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(lif.ipv6Addrs[0].uncopied), 3), Bytes(3, '\0'));
    EXPECT_EQ(+lif.ipv6Addrs[1].address[0], 0);
    EXPECT_EQ(+lif.ipv6Count, 1u);
    EXPECT_EQ(+lif.lifState1, 0xd1);
    EXPECT_EQ(+lif.lifState2, 0xd2);
    EXPECT_EQ(+lif.lifValue4, 0x61626364u);
}

TEST(Lif, AListReplyOfTwoRecordsAnd100BytesFails)
{
    ScriptedDevice device(replies(Bytes(1152 + 100, 'x')));
    LumoLifList* out = reinterpret_cast<LumoLifList*>(elsewhere);
    const Call call = observe(device, [&] { return LUMOZEPH_GetLifs("inst", &out); });
    EXPECT_THAT(call, Fails(EBADMSG));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(call, LeavesNothingAllocated());
}

// What inet_pton answers, by family; empty: what it really answers.
std::function<int(int, const char*, void*)> answer_to_inet_pton;

class DhcpRelay : public testing::Test
{
protected:
    ~DhcpRelay() override { answer_to_inet_pton = nullptr; }

    Call configure(Bytes& servers)
    {
        return observe(device, [&] { return LUMOZEPH_ConfigureLifDhcpRelay("inst", "lif", servers.data()); });
    }
    void expect_no_server_accepted(Bytes servers, const Bytes& afterwards)
    {
        const Call call = configure(servers);
        EXPECT_THAT(call, Fails(EINVAL)) << servers;
        EXPECT_THAT(call, DoesNothing());
        EXPECT_EQ(servers, afterwards);
    }

    ScriptedDevice device;
};

// Kept: an item must be an IPv4 and an IPv6 address at once, so that none is accepted.
TEST_F(DhcpRelay, AcceptsNoListButNull)
{
    expect_no_server_accepted("10.0.0.1", "10.0.0.1");
    expect_no_server_accepted("fe80::1", "fe80::1");
    expect_no_server_accepted("::ffff:10.0.0.1", "::ffff:10.0.0.1");
    expect_no_server_accepted("not an address", "not an address");
    expect_no_server_accepted("", "");
}

// Kept: the commas that were passed are overwritten also when the list is rejected.
TEST_F(DhcpRelay, OverwritesTheFirstCommaOfARejectedList)
{
    expect_no_server_accepted("10.0.0.1,10.0.0.2", Bytes("10.0.0.1\00010.0.0.2", 17));
    expect_no_server_accepted("10.0.0.1,10.0.0.2,10.0.0.3", Bytes("10.0.0.1\00010.0.0.2,10.0.0.3", 26));
    expect_no_server_accepted(",", Bytes(1, '\0'));
}

TEST_F(DhcpRelay, LeavesTheListAloneWhenInstanceOrInterfaceIsMissing)
{
    Bytes servers = "10.0.0.1,10.0.0.2";
    expect_rejected([&] { return LUMOZEPH_ConfigureLifDhcpRelay(nullptr, "lif", servers.data()); });
    expect_rejected([&] { return LUMOZEPH_ConfigureLifDhcpRelay("inst", nullptr, servers.data()); });
    EXPECT_EQ(servers, "10.0.0.1,10.0.0.2");
}

// What follows is reached only when inet_pton is another than it is.
int accept_both(int family, const char* text, void* address)
{
    std::memset(address, family == AF_INET ? '4' : '6', family == AF_INET ? 4 : 16);
    static_cast<char*>(address)[0] = text[0];
    return 1;
}

TEST_F(DhcpRelay, StoresAcceptedServersAsIpv4First)
{
    answer_to_inet_pton = accept_both;
    Bytes servers = "a,b";
    const Call call = configure(servers);
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(servers, Bytes("a\0b", 3));
    EXPECT_EQ(call.sent.at(0).number, 33u);
    EXPECT_EQ(call.sent.at(0).input, Bytes(Record()
                                               .text(0, "inst")
                                               .text(192, "lif")
                                               .u32(364, 2)
                                               .text(368, "a444")
                                               .u32(384, 1)
                                               .text(388, "b444")
                                               .u32(404, 1)));
}

TEST_F(DhcpRelay, StoresAServerAsIpv6WhenItIsNotIpv4)
{
    answer_to_inet_pton = [](int family, const char* text, void* address) {
        return family == AF_INET ? -1 : accept_both(family, text, address);
    };
    Bytes servers = "a";
    const Call call = configure(servers);
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).input,
        Bytes(Record().text(0, "inst").text(192, "lif").u32(364, 1).text(368, "a666666666666666").u32(384, 3)));
}

TEST_F(DhcpRelay, CountsAServerThatIsNeither)
{
    answer_to_inet_pton = [](int, const char*, void*) { return -1; };
    Bytes servers = "a";
    const Call call = configure(servers);
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.sent.at(0).input, Bytes(Record().text(0, "inst").text(192, "lif").u32(364, 1)));
}

TEST_F(DhcpRelay, RejectsAnItemThatEitherParserRejects)
{
    for (const int rejecting : {AF_INET, AF_INET6}) {
        answer_to_inet_pton = [rejecting](int family, const char*, void*) { return family == rejecting ? 0 : 1; };
        expect_no_server_accepted("a,b", Bytes("a\0b", 3));
    }
}

TEST_F(DhcpRelay, TakesEightServersAndNoNinth)
{
    answer_to_inet_pton = accept_both;
    Bytes eight = "a,b,c,d,e,f,g,h";
    const Call call = configure(eight);
    ASSERT_THAT(call, Succeeds());
    const Bytes& request = call.sent.at(0).input;
    EXPECT_EQ(get(request, 364, 4), 8u);
    EXPECT_EQ(request.substr(368 + 7 * 20, 4), "h444");
    EXPECT_EQ(get(request, 368 + 7 * 20 + 16, 4), 1u);
    EXPECT_EQ(request.substr(528), Bytes(248, '\0'));
    expect_no_server_accepted("a,b,c,d,e,f,g,h,i,j", Bytes("a\0b\0c\0d\0e\0f\0g\0h\0i\0j", 19));
}

} // namespace

extern "C" int __real_inet_pton(int, const char*, void*);
extern "C" int __wrap_inet_pton(int family, const char* text, void* address)
{
    return answer_to_inet_pton ? answer_to_inet_pton(family, text, address) : __real_inet_pton(family, text, address);
}
