// IPv4 routes, and the interface policies that look like them.
#include "lumozeph.h"
#include "support/layouts.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;

namespace {

const Layout& layout = layouts::route;

const Bytes policies_of_kind_3 = Record().text(0, "inst").text(148, "what").u32(216, 3);

const std::vector<SingleRead> single_reads {
    {"GetResolveRoute", 37, layout,
        Record().text(0, "inst").u32(64, 0x01020304).u32(68, 0x11121314).u32(72, 0x21222324),
        [](void** out) {
            return LUMOZEPH_GetResolveRoute("inst", 0x01020304, 0x11121314, 0x21222324, as<LumoRouteInfo>(out));
        },
        releasing(LUMOZEPH_ReleaseRoute)},
    {"GetResolveRouteWithLongKey", 37, layout, Record().text(0, Bytes(63, 'i')),
        [](void** out) { return LUMOZEPH_GetResolveRoute(Bytes(64, 'i').c_str(), 0, 0, 0, as<LumoRouteInfo>(out)); },
        releasing(LUMOZEPH_ReleaseRoute)},
};

INSTANTIATE_TEST_SUITE_P(Route, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

const std::vector<ListRead> list_reads {
    {"GetRoutes", 36, layout, 8000, 5344000, Record().text(0, "inst"),
        [](void** out) { return LUMOZEPH_GetRoutes("inst", as<LumoRouteList>(out)); },
        releasing(LUMOZEPH_ReleaseRoutes)},
    {"GetLifPolicies", 140, layout, 8000, 5344000, Record().text(0, "inst").u32(216, 0x01020304),
        [](void** out) { return LUMOZEPH_GetLifPolicies("inst", 0x01020304, nullptr, as<LumoRouteList>(out)); },
        releasing(LUMOZEPH_ReleaseRoutes)},
    {"GetLifPoliciesOfKind4", 140, layout, 8000, 5344000,
        Record().text(0, "inst").text(148, Bytes(63, 'w')).u32(216, 4),
        [](void** out) { return LUMOZEPH_GetLifPolicies("inst", 4, Bytes(64, 'w').c_str(), as<LumoRouteList>(out)); },
        releasing(LUMOZEPH_ReleaseRoutes)},
    // Kept: unlike the set and the delete, the read sends a text whatever the kind.
    {"GetLifPoliciesSendsTheTextOfAnyKind", 140, layout, 8000, 5344000, policies_of_kind_3,
        [](void** out) { return LUMOZEPH_GetLifPolicies("inst", 3, "what", as<LumoRouteList>(out)); },
        releasing(LUMOZEPH_ReleaseRoutes)},
};

INSTANTIATE_TEST_SUITE_P(Route, ListReads, testing::ValuesIn(list_reads), NameOfRow());

Record policy(std::uint32_t kind)
{
    return Record()
        .text(0, "inst")
        .u32(64, 0x01020304)
        .u32(68, 0x11121314)
        .u32(76, 0x21222324)
        .u32(80, 0x31323334)
        .text(84, "lif")
        .u32(216, kind);
}

const std::vector<ResultSend> result_sends {
    {"SetRoute", 34,
        Record()
            .text(0, "inst")
            .u32(64, 0x01020304)
            .u32(68, 0x11121314)
            .u32(76, 0x21222324)
            .u32(80, 0x31323334)
            .text(84, "lif"),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetRoute(0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, result);
        }},
    {"SetRouteWithoutInterface", 34, Record().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3).u32(80, 4),
        [](LumoCmdResult* result) { return LUMOZEPH_SetRoute(1, 2, 3, nullptr, "inst", 4, result); }},
    {"SetRouteWithLongTexts", 34, Record().text(0, Bytes(63, 'i')).text(84, Bytes(63, 'l')),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetRoute(0, 0, 0, Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str(), 0, result);
        }},
    // Kept: the delete carries no parameter.
    {"DelRouteHasNoParameter", 35,
        Record().text(0, "inst").u32(64, 0x01020304).u32(68, 0x11121314).u32(76, 0x21222324).text(84, "lif"),
        [](LumoCmdResult* result) {
            return LUMOZEPH_DelRoute(0x01020304, 0x11121314, 0x21222324, "lif", "inst", result);
        }},
    {"DelRouteWithoutInterface", 35, Record().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3),
        [](LumoCmdResult* result) { return LUMOZEPH_DelRoute(1, 2, 3, nullptr, "inst", result); }},
    // Kept: the text of any kind but 4 is ignored.
    {"SetLifPolicyIgnoresTheTextOfKind3", 141, policy(3),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetLifPolicy(
                3, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, result);
        }},
    {"SetLifPolicyOfKind4", 141, policy(4).text(148, "what"),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetLifPolicy(
                4, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, result);
        }},
    {"SetLifPolicyOfNegativeKind", 141, policy(0xffffffff),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetLifPolicy(
                -1, nullptr, 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, result);
        }},
    {"SetLifPolicyWithLongTexts", 141,
        Record().text(0, Bytes(63, 'i')).text(84, Bytes(63, 'l')).text(148, Bytes(63, 'w')).u32(216, 4),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetLifPolicy(
                4, Bytes(64, 'w').c_str(), 0, 0, 0, Bytes(64, 'l').c_str(), Bytes(64, 'i').c_str(), 0, result);
        }},
    {"SetLifPolicyWithoutInterface", 141, Record().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3).u32(80, 4),
        [](LumoCmdResult* result) { return LUMOZEPH_SetLifPolicy(0, nullptr, 1, 2, 3, nullptr, "inst", 4, result); }},
    {"DelLifPolicyIgnoresTheTextOfKind5", 142, policy(5),
        [](LumoCmdResult* result) {
            return LUMOZEPH_DelLifPolicy(
                5, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, result);
        }},
    {"DelLifPolicyOfKind4", 142, policy(4).text(148, "what"),
        [](LumoCmdResult* result) {
            return LUMOZEPH_DelLifPolicy(
                4, "what", 0x01020304, 0x11121314, 0x21222324, "lif", "inst", 0x31323334, result);
        }},
    {"DelLifPolicyWithoutInterface", 142, Record().text(0, "inst").u32(64, 1).u32(68, 2).u32(76, 3).u32(80, 4),
        [](LumoCmdResult* result) { return LUMOZEPH_DelLifPolicy(0, nullptr, 1, 2, 3, nullptr, "inst", 4, result); }},
};

INSTANTIATE_TEST_SUITE_P(Route, ResultSends, testing::ValuesIn(result_sends), NameOfRow());

TEST(Route, NeedsAnInstance)
{
    LumoCmdResult result;
    std::memset(&result, 0x77, sizeof result);
    const LumoCmdResult before = result;
    LumoRouteInfo* out = reinterpret_cast<LumoRouteInfo*>(elsewhere);
    expect_rejected([&] { return LUMOZEPH_SetRoute(1, 2, 3, "lif", nullptr, 4, &result); });
    expect_rejected([&] { return LUMOZEPH_DelRoute(1, 2, 3, "lif", nullptr, &result); });
    expect_rejected([&] { return LUMOZEPH_GetResolveRoute(nullptr, 1, 2, 3, &out); });
    expect_rejected([&] { return LUMOZEPH_SetLifPolicy(3, "what", 1, 2, 3, "lif", nullptr, 4, &result); });
    expect_rejected([&] { return LUMOZEPH_DelLifPolicy(3, "what", 1, 2, 3, "lif", nullptr, 4, &result); });
    EXPECT_EQ(out, reinterpret_cast<LumoRouteInfo*>(elsewhere));
    EXPECT_EQ(std::memcmp(&result, &before, sizeof result), 0);
}

TEST(LifPolicy, OfKind4NeedsAText)
{
    LumoCmdResult result;
    std::memset(&result, 0x77, sizeof result);
    const LumoCmdResult before = result;
    LumoRouteList* out = reinterpret_cast<LumoRouteList*>(elsewhere);
    expect_rejected([&] { return LUMOZEPH_SetLifPolicy(4, nullptr, 1, 2, 3, "lif", "inst", 4, &result); });
    expect_rejected([&] { return LUMOZEPH_DelLifPolicy(4, nullptr, 1, 2, 3, "lif", "inst", 4, &result); });
    expect_rejected([&] { return LUMOZEPH_GetLifPolicies("inst", 4, nullptr, &out); });
    EXPECT_EQ(out, reinterpret_cast<LumoRouteList*>(elsewhere));
    EXPECT_EQ(std::memcmp(&result, &before, sizeof result), 0);
}

TEST(Route, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(668, '\xee');
    put(reply, 0, 0x01020304, 4);
    put(reply, 4, 0x11121314, 4);
    put(reply, 8, 0x21222324, 4);
    put(reply, 12, 0x31323334, 4);
    put(reply, 16, 0x41, 1);
    put(reply, 17, 2, 1);
    reply.replace(20, 8, "8 bytes!");
    put(reply, 32, 0x51525354, 4);
    reply.replace(36, 4, Bytes("lif\0", 4));
    reply.replace(100, 8, "the next");
    put(reply, 112, 0x61626364, 4);

    ScriptedDevice device(replies(reply));
    LumoRouteInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetResolveRoute("inst", 1, 2, 3, &out); }), Succeeds());
    const LumoRouteInfo route = *out;
    LUMOZEPH_ReleaseRoute(out);
    EXPECT_EQ(+route.routeDest, 0x01020304u);
    EXPECT_EQ(+route.routeMask, 0x11121314u);
    EXPECT_EQ(+route.routeValue1, 0x21222324u);
    EXPECT_EQ(+route.routeValue2, 0x31323334u);
    EXPECT_EQ(+route.routeFlags, 0x41);
    EXPECT_EQ(+route.nextHopCount, 2);
    EXPECT_EQ(+route.uncopied[0], 0);
    EXPECT_EQ(+route.uncopied[1], 0);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(route.routeValue3), 8), "8 bytes!");
    for (const LumoNextHop& hop : {route.nextHops[0], route.nextHops[1]})
        EXPECT_EQ(Bytes(reinterpret_cast<const char*>(hop.uncopied), 4), Bytes(4, '\0'));
    EXPECT_EQ(+route.nextHops[0].nextHopAddr, 0x51525354u);
    EXPECT_STREQ(route.nextHops[0].nextHopLifName, "lif");
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(route.nextHops[0].nextHopValue), 8), "the next");
    EXPECT_EQ(+route.nextHops[1].nextHopAddr, 0x61626364u);
    const LumoNextHop none {};
    EXPECT_EQ(std::memcmp(&route.nextHops[2], &none, sizeof none), 0);
}

TEST(Route, WithoutNextHopsHasZeroedSlots)
{
    Bytes reply(668, '\xee');
    put(reply, 17, 0, 1);
    ScriptedDevice device(replies(reply));
    LumoRouteInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetResolveRoute("inst", 1, 2, 3, &out); }), Succeeds());
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(out) + 28, 640), Bytes(640, '\0'));
    LUMOZEPH_ReleaseRoute(out);
}

TEST(Route, AListReplyOfTwoRecordsAndAByteFails)
{
    ScriptedDevice device(replies(Bytes(668 * 2 + 1, 'x')));
    LumoRouteList* out = reinterpret_cast<LumoRouteList*>(elsewhere);
    EXPECT_THAT(observe(device, [&] { return LUMOZEPH_GetRoutes("inst", &out); }), Fails(EBADMSG));
    EXPECT_EQ(out, nullptr);
}

} // namespace
