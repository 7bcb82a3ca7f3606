// IPv4 routes.
#include "fake/matchers.h"
#include "shapes/rows.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using shapes::elsewhere;

namespace {

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
