// The library against the emulator's model: what is set can be read back.
#include "lumozeph.h"
#include "support/emulated.h"
#include "support/matchers.h"

#include <set>
#include <thread>

using namespace world;

namespace {

class Emulated : public testing::Test
{
protected:
    EmulatedDevice device;

    Call call(const std::function<std::int32_t()>& call) { return observe(device, call); }
};

TEST_F(Emulated, SettingsAreKept)
{
    std::uint32_t value = 0;
    EXPECT_THAT(call([] { return LUMOZEPH_SetLogLevel(3); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_SetExtendedLogLevel(4); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_SetStatsLevel(5); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_SetTxDispQueueSize(4096); }), Succeeds());
    EXPECT_THAT(call([&] { return LUMOZEPH_GetLogLevel(&value); }), Succeeds());
    EXPECT_EQ(value, 3u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetExtendedLogLevel(&value); }), Succeeds());
    EXPECT_EQ(value, 4u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetStatsLevel(&value); }), Succeeds());
    EXPECT_EQ(value, 5u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetTxDispQueueSize(&value); }), Succeeds());
    EXPECT_EQ(value, 4096u);
}

TEST_F(Emulated, AnInstanceIsCreatedReadUpdatedAndDeleted)
{
    LumoInstanceInfo* info = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetInstance("blue", &info); }), Fails(ENOENT));
    EXPECT_EQ(info, nullptr);
    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstance("blue", 7, nullptr, 0); }), Succeeds());
    ASSERT_THAT(call([&] { return LUMOZEPH_GetInstance("blue", &info); }), Succeeds());
    EXPECT_STREQ(info->instanceKey, "blue");
    EXPECT_EQ(+info->value1, 7u);
    const std::string uuid = info->text2;
    EXPECT_EQ(uuid.size(), 36u);
    LUMOZEPH_ReleaseInstance(info);

    EXPECT_THAT(call([&] { return LUMOZEPH_SetLumoInstance(uuid.c_str(), 8, nullptr, 0); }), Succeeds());
    ASSERT_THAT(call([&] { return LUMOZEPH_GetInstance("blue", &info); }), Succeeds());
    EXPECT_EQ(+info->value1, 8u);
    LUMOZEPH_ReleaseInstance(info);

    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstanceTunables("blue", "knobs", 1); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_DelLumoInstance("blue"); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_DelLumoInstance("blue"); }), Fails(ENOENT));
    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstanceTunables("blue", "knobs", 1); }), Fails(ENOENT));
}

TEST_F(Emulated, AllInstancesAreListed)
{
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "instance-" + std::to_string(i);
        names.insert(name);
        ASSERT_THAT(call([&] { return LUMOZEPH_SetLumoInstance(name.c_str(), 1, nullptr, 2); }), Succeeds());
    }
    LumoInstanceList* list = nullptr;
    ASSERT_THAT(call([&] { return LUMOZEPH_GetInstances(&list); }), Succeeds());
    ASSERT_EQ(list->count, 1000);
    for (int i = 0; i < list->count; ++i)
        names.erase(list->records[i].instanceKey);
    EXPECT_TRUE(names.empty());
    LUMOZEPH_ReleaseInstances(list);
}

constexpr std::uint32_t ip(unsigned a, unsigned b, unsigned c, unsigned d)
{
    return a | b << 8 | c << 16 | d << 24;
}

// An instance "blue" with an enabled LIF "uplink".
class EmulatedRouter : public Emulated
{
protected:
    EmulatedRouter()
    {
        succeed([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); });
        succeed([] { return LUMOZEPH_SetLif("uplink", "second", 0, 0, 11, 12, 13, 14, "blue", nullptr); });
        succeed([] { return LUMOZEPH_SetLifIp("blue", "uplink", ip(10, 0, 0, 2), ip(255, 255, 255, 0)); });
        succeed([] { return LUMOZEPH_EnableLif("blue", "uplink"); });
    }

    void succeed(const std::function<std::int32_t()>& function) { EXPECT_THAT(call(function), Succeeds()); }

    LumoLifInfo lif()
    {
        LumoLifInfo* out = nullptr;
        LumoLifInfo copy {};
        EXPECT_THAT(call([&] { return LUMOZEPH_GetLif("blue", "uplink", &out); }), Succeeds());
        if (out != nullptr)
            copy = *out;
        LUMOZEPH_ReleaseLif(out);
        return copy;
    }
};

TEST_F(EmulatedRouter, ALifIsReadBackAsItWasSet)
{
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 0x80fe, 0x0100000000000000, 64); });
    succeed([] { return LUMOZEPH_SetLifVxlanCP("blue", "uplink"); });
    succeed([] { return LUMOZEPH_SetLifMcastRouting("blue", "uplink", 1); });
    succeed([] { return LUMOZEPH_RAMTUSetv6("blue", "uplink", 1400); });
    succeed([] { return LUMOZEPH_SetLifDIIp("blue", "uplink", 15); });
    succeed([] { return LUMOZEPH_SetLifVxlanMulticastIp("blue", "uplink", 16); });
    succeed([] { return LUMOZEPH_ConfigureLifDhcpRelay("blue", "uplink", nullptr); });
    const LumoLifInfo info = lif();
    EXPECT_STREQ(info.lifName, "uplink");
    EXPECT_STREQ(info.lifSecondName, "second");
    EXPECT_EQ(+info.ipAddr, ip(10, 0, 0, 2));
    EXPECT_EQ(+info.ipMask, ip(255, 255, 255, 0));
    EXPECT_EQ(+info.diIp, 15u);
    EXPECT_EQ(+info.lifValue1, 11u);
    EXPECT_EQ(+info.lifValue2, 12u);
    EXPECT_EQ(+info.lifValue3, 14u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(info.lifFlags), 4), Bytes("\1\1\1\0", 4));
    EXPECT_EQ(+info.ipv6Count, 1u);
    EXPECT_EQ(+info.ipv6Addrs[0].address[0], 0xfe);
    EXPECT_EQ(+info.ipv6Addrs[0].address[15], 0x01);
    EXPECT_EQ(+info.ipv6Addrs[0].prefixLen, 64u);
    EXPECT_EQ(+info.lifValue4, 1400u);
}

TEST_F(EmulatedRouter, WhatIsRemovedFromALifIsGone)
{
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 1, 2, 64); });
    succeed([] { return LUMOZEPH_DelLifIpv6("blue", "uplink", 1, 2, 64); });
    EXPECT_THAT(call([] { return LUMOZEPH_DelLifIpv6("blue", "uplink", 1, 2, 64); }), Fails(EADDRNOTAVAIL));
    succeed([] { return LUMOZEPH_DelLifIp("blue", "uplink", ip(10, 0, 0, 2), ip(255, 255, 255, 0)); });
    succeed([] { return LUMOZEPH_SetLifVxlanCP("blue", "uplink"); });
    succeed([] { return LUMOZEPH_DelLifVxlanCP("blue", "uplink"); });
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    const LumoLifInfo info = lif();
    EXPECT_EQ(+info.ipv6Count, 0u);
    EXPECT_EQ(+info.ipAddr, 0u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(info.lifFlags), 4), Bytes(4, '\0'));
    succeed([] { return LUMOZEPH_DelLif("uplink", "second", "blue"); });
    LumoLifInfo* out = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetLif("blue", "uplink", &out); }), Fails(ENOENT));
}

TEST_F(EmulatedRouter, BridgeLifsAreAListOfTheirOwn)
{
    succeed([] { return LUMOZEPH_SetBridgeLif("bridged", "", 1, 2, 3, "blue", 1); });
    LumoLifList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetLifs("blue", &list); });
    ASSERT_EQ(list->count, 1);
    EXPECT_STREQ(list->records[0].lifName, "uplink");
    LUMOZEPH_ReleaseLifs(list);
    succeed([&] { return LUMOZEPH_GetBridgeLifs("blue", &list); });
    ASSERT_EQ(list->count, 1);
    EXPECT_STREQ(list->records[0].lifName, "bridged");
    LUMOZEPH_ReleaseLifs(list);
    succeed([] { return LUMOZEPH_SetBridgeLif("bridged", "", 1, 2, 3, "blue", 0); });
    succeed([&] { return LUMOZEPH_GetBridgeLifs("blue", &list); });
    EXPECT_EQ(list->count, 0);
    LUMOZEPH_ReleaseLifs(list);
}

TEST_F(EmulatedRouter, ADestinationIsResolvedByItsLongestPrefix)
{
    LumoCmdResult result {};
    succeed([&] { return LUMOZEPH_SetRoute(0, 0, ip(10, 0, 0, 1), "uplink", "blue", 0, &result); });
    EXPECT_STREQ(reinterpret_cast<const char*>(result.bytes) + 4, "done");
    succeed([] {
        return LUMOZEPH_SetRoute(
            ip(192, 168, 4, 0), ip(255, 255, 255, 0), ip(10, 0, 0, 8), "uplink", "blue", 5, nullptr);
    });
    const auto gateway_to = [&](std::uint32_t destination) {
        LumoRouteInfo* route = nullptr;
        EXPECT_THAT(
            call([&] { return LUMOZEPH_GetResolveRoute("blue", destination, 0xffffffff, 0, &route); }), Succeeds());
        const std::uint32_t gateway = route != nullptr ? +route->nextHops[0].nextHopAddr : 0;
        LUMOZEPH_ReleaseRoute(route);
        return gateway;
    };
    EXPECT_EQ(gateway_to(ip(192, 168, 4, 9)), ip(10, 0, 0, 8));
    EXPECT_EQ(gateway_to(ip(192, 168, 5, 9)), ip(10, 0, 0, 1));
    EXPECT_EQ(gateway_to(ip(10, 0, 0, 9)), 0u);

    LumoRouteList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetRoutes("blue", &list); });
    EXPECT_EQ(list->count, 3);
    LUMOZEPH_ReleaseRoutes(list);
    succeed([] {
        return LUMOZEPH_DelRoute(ip(192, 168, 4, 0), ip(255, 255, 255, 0), ip(10, 0, 0, 8), "uplink", "blue", nullptr);
    });
    EXPECT_EQ(gateway_to(ip(192, 168, 4, 9)), ip(10, 0, 0, 1));
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    LumoRouteInfo* route = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetResolveRoute("blue", 1, 2, 3, &route); }), Fails(ENETUNREACH));
}

TEST_F(EmulatedRouter, Ipv6RoutesAreCountedReadAndDeleted)
{
    for (std::uint64_t i = 0; i < 3; ++i)
        succeed([&] { return LUMOZEPH_SetRoutev6(i, 2, 64, 4, 5, "uplink", "blue"); });
    succeed([&] { return LUMOZEPH_DelRoutev6(1, 2, 64, 4, 5, "uplink", "blue"); });
    void* block = nullptr;
    std::uint32_t count = 0;
    succeed([&] { return LUMOZEPH_GetRoutesv6("blue", &block, &count); });
    ASSERT_EQ(count, 2u);
    const Bytes second(static_cast<const char*>(block) + 776, 776);
    EXPECT_EQ(get(second, 68, 8), 2u);
    EXPECT_EQ(get(second, 84, 1), 64u);
    free(block);
    succeed([] { return LUMOZEPH_PMTUTableCearv6(); });
}

TEST_F(EmulatedRouter, NeighboursAreDumpedAndCleared)
{
    succeed([] { return LUMOZEPH_SetArp(ip(10, 0, 0, 9), "00:11:22:33:44:55", "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetProxyArp(ip(10, 0, 0, 10), "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetArpv6(1, 2, "00:11:22:33:44:66", "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetProxyArpv6(3, 4, "uplink", "blue"); });
    Bytes image(7471104, '\x5a');
    succeed([&] { return LUMOZEPH_GetArps("blue", nullptr, image.data()); });
    EXPECT_EQ(get(image, 0, 4), ip(10, 0, 0, 9));
    EXPECT_EQ(image.substr(16, 6), "uplink");
    EXPECT_EQ(image.substr(80, 17), "00:11:22:33:44:55");
    EXPECT_EQ(image.substr(114, 114), Bytes(114, '\0'));
    succeed([&] { return LUMOZEPH_GetProxyArps("blue", "uplink", image.data()); });
    EXPECT_EQ(get(image, 0, 4), ip(10, 0, 0, 10));
    EXPECT_EQ(get(image, 98, 1), 1u);
    succeed([&] { return LUMOZEPH_GetArpsv6("blue", nullptr, image.data()); });
    EXPECT_EQ(get(image, 0, 8), 1u);
    EXPECT_EQ(get(image, 114, 8), 3u);
    succeed([] { return LUMOZEPH_DelArp(ip(10, 0, 0, 9), "uplink", "blue"); });
    succeed([] { return LUMOZEPH_DelProxyArp(ip(10, 0, 0, 10), "uplink", "blue"); });
    succeed([] { return LUMOZEPH_DelArpv6(1, 2, "uplink", "blue"); });
    succeed([] { return LUMOZEPH_DelProxyArpv6(3, 4, "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetArp(1, "mac", "uplink", "blue"); });
    succeed([] { return LUMOZEPH_ClearArp("blue", nullptr); });
    succeed([] { return LUMOZEPH_ClearArpv6("blue", "uplink"); });
    succeed([&] { return LUMOZEPH_GetArps("blue", nullptr, image.data()); });
    EXPECT_EQ(image.substr(0, 114), Bytes(114, '\0'));
}

TEST_F(EmulatedRouter, InterfacePoliciesAreListedByKind)
{
    succeed([] { return LUMOZEPH_SetLifPolicy(3, nullptr, 1, 2, 3, "uplink", "blue", 4, nullptr); });
    succeed([] { return LUMOZEPH_SetLifPolicy(4, "what", 5, 6, 7, nullptr, "blue", 8, nullptr); });
    LumoRouteList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetLifPolicies("blue", 4, "what", &list); });
    ASSERT_EQ(list->count, 1);
    EXPECT_EQ(+list->records[0].routeDest, 5u);
    EXPECT_EQ(+list->records[0].nextHops[0].nextHopAddr, 7u);
    LUMOZEPH_ReleaseRoutes(list);
    succeed([] { return LUMOZEPH_DelLifPolicy(3, nullptr, 1, 2, 3, "uplink", "blue", 4, nullptr); });
    succeed([&] { return LUMOZEPH_GetLifPolicies("blue", 3, nullptr, &list); });
    EXPECT_EQ(list->count, 0);
    LUMOZEPH_ReleaseRoutes(list);
}

TEST_F(EmulatedRouter, PoliciesLieInTables)
{
    std::uint32_t count = 0;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetPolicyCount(7, &count); }), Fails(ENOENT));
    succeed([] { return LUMOZEPH_SetPolicyTable(7, "table", nullptr); });
    succeed([] { return LUMOZEPH_SetPolicy(7, 1, 2, 3, nullptr); });
    succeed([] { return LUMOZEPH_SetPolicy(7, 4, 5, 6, nullptr); });
    succeed([] { return LUMOZEPH_DelPolicy(7, 1, 2, nullptr); });
    succeed([&] { return LUMOZEPH_GetPolicyCount(7, &count); });
    EXPECT_EQ(count, 1u);
    LumoPolicyList* policies = nullptr;
    succeed([&] { return LUMOZEPH_GetPolicy(7, &policies); });
    ASSERT_EQ(policies->count, 1);
    EXPECT_EQ(+policies->records[0].value2, 4u);
    EXPECT_EQ(+policies->records[0].value4, 6u);
    LUMOZEPH_ReleaseAllPolicy(policies);
    LumoPolicyTableList* tables = nullptr;
    succeed([&] { return LUMOZEPH_GetPolicyTable(&tables); });
    ASSERT_EQ(tables->count, 1);
    EXPECT_STREQ(tables->records[0].policyTableName, "table");
    LUMOZEPH_ReleaseAllPolicyTable(tables);
    succeed([] { return LUMOZEPH_DelPolicyTable(7, nullptr); });
}

TEST_F(EmulatedRouter, ALifRefersToPolicyTables)
{
    LumoPolicyTableRefEntry entries[20] {};
    entries[19].bytes[23] = 9;
    succeed([&] { return LUMOZEPH_SetLifPolicyTableRef("blue", "uplink", 20, entries, nullptr); });
    LumoLifPolicyTableRef* ref = nullptr;
    succeed([&] { return LUMOZEPH_GetLifPolicyTableRef("blue", "uplink", &ref); });
    EXPECT_EQ(+ref->refCount, 20);
    EXPECT_EQ(+ref->refs[19].bytes[23], 9);
    LUMOZEPH_ReleaseLifPolicyTableRef(ref);
    succeed([] { return LUMOZEPH_DelLifPolicyTableRef("blue", "uplink", nullptr); });
    succeed([&] { return LUMOZEPH_GetLifPolicyTableRef("blue", "uplink", &ref); });
    EXPECT_EQ(+ref->refCount, 0);
    LUMOZEPH_ReleaseLifPolicyTableRef(ref);
}

TEST_F(Emulated, AnUnknownCommandIsReportedByTheModule)
{
    LumoEnvelope envelope {};
    EXPECT_THAT(call([&] { return LUMOZEPHIoctl(70, &envelope); }), Fails(ENOTTY));
}

TEST(Threads, CallsFromManyThreadsAreIndependent)
{
    EmulatedDevice device;
    const Installed installed(device);
    std::vector<std::thread> threads;
    std::atomic<int> failures {0};
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([t, &failures] {
            const std::string name = "thread-" + std::to_string(t);
            for (int i = 0; i < 50; ++i) {
                LumoInstanceInfo* info = nullptr;
                LumoInstanceList* list = nullptr;
                const auto value = static_cast<std::uint32_t>(1000 * t + i);
                if (LUMOZEPH_SetLumoInstance(name.c_str(), value, nullptr, 0) != 0 ||
                    LUMOZEPH_GetInstance(name.c_str(), &info) != 0 || info->value1 != value ||
                    LUMOZEPH_GetInstances(&list) != 0 || list->count < 1 || list->count > 8)
                    ++failures;
                LUMOZEPH_ReleaseInstance(info);
                LUMOZEPH_ReleaseInstances(list);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

} // namespace
