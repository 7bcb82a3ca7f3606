// The library against the emulator's model: what is set can be read back.
#include "emulator/faults/fault.h"
#include "emulator/protocol/commands.h"
#include "fake/emulated.h"
#include "fake/matchers.h"
#include "operations/operations.h"

#include <lumozeph.h>
#include <set>
#include <thread>

using namespace fake;
using operations::get;

namespace {

class Emulated : public testing::Test
{
protected:
    explicit Emulated(emulator::Settings settings = {}) : device(settings) {}

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
    explicit EmulatedRouter(emulator::Settings settings = {}) : Emulated(settings)
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
        succeed([&] { return LUMOZEPH_SetRoutev6(i, 0, 64, 0, 0, "uplink", "blue"); });
    succeed([&] { return LUMOZEPH_DelRoutev6(1, 0, 64, 0, 0, "uplink", "blue"); });
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

TEST_F(EmulatedRouter, TheIpv6NetworksOfEnabledLifsAreRoutes)
{
    const auto routes = [&] {
        void* block = nullptr;
        std::uint32_t count = 0;
        succeed([&] { return LUMOZEPH_GetRoutesv6("blue", &block, &count); });
        Bytes all(static_cast<const char*>(block), std::size_t {count} * 776);
        free(block);
        return all;
    };
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 0xb80d0120, 0x0200000000000000, 64); });
    const Bytes connected = routes();
    ASSERT_EQ(connected.size(), 776u);
    EXPECT_STREQ(connected.c_str(), "blue");
    EXPECT_EQ(get(connected, 68, 8), 0xb80d0120u);
    EXPECT_EQ(get(connected, 76, 8), 0u);
    EXPECT_EQ(get(connected, 84, 1), 64u);
    EXPECT_EQ(connected.substr(101, 16), Bytes(16, '\0'));
    EXPECT_STREQ(connected.c_str() + 117, "uplink");
    succeed([] { return LUMOZEPH_SetRoutev6(0, 0, 0, 0xb80d0120, 0x0100000000000000, nullptr, "blue"); });
    EXPECT_EQ(routes().size(), 2 * 776u);
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    EXPECT_EQ(routes().size(), 776u);
    succeed([] { return LUMOZEPH_EnableLif("blue", "uplink"); });
    succeed([] { return LUMOZEPH_DelLifIpv6("blue", "uplink", 0xb80d0120, 0x0200000000000000, 64); });
    EXPECT_EQ(routes().size(), 776u);
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
    succeed([] { return LUMOZEPH_SetArp(1, "02:00:00:00:00:01", "uplink", "blue"); });
    succeed([] { return LUMOZEPH_ClearArp("blue", nullptr); });
    succeed([] { return LUMOZEPH_ClearArpv6("blue", "uplink"); });
    succeed([&] { return LUMOZEPH_GetArps("blue", nullptr, image.data()); });
    EXPECT_EQ(image.substr(0, 114), Bytes(114, '\0'));
}

TEST_F(EmulatedRouter, InterfacePoliciesAreListedByKind)
{
    succeed([] { return LUMOZEPH_SetLifPolicy(3, nullptr, 1, 0xff, 3, "uplink", "blue", 4, nullptr); });
    succeed([] { return LUMOZEPH_SetLifPolicy(4, "what", 5, 0xff, 7, nullptr, "blue", 8, nullptr); });
    LumoRouteList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetLifPolicies("blue", 4, "what", &list); });
    ASSERT_EQ(list->count, 1);
    EXPECT_EQ(+list->records[0].routeDest, 5u);
    EXPECT_EQ(+list->records[0].nextHops[0].nextHopAddr, 7u);
    LUMOZEPH_ReleaseRoutes(list);
    succeed([] { return LUMOZEPH_DelLifPolicy(3, nullptr, 1, 0xff, 3, "uplink", "blue", 4, nullptr); });
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
    EXPECT_THAT(
        call([&] { return LUMOZEPH_SetLifPolicyTableRef("blue", "uplink", 20, entries, nullptr); }), Fails(ENOENT));
    succeed([] { return LUMOZEPH_SetPolicyTable(0, "table", nullptr); });
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

TEST_F(EmulatedRouter, StatisticsHaveTheirKind)
{
    LumoStats* stats = nullptr;
    const auto kind = [&](const std::function<std::int32_t()>& read) {
        succeed(read);
        const std::uint32_t read_kind = stats->statsKind;
        LUMOZEPH_ReleaseStats(stats);
        return read_kind;
    };
    EXPECT_EQ(kind([&] { return LUMOZEPH_GetLumoInstanceCPStats("blue", &stats); }), 0u);
    EXPECT_EQ(kind([&] { return LUMOZEPH_GetLifStats("blue", "uplink", &stats); }), 1u);
    EXPECT_EQ(kind([&] { return LUMOZEPH_GetLifStatsCached("blue", "uplink", &stats); }), 1u);
    EXPECT_EQ(kind([&] { return LUMOZEPH_GetLumoDiStats(&stats); }), 3u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetLifStats("blue", "no lif", &stats); }), Fails(ENOENT));
    succeed([] { return LUMOZEPH_ResetLumoInstanceCPStats("blue"); });
    succeed([] { return LUMOZEPH_ResetLifStats("blue", "uplink"); });
    succeed([] { return LUMOZEPH_ResetLumoDiStats(); });
}

TEST_F(EmulatedRouter, TheControlPlaneStateIsReadBack)
{
    succeed([] { return LUMOZEPH_CPActivate(5); });
    succeed([] { return LUMOZEPH_SetCPIp("blue", 6); });
    succeed([] { return LUMOZEPH_SetLumoInstanceCPSyncState("blue", 7); });
    LumoCPSyncState* state = nullptr;
    succeed([&] { return LUMOZEPH_GetLumoInstanceCPSyncState("blue", &state); });
    EXPECT_EQ(+state->entries[0].value2, 7u);
    EXPECT_EQ(+state->entries[0].value3, 6u);
    EXPECT_EQ(+state->entries[0].value4, 5u);
    LUMOZEPH_ReleaseStats(state);
}

TEST_F(EmulatedRouter, ConnectionsArePlumbedReadAndUnplumbed)
{
    succeed([] { return LUMOZEPH_PlumbLumoConnection("port", "text", 0, nullptr, nullptr, nullptr); });
    Bytes record(152, '\x5a');
    succeed([&] { return LUMOZEPH_GetConnection("port", record.data()); });
    EXPECT_EQ(record.substr(0, 5), Bytes("port\0", 5));
    EXPECT_EQ(record.substr(64, 4), "text");
    Bytes all(131072, '\0');
    succeed([&] { return LUMOZEPH_GetConnections(all.data()); });
    EXPECT_EQ(all.substr(0, 152), record);
    succeed([] { return LUMOZEPH_UnPlumbLumoConnection("port"); });
    EXPECT_THAT(call([] { return LUMOZEPH_UnPlumbLumoConnection("port"); }), Fails(ENOENT));
    succeed([] { return LUMOZEPH_PlumbBFDPortConnection("bfd", "text", nullptr); });
    succeed([&] { return LUMOZEPH_GetBFDPortConnections(all.data()); });
    EXPECT_EQ(all.substr(0, 3), "bfd");
    succeed([] { return LUMOZEPH_UnPlumbBFDPortConnection("bfd"); });
}

TEST_F(Emulated, HousekeepingIsAnswered)
{
    std::uint8_t mac[6] = {};
    std::uint32_t value = 4711;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetVMAC("port", mac); }), Succeeds());
    EXPECT_EQ(+mac[0], 0x02);
    EXPECT_THAT(call([&] { return LUMOZEPH_LUMODevCheckConnDeletion(&value); }), Succeeds());
    EXPECT_EQ(value, 0u);
    EXPECT_THAT(call([] { return LUMOZEPH_GenericFlush(1, 2, 3, 4, nullptr, 5); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_PreUnload(); }), Succeeds());
    EXPECT_THAT(call([&] { return LUMOZEPH_PerformFullSyncSave(1, &value); }), Succeeds());
    EXPECT_THAT(call([&] { return LUMOZEPH_PerformFullSyncSave(1, &value); }), Succeeds());
    EXPECT_THAT(call([&] { return LUMOZEPH_GetFullSyncSaveStatus(&value); }), Succeeds());
    EXPECT_EQ(value, 2u);
}

TEST_F(EmulatedRouter, AFlushForgetsNeighboursAndForwardingEntries)
{
    const auto set = [&] {
        succeed([] { return LUMOZEPH_SetArp(ip(10, 0, 0, 9), "00:11:22:33:44:55", "uplink", "blue"); });
        succeed([] { return LUMOZEPH_BridgeAdd("bridge", 1); });
        succeed([] { return LUMOZEPH_BridgeSetFdbEntry("bridge", "00:11:22:33:44:55", 1, 2, 3, 4); });
    };
    const auto flush = [&](const char* what) {
        return call([=] { return LUMOZEPH_GenericFlush(0, 0, 0, 0, what, 0); });
    };
    const auto has_neighbours = [&] {
        Bytes image(7471104, '\0');
        succeed([&] { return LUMOZEPH_GetArps("blue", nullptr, image.data()); });
        return image[99] != '\0';
    };
    const auto has_forwarding_entries = [&] {
        LumoBridgeFdbList* fdb = nullptr;
        succeed([&] { return LUMOZEPH_GetBridgeFdbEntries("bridge", 1, 2, &fdb); });
        const bool any = fdb->count != 0;
        LUMOZEPH_ReleaseBridgeFdbEntries(fdb);
        return any;
    };
    set();
    EXPECT_THAT(flush("nothing"), Succeeds());
    EXPECT_THAT(flush("blue"), Succeeds());
    EXPECT_FALSE(has_neighbours());
    EXPECT_TRUE(has_forwarding_entries());
    set();
    EXPECT_THAT(flush("bridge"), Succeeds());
    EXPECT_TRUE(has_neighbours());
    EXPECT_FALSE(has_forwarding_entries());
    set();
    EXPECT_THAT(flush(nullptr), Succeeds());
    EXPECT_FALSE(has_neighbours());
    EXPECT_FALSE(has_forwarding_entries());
    // The LIF knows that it has no neighbours any more.
    succeed([] { return LUMOZEPH_DelLif("uplink", "", "blue"); });
}

TEST_F(Emulated, TheModuleCannotBeUnloadedWhileItIsInUse)
{
    const auto expect_in_use = [&](const std::function<std::int32_t()>& set,
                                   const std::function<std::int32_t()>& remove) {
        EXPECT_THAT(call([] { return LUMOZEPH_PreUnload(); }), Succeeds());
        EXPECT_THAT(call(set), Succeeds());
        EXPECT_THAT(call([] { return LUMOZEPH_PreUnload(); }), Fails(EBUSY));
        EXPECT_THAT(call(remove), Succeeds());
    };
    expect_in_use([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); },
        [] { return LUMOZEPH_DelLumoInstance("blue"); });
    expect_in_use([] { return LUMOZEPH_BridgeAdd("bridge", 1); }, [] { return LUMOZEPH_BridgeDel("bridge", 1); });
    expect_in_use(
        [] { return LUMOZEPH_BridgeClusterSet("one", 1); }, [] { return LUMOZEPH_BridgeClusterSet("one", 0); });
    expect_in_use([] { return LUMOZEPH_AddBridgeEndpoint("a", "", "name", 1, 2, "", 3, 4, "", 5); },
        [] { return LUMOZEPH_DelBridgeEndpoint("a", "name"); });
    expect_in_use([] { return LUMOZEPH_PlumbLumoConnection("port", "", 0, nullptr, nullptr, nullptr); },
        [] { return LUMOZEPH_UnPlumbLumoConnection("port"); });
    expect_in_use([] { return LUMOZEPH_PlumbBFDPortConnection("bfd", "", nullptr); },
        [] { return LUMOZEPH_UnPlumbBFDPortConnection("bfd"); });
    expect_in_use([] { return LUMOZEPH_SetPolicyTable(7, "table", nullptr); },
        [] { return LUMOZEPH_DelPolicyTable(7, nullptr); });
}

TEST_F(EmulatedRouter, ABridgeIsReadBackAsItWasSet)
{
    succeed([] { return LUMOZEPH_BridgeAdd("bridge", 11); });
    succeed([] { return LUMOZEPH_BridgeEnable("bridge", 1); });
    succeed([] { return LUMOZEPH_BridgeSetHAAdminState("bridge", 12); });
    succeed([] { return LUMOZEPH_SetBridgeRepMode("bridge", 13); });
    succeed([] { return LUMOZEPH_BridgeSetFdbEntry("bridge", "00:11:22:33:44:55", 1, 2, 3, 4); });
    LumoBridgeInstanceInfo* info = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeInstance("bridge", &info); });
    EXPECT_STREQ(info->name, "bridge");
    EXPECT_EQ(+info->value2, 11u);
    EXPECT_EQ(+info->value3, 1u);
    EXPECT_EQ(+info->value4, 12u);
    EXPECT_EQ(+info->value5, 13u);
    LUMOZEPH_ReleaseBridgeInstance(info);
    LumoBridgeFdbList* fdb = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeFdbEntries("bridge", 1, 2, &fdb); });
    ASSERT_EQ(fdb->count, 1);
    EXPECT_EQ(+fdb->records[0].mac[5], 0x55);
    EXPECT_EQ(fdb->records[0].value3 + 0u, 4u);
    EXPECT_EQ(+fdb->records[0].value4, 3u);
    LUMOZEPH_ReleaseBridgeFdbEntries(fdb);
    succeed([] { return LUMOZEPH_BridgeClearFdbTable("bridge", 1, 2); });
    succeed([&] { return LUMOZEPH_GetBridgeFdbEntries("bridge", 1, 2, &fdb); });
    EXPECT_EQ(fdb->count, 0);
    LUMOZEPH_ReleaseBridgeFdbEntries(fdb);
    LumoBridgeNetworkList* networks = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeNetworks("", "bridge", &networks); });
    EXPECT_EQ(networks->count, 0);
    LUMOZEPH_ReleaseBridgeNetworks(networks);
    LumoBridgePortList* ports = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgePorts("", "bridge", 1, 2, &ports); });
    EXPECT_EQ(ports->count, 0);
    LUMOZEPH_ReleaseBridgePorts(ports);
    succeed([] { return LUMOZEPH_BridgeDisable("bridge", 1); });
    LumoBridgeInstanceList* bridges = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeInstances(&bridges); });
    ASSERT_EQ(bridges->count, 1);
    EXPECT_EQ(+bridges->records[0].value3, 0u);
    LUMOZEPH_ReleaseBridgeInstances(bridges);
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeSetConfig("bridge", 70, 1); }), Fails(ENOTTY));
    succeed([] { return LUMOZEPH_BridgeDel("bridge", 0); });
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeEnable("bridge", 1); }), Fails(ENOENT));
}

TEST_F(EmulatedRouter, PmacsAreKept)
{
    constexpr std::uint8_t mac[6] = {2, 3, 4, 5, 6, 7};
    Bytes buffer(426080, '\0');
    succeed([&] { return LUMOZEPH_AddPmac(9, mac); });
    succeed([&] { return LUMOZEPH_GetPmac(buffer.data()); });
    EXPECT_EQ(buffer.substr(0, 7), "\2\3\4\5\6\7\x9");
    succeed([&] { return LUMOZEPH_DelPmac(mac); });
    EXPECT_THAT(call([&] { return LUMOZEPH_DelPmac(mac); }), Fails(ENOENT));
    succeed([&] { return LUMOZEPH_DumpFLTable(1, buffer.data()); });
}

TEST_F(EmulatedRouter, ClustersHaveNodes)
{
    constexpr std::uint8_t mac[6] = {2, 3, 4, 5, 6, 7};
    succeed([] { return LUMOZEPH_BridgeClusterSet("one", 1); });
    succeed([] { return LUMOZEPH_BridgeClusterSet("two", 1); });
    succeed([&] { return LUMOZEPH_BridgeClusterNodeSet("one", "a", mac, 1); });
    succeed([&] { return LUMOZEPH_BridgeClusterNodeSet("two", "b", mac, 1); });
    succeed([] { return LUMOZEPH_SetBridgeClusterDebug(nullptr, 5); });
    succeed([] { return LUMOZEPH_BridgeClusterBfdHAProfileSet("one", 6, 7, 8); });
    LumoBridgeClusterList* clusters = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeClusters(nullptr, &clusters); });
    ASSERT_EQ(clusters->count, 2);
    EXPECT_STREQ(clusters->records[1].ident, "two");
    EXPECT_EQ(+clusters->records[1].value5, 5);
    EXPECT_EQ(+clusters->records[0].block[0], 6);
    LUMOZEPH_ReleaseBridgeClusters(clusters);
    LumoBridgeClusterNodeList* nodes = nullptr;
    const auto count_nodes = [&](const char* key) {
        succeed([&] { return LUMOZEPH_GetBridgeClusterNodes(key, &nodes); });
        const std::int32_t count = nodes->count;
        LUMOZEPH_ReleaseBridgeClusterNodes(nodes);
        return count;
    };
    EXPECT_EQ(count_nodes(nullptr), 2);
    EXPECT_EQ(count_nodes("two"), 1);
    succeed([] { return LUMOZEPH_BridgeClusterNodeSet("one", "a", nullptr, 0); });
    EXPECT_EQ(count_nodes("one"), 0);
    succeed([] { return LUMOZEPH_FlushBridgeCluster("two", 1); });
    EXPECT_EQ(count_nodes(nullptr), 0);
    succeed([] { return LUMOZEPH_BridgeClusterSet("two", 0); });
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeClusterSet("two", 0); }), Fails(ENOENT));
    Bytes buffer(2048, '\0');
    const Bytes block(64, 'b');
    succeed([&] { return LUMOZEPH_BridgeLocalTransportNodeSet("one", "two", "three", 4, block.data(), 1); });
    succeed([&] { return LUMOZEPH_BridgeGetLocalTransportNode(buffer.data(), 0); });
    EXPECT_EQ(buffer.substr(128, 5), "three");
    EXPECT_EQ(buffer.substr(148, 64), block);
    succeed([&] { return LUMOZEPH_BridgeLocalTransportNodeSet("", "", "", 0, block.data(), 0); });
    succeed([&] { return LUMOZEPH_GetLocaleId(buffer.data()); });
    EXPECT_EQ(+buffer[15], 15);
}

TEST_F(EmulatedRouter, EndpointsAreListedAndCounted)
{
    for (const char* key : {"a", "b", "c"})
        succeed([&] { return LUMOZEPH_AddBridgeEndpoint(key, "", "name", 1, 2, "", 3, 4, "", 5); });
    succeed([] { return LUMOZEPH_DelBridgeEndpoint("b", "name"); });
    LumoBridgeEndpointList* endpoints = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeEndpoints(nullptr, &endpoints); });
    ASSERT_EQ(endpoints->count, 2);
    EXPECT_STREQ(endpoints->records[1].ident, "c");
    EXPECT_EQ(+endpoints->records[1].value1, 3);
    LUMOZEPH_ReleaseBridgeEndpoints(endpoints);
    Bytes buffer(2 * 235, '\0');
    std::uint32_t count = 0;
    succeed([&] { return LUMOZEPH_GetBeAll(buffer.data(), 2 * 235, &count); });
    EXPECT_EQ(count, 2u);
    EXPECT_THAT(call([&] { return LUMOZEPH_GetBeAll(buffer.data(), 235, &count); }), Fails(ENOBUFS));
    succeed([&] { return LUMOZEPH_GetBeStats("c", buffer.data()); });
    EXPECT_STREQ(buffer.c_str(), "c");
    succeed([&] { return LUMOZEPH_GetBeStatus("a", buffer.data()); });
    succeed([] { return LUMOZEPH_FlushBridgeEndpoint(1); });
    EXPECT_THAT(call([&] { return LUMOZEPH_GetBeStatus("a", buffer.data()); }), Fails(ENOENT));
    LumoBridgeBfdSessionList* sessions = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeBFDSessions(nullptr, &sessions); });
    EXPECT_EQ(sessions->count, 0);
    LUMOZEPH_ReleaseBridgeBFDSessions(sessions);
}

TEST_F(EmulatedRouter, MulticastReceiversMakeGroups)
{
    constexpr std::uint8_t hw_addr[6] = {2, 3, 4, 5, 6, 7};
    succeed([] { return LUMOZEPH_SetMcastRouting("blue", "domain", 1, 2, 3, 4); });
    succeed([] { return LUMOZEPH_AddMRoutingLocalRcvrs("blue", 9, "local"); });
    for (std::uint32_t key = 0; key < 3; ++key)
        succeed([&] { return LUMOZEPH_AddMRoutingRemoteRcvrs("blue", 9, key, hw_addr, 7, 8); });
    succeed([] { return LUMOZEPH_DelMRoutingRemoteRcvrs("blue", 9, 1); });
    LumoMcastDomainInfo* domain = nullptr;
    succeed([&] { return LUMOZEPH_GetMRoutingDomain("blue", &domain); });
    EXPECT_STREQ(domain->text1, "domain");
    EXPECT_EQ(+domain->value4, 4u);
    LUMOZEPH_ReleaseMRoutingDomainData(domain);
    LumoLocalRcvrList* local = nullptr;
    succeed([&] { return LUMOZEPH_GetMRoutingLocalRcvrs("blue", 9, &local); });
    ASSERT_EQ(local->count, 1);
    EXPECT_STREQ(local->records[0].text1, "local");
    LUMOZEPH_ReleaseMRoutingLocalRcvrs(local);
    LumoVtepTable* table = nullptr;
    succeed([&] { return LUMOZEPH_GetMRoutingRemoteRcvrs("blue", 9, &table); });
    ASSERT_EQ(table->count, 2u);
    EXPECT_EQ(+table->records[1].bytes[0], 2);
    EXPECT_EQ(+table->records[1].bytes[9], 7);
    LUMOZEPH_ReleaseVTEPTable(table);
    LumoMcastGroupList* groups = nullptr;
    succeed([&] { return LUMOZEPH_GetMRoutingAllMcastGroups("blue", &groups); });
    ASSERT_EQ(groups->count, 1);
    EXPECT_EQ(+groups->records[0].value1, 9u);
    EXPECT_EQ(+groups->records[0].value3, 2u);
    LUMOZEPH_ReleaseMRoutingMcastGroups(groups);
    std::uint32_t address = 4711;
    succeed([&] { return LUMOZEPH_GetMRoutingReplicationIP("blue", 9, &address); });
    EXPECT_EQ(address, 0u);
    succeed([] { return LUMOZEPH_AddMRoutingMRouter("blue", 12); });
    succeed([&] { return LUMOZEPH_GetMRoutingMRouterIP("blue", 9, &address); });
    EXPECT_EQ(address, 12u);
    succeed([] { return LUMOZEPH_DelMRoutingMRouter("blue"); });
    EXPECT_THAT(call([&] { return LUMOZEPH_GetMRoutingMRouterIP("blue", 9, &address); }), Fails(ENOENT));
    succeed([] { return LUMOZEPH_DelMRoutingLocalRcvrs("blue", 9, "local"); });
}

constexpr std::uint32_t mask_with_a_hole = 0x00ff00ff;

TEST_F(EmulatedRouter, MasksAreOnesAndThenZeros)
{
    EXPECT_THAT(
        call([] { return LUMOZEPH_SetLif("new", "", ip(10, 0, 1, 1), mask_with_a_hole, 0, 0, 0, 0, "blue", nullptr); }),
        Fails(EINVAL));
    EXPECT_THAT(
        call([] { return LUMOZEPH_SetLifIp("blue", "uplink", ip(10, 0, 1, 1), ip(0, 255, 255, 255)); }), Fails(EINVAL));
    EXPECT_THAT(
        call([] { return LUMOZEPH_SetRoute(0, mask_with_a_hole, 0, "uplink", "blue", 0, nullptr); }), Fails(EINVAL));
    EXPECT_THAT(
        call([] { return LUMOZEPH_SetLifPolicy(1, nullptr, 0, mask_with_a_hole, 0, "uplink", "blue", 0, nullptr); }),
        Fails(EINVAL));
    for (const std::uint32_t mask : {0u, ip(128, 0, 0, 0), ip(255, 255, 254, 0), 0xffffffffu})
        succeed([&] { return LUMOZEPH_SetLifIp("blue", "uplink", ip(10, 0, 0, 2), mask); });
    LumoLifInfo* info = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_GetLif("blue", "new", &info); }), Fails(ENOENT));
}

TEST_F(EmulatedRouter, PrefixesHaveAtMost128BitsAndNoneBehindThem)
{
    EXPECT_THAT(call([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 1, 2, 129); }), Fails(EINVAL));
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 1, 2, 128); });
    EXPECT_THAT(call([] { return LUMOZEPH_SetRoutev6(1, 2, 129, 0, 0, "uplink", "blue"); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_SetRoutev6(1, 2, 64, 0, 0, "uplink", "blue"); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_SetRoutev6(0x3, 0, 7, 0, 0, "uplink", "blue"); }), Fails(EINVAL));
    succeed([] { return LUMOZEPH_SetRoutev6(0x2, 0, 7, 0, 0, "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetRoutev6(1, 2, 128, 0, 0, "uplink", "blue"); });
}

TEST_F(EmulatedRouter, NextHopsAreReachableOverAnEnabledLif)
{
    const auto route = [&](std::uint32_t gateway, const char* lif) {
        return call([=] {
            return LUMOZEPH_SetRoute(ip(192, 168, 0, 0), ip(255, 255, 0, 0), gateway, lif, "blue", 0, nullptr);
        });
    };
    EXPECT_THAT(route(ip(10, 0, 1, 1), "uplink"), Fails(ENETUNREACH));
    EXPECT_THAT(route(ip(10, 0, 1, 1), nullptr), Fails(ENETUNREACH));
    EXPECT_THAT(route(0, nullptr), Fails(ENETUNREACH));
    EXPECT_THAT(route(ip(10, 0, 0, 1), "no lif"), Fails(ENOENT));
    EXPECT_THAT(route(ip(10, 0, 0, 1), "uplink"), Succeeds());
    EXPECT_THAT(route(ip(10, 0, 0, 1), nullptr), Succeeds());
    EXPECT_THAT(route(0, "uplink"), Succeeds());
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    EXPECT_THAT(route(ip(10, 0, 0, 9), "uplink"), Fails(ENETDOWN));
    EXPECT_THAT(route(ip(10, 0, 0, 9), nullptr), Fails(ENETUNREACH));
}

TEST_F(EmulatedRouter, Ipv6NextHopsAreReachableOverAnEnabledLif)
{
    const auto route = [&](std::uint64_t word1, std::uint64_t word2, const char* lif) {
        return call([=] { return LUMOZEPH_SetRoutev6(0, 0, 0, word1, word2, lif, "blue"); });
    };
    constexpr std::uint64_t documentation = 0xb80d0120;
    constexpr std::uint64_t link_local = 0x80fe;
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", documentation, 1, 64); });
    EXPECT_THAT(route(documentation, 2, "uplink"), Succeeds());
    EXPECT_THAT(route(documentation, 2, nullptr), Succeeds());
    EXPECT_THAT(route(link_local, 2, "uplink"), Succeeds());
    EXPECT_THAT(route(0, 0, "uplink"), Succeeds());
    EXPECT_THAT(route(link_local, 2, nullptr), Fails(ENETUNREACH));
    EXPECT_THAT(route(documentation + 1, 2, "uplink"), Fails(ENETUNREACH));
    EXPECT_THAT(route(documentation + 1, 2, nullptr), Fails(ENETUNREACH));
    EXPECT_THAT(route(documentation, 2, "no lif"), Fails(ENOENT));
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    EXPECT_THAT(route(documentation, 3, "uplink"), Fails(ENETDOWN));
    EXPECT_THAT(route(documentation, 3, nullptr), Fails(ENETUNREACH));
}

TEST_F(EmulatedRouter, InterfacePoliciesAreThoseOfLifsAndNetworks)
{
    const auto policy = [&](std::uint32_t dest, const char* lif) {
        return call([=] { return LUMOZEPH_SetLifPolicy(1, nullptr, dest, 0xff, 0, lif, "blue", 0, nullptr); });
    };
    EXPECT_THAT(policy(10, "no lif"), Fails(ENOENT));
    EXPECT_THAT(policy(ip(10, 1, 0, 0), "uplink"), Fails(EINVAL));
    EXPECT_THAT(policy(10, "uplink"), Succeeds());
}

TEST_F(EmulatedRouter, MacAddressesAreSixPairsOfDigits)
{
    for (const char* mac :
        {"mac", "", "02:00:00:00:00:0g", "2:0:0:0:0:1", "02-00-00-00-00-01", "02:00:00:00:00", "+2:00:00:00:00:01"}) {
        EXPECT_THAT(call([&] { return LUMOZEPH_SetArp(1, mac, "uplink", "blue"); }), Fails(EINVAL)) << mac;
        EXPECT_THAT(call([&] { return LUMOZEPH_SetArpv6(1, 2, mac, "uplink", "blue"); }), Fails(EINVAL)) << mac;
    }
    EXPECT_THAT(call([] { return LUMOZEPH_SetArpv6(1, 2, "02:00:00:00:00:011", "uplink", "blue"); }), Fails(EINVAL));
    succeed([] { return LUMOZEPH_SetArp(1, "02:00:00:00:00:fF", "uplink", "blue"); });
}

TEST_F(Emulated, ForwardingEntriesAreFoundByTheirMacWithoutCase)
{
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeAdd("bridge", 1); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeSetFdbEntry("bridge", "mac", 1, 2, 3, 4); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeSetFdbEntry("bridge", "02:00:00:00:00:AB", 1, 2, 3, 4); }), Succeeds());
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeSetFdbEntry("bridge", "02:00:00:00:00:ab", 1, 2, 5, 6); }), Succeeds());
    LumoBridgeFdbList* fdb = nullptr;
    ASSERT_THAT(call([&] { return LUMOZEPH_GetBridgeFdbEntries("bridge", 1, 2, &fdb); }), Succeeds());
    ASSERT_EQ(fdb->count, 1);
    EXPECT_EQ(+fdb->records[0].mac[5], 0xab);
    EXPECT_EQ(+fdb->records[0].value4, 5u);
    LUMOZEPH_ReleaseBridgeFdbEntries(fdb);
}

TEST_F(EmulatedRouter, EveryLinkCarriesAnAdvertisedMtu)
{
    EXPECT_THAT(call([] { return LUMOZEPH_RAMTUSetv6("blue", "uplink", 1279); }), Fails(EINVAL));
    for (const std::uint32_t mtu : {1280u, 9000u, 0u})
        succeed([&] { return LUMOZEPH_RAMTUSetv6("blue", "uplink", mtu); });
}

// The library reads no more than 8000 routes, and the networks of LIFs are among them.
TEST_F(EmulatedRouter, AFullTableOfRoutesCanBeRead)
{
    const auto route = [&](std::uint32_t number) {
        return call([=] {
            return LUMOZEPH_SetRoute(
                ip(192, 168, number >> 8, number & 0xff), 0xffffffff, ip(10, 0, 0, 1), "uplink", "blue", 0, nullptr);
        });
    };
    for (std::uint32_t number = 0; number < 7999; ++number)
        ASSERT_THAT(route(number), Succeeds());
    EXPECT_THAT(route(7999), Fails(ENOSPC));
    succeed([] { return LUMOZEPH_SetLif("second", "", ip(10, 0, 1, 2), 0xffffffff, 0, 0, 0, 0, "blue", nullptr); });
    EXPECT_THAT(call([] { return LUMOZEPH_EnableLif("blue", "second"); }), Fails(ENOSPC));
    succeed([] { return LUMOZEPH_SetLifIp("blue", "second", 0, 0); });
    succeed([] { return LUMOZEPH_EnableLif("blue", "second"); });
    EXPECT_THAT(call([] { return LUMOZEPH_SetLifIp("blue", "second", ip(10, 0, 1, 2), 0xffffffff); }), Fails(ENOSPC));
    EXPECT_THAT(
        call([] { return LUMOZEPH_SetLif("second", "", ip(10, 0, 1, 2), 0xffffffff, 0, 0, 0, 0, "blue", nullptr); }),
        Fails(ENOSPC));
    LumoRouteList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetRoutes("blue", &list); });
    EXPECT_EQ(list->count, 8000);
    LUMOZEPH_ReleaseRoutes(list);
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    succeed([] { return LUMOZEPH_SetLifIp("blue", "second", ip(10, 0, 1, 2), 0xffffffff); });
}

TEST_F(EmulatedRouter, WhatBelongsToALifGoesWithIt)
{
    const std::uint32_t dest = ip(192, 168, 0, 0);
    const std::uint32_t other_dest = ip(192, 169, 0, 0);
    const std::uint32_t mask = ip(255, 255, 0, 0);
    succeed([=] { return LUMOZEPH_SetRoute(dest, mask, ip(10, 0, 0, 1), "uplink", "blue", 0, nullptr); });
    succeed([=] { return LUMOZEPH_SetRoute(dest, mask, ip(10, 0, 0, 3), "uplink", "blue", 0, nullptr); });
    succeed([=] { return LUMOZEPH_SetRoute(other_dest, mask, ip(10, 0, 0, 1), "uplink", "blue", 0, nullptr); });
    succeed([=] { return LUMOZEPH_SetRoute(other_dest, mask, ip(10, 0, 0, 1), nullptr, "blue", 0, nullptr); });
    succeed([] { return LUMOZEPH_SetRoutev6(1, 0, 64, 0, 0, "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetLifPolicy(1, nullptr, 0, 0, 0, "uplink", "blue", 0, nullptr); });
    succeed([] { return LUMOZEPH_SetLifPolicy(1, nullptr, 0, 0, 0, nullptr, "blue", 0, nullptr); });
    succeed([] { return LUMOZEPH_SetArp(1, "02:00:00:00:00:01", "uplink", "blue"); });
    succeed([] { return LUMOZEPH_SetProxyArpv6(1, 2, "uplink", "blue"); });
    succeed([] { return LUMOZEPH_DelLif("uplink", "", "blue"); });

    LumoRouteList* list = nullptr;
    succeed([&] { return LUMOZEPH_GetRoutes("blue", &list); });
    ASSERT_EQ(list->count, 1);
    EXPECT_EQ(+list->records[0].routeDest, other_dest);
    EXPECT_EQ(+list->records[0].nextHopCount, 1);
    LUMOZEPH_ReleaseRoutes(list);
    succeed([&] { return LUMOZEPH_GetLifPolicies("blue", 1, nullptr, &list); });
    ASSERT_EQ(list->count, 1);
    EXPECT_STREQ(list->records[0].nextHops[0].nextHopLifName, "");
    LUMOZEPH_ReleaseRoutes(list);
    void* block = nullptr;
    std::uint32_t count = 4711;
    succeed([&] { return LUMOZEPH_GetRoutesv6("blue", &block, &count); });
    EXPECT_EQ(count, 0u);
    free(block);
    Bytes image(7471104, '\x5a');
    succeed([&] { return LUMOZEPH_GetArps("blue", nullptr, image.data()); });
    EXPECT_EQ(image.substr(0, 114), Bytes(114, '\0'));
    succeed([&] { return LUMOZEPH_GetArpsv6("blue", nullptr, image.data()); });
    EXPECT_EQ(image.substr(0, 114), Bytes(114, '\0'));
}

TEST_F(EmulatedRouter, ARemovedEntryIsForgottenByItsLif)
{
    const std::uint32_t mask = ip(255, 255, 0, 0);
    for (int round = 0; round < 2; ++round) {
        for (const std::uint32_t gateway : {ip(10, 0, 0, 1), ip(10, 0, 0, 3)})
            succeed([&] { return LUMOZEPH_SetRoute(0xa8c0, mask, gateway, "uplink", "blue", 0, nullptr); });
        for (const std::uint32_t gateway : {ip(10, 0, 0, 1), ip(10, 0, 0, 3)})
            succeed([&] { return LUMOZEPH_DelRoute(0xa8c0, mask, gateway, "uplink", "blue", nullptr); });
        succeed([] { return LUMOZEPH_SetRoutev6(1, 0, 64, 0, 0, "uplink", "blue"); });
        succeed([] { return LUMOZEPH_DelRoutev6(1, 0, 64, 0, 0, "uplink", "blue"); });
        succeed([] { return LUMOZEPH_SetLifPolicy(1, nullptr, 0, 0, 0, "uplink", "blue", 0, nullptr); });
        succeed([] { return LUMOZEPH_DelLifPolicy(1, nullptr, 0, 0, 0, "uplink", "blue", 0, nullptr); });
        succeed([] { return LUMOZEPH_SetProxyArp(1, "uplink", "blue"); });
        succeed([] { return LUMOZEPH_DelProxyArp(1, "uplink", "blue"); });
        succeed([] { return LUMOZEPH_SetProxyArp(1, "uplink", "blue"); });
        succeed([] { return LUMOZEPH_ClearArp("blue", "uplink"); });
    }
    succeed([] { return LUMOZEPH_DelLif("uplink", "", "blue"); });
}

TEST_F(EmulatedRouter, ReferencesGoWithTheirPolicyTable)
{
    LumoPolicyTableRefEntry entries[2] {};
    entries[0].bytes[0] = 7;
    entries[1].bytes[0] = 8;
    for (const std::uint32_t table : {7u, 8u})
        succeed([&] { return LUMOZEPH_SetPolicyTable(table, "table", nullptr); });
    succeed([&] { return LUMOZEPH_SetLifPolicyTableRef("blue", "uplink", 2, entries, nullptr); });
    succeed([] { return LUMOZEPH_DelPolicyTable(7, nullptr); });
    LumoLifPolicyTableRef* ref = nullptr;
    succeed([&] { return LUMOZEPH_GetLifPolicyTableRef("blue", "uplink", &ref); });
    EXPECT_EQ(+ref->refCount, 1);
    EXPECT_EQ(+ref->refs[0].bytes[0], 8);
    LUMOZEPH_ReleaseLifPolicyTableRef(ref);
    succeed([] { return LUMOZEPH_DelLif("uplink", "", "blue"); });
    succeed([] { return LUMOZEPH_DelPolicyTable(8, nullptr); });
}

TEST_F(EmulatedRouter, WhatBelongsToABridgeGoesWithIt)
{
    const auto endpoint = [&](const char* key, const char* bridge) {
        return call([=] { return LUMOZEPH_AddBridgeEndpoint(key, bridge, "name", 1, 2, "", 3, 4, "", 5); });
    };
    const auto bridge_lif = [&](const char* name, const char* bridge) {
        return call([=] { return LUMOZEPH_SetBridgeLif(name, bridge, 1, 2, 3, "blue", 1); });
    };
    EXPECT_THAT(endpoint("a", "no bridge"), Fails(ENOENT));
    EXPECT_THAT(bridge_lif("bridged", "no bridge"), Fails(ENOENT));
    for (const char* bridge : {"one", "two"})
        succeed([&] { return LUMOZEPH_BridgeAdd(bridge, 1); });
    EXPECT_THAT(endpoint("a", "one"), Succeeds());
    EXPECT_THAT(endpoint("b", "one"), Succeeds());
    EXPECT_THAT(endpoint("b", "two"), Succeeds());
    EXPECT_THAT(endpoint("c", ""), Succeeds());
    EXPECT_THAT(bridge_lif("bridged one", "one"), Succeeds());
    EXPECT_THAT(bridge_lif("bridged two", "one"), Succeeds());
    EXPECT_THAT(bridge_lif("bridged two", "two"), Succeeds());
    EXPECT_THAT(bridge_lif("bridged three", ""), Succeeds());
    succeed([] { return LUMOZEPH_SetProxyArp(1, "bridged one", "blue"); });
    succeed([] { return LUMOZEPH_BridgeDel("one", 1); });
    LumoBridgeEndpointList* endpoints = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeEndpoints(nullptr, &endpoints); });
    ASSERT_EQ(endpoints->count, 2);
    EXPECT_STREQ(endpoints->records[0].ident, "b");
    EXPECT_STREQ(endpoints->records[1].ident, "c");
    LUMOZEPH_ReleaseBridgeEndpoints(endpoints);
    LumoLifList* lifs = nullptr;
    succeed([&] { return LUMOZEPH_GetBridgeLifs("blue", &lifs); });
    ASSERT_EQ(lifs->count, 2);
    EXPECT_STREQ(lifs->records[0].lifName, "bridged two");
    EXPECT_STREQ(lifs->records[1].lifName, "bridged three");
    LUMOZEPH_ReleaseLifs(lifs);
    succeed([] { return LUMOZEPH_DelBridgeEndpoint("b", "name"); });
    succeed([] { return LUMOZEPH_DelLumoInstance("blue"); });
    succeed([] { return LUMOZEPH_FlushBridgeEndpoint(1); });
    succeed([] { return LUMOZEPH_BridgeDel("two", 1); });
    succeed([] { return LUMOZEPH_PreUnload(); });
}

class LenientRouter : public EmulatedRouter
{
protected:
    LenientRouter() : EmulatedRouter({.strictness = emulator::Strictness::Lenient}) {}
};

TEST_F(LenientRouter, TakesWhatTheStrictOneRefuses)
{
    succeed([] { return LUMOZEPH_SetLifIp("blue", "uplink", ip(10, 0, 0, 2), mask_with_a_hole); });
    succeed([] { return LUMOZEPH_SetRoute(0, mask_with_a_hole, 1, "uplink", "blue", 0, nullptr); });
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 1, 2, 129); });
    succeed([] { return LUMOZEPH_SetRoutev6(1, 2, 3, 4, 5, "no lif", "blue"); });
    succeed([] { return LUMOZEPH_SetLifPolicy(1, nullptr, 1, 2, 3, "no lif", "blue", 4, nullptr); });
    succeed([] { return LUMOZEPH_SetArp(1, "mac", "uplink", "blue"); });
    succeed([] { return LUMOZEPH_RAMTUSetv6("blue", "uplink", 1); });
    succeed([] { return LUMOZEPH_BridgeAdd("bridge", 1); });
    succeed([] { return LUMOZEPH_BridgeSetFdbEntry("bridge", "mac", 1, 2, 3, 4); });
    const LumoPolicyTableRefEntry entry {};
    succeed([&] { return LUMOZEPH_SetLifPolicyTableRef("blue", "uplink", 1, &entry, nullptr); });
    succeed([] { return LUMOZEPH_AddBridgeEndpoint("a", "no bridge", "name", 1, 2, "", 3, 4, "", 5); });
    succeed([] { return LUMOZEPH_SetBridgeLif("bridged", "no bridge", 1, 2, 3, "blue", 1); });
}

TEST_F(Emulated, ReceiveSideScalingIsTuned)
{
    LumoRssStats* stats = nullptr;
    EXPECT_THAT(call([&] { return LUMOZEPH_SoftRSSGetStats("eth0", &stats); }), Succeeds());
    EXPECT_EQ(+stats->rssEntryCount, 16u);
    free(stats);
    EXPECT_THAT(call([] { return LUMOZEPH_SoftRSSStatsReset("eth0"); }), Succeeds());
    LumoRssTunables tunables {0x0102030405060708, 9};
    EXPECT_THAT(call([&] { return LUMOZEPH_SoftRSSSetTunables("eth0", &tunables); }), Succeeds());
    tunables = {};
    EXPECT_THAT(call([&] { return LUMOZEPH_SoftRSSGetTunables("eth0", &tunables); }), Succeeds());
    EXPECT_EQ(+tunables.value1, 0x0102030405060708u);
    EXPECT_EQ(+tunables.value2, 0u);
    LumoRssIndTable table {};
    table.entries[127] = 3;
    table.size = 128;
    EXPECT_THAT(call([&] { return LUMOZEPH_SoftRSSTableSet("eth0", &table); }), Succeeds());
    std::uint8_t entries[128] = {};
    EXPECT_THAT(call([&] { return LUMOZEPH_SoftRSSGetIndTable("eth0", entries); }), Succeeds());
    EXPECT_EQ(+entries[127], 3);
}

TEST_F(Emulated, AnUnknownCommandIsReportedByTheModule)
{
    LumoEnvelope envelope {};
    EXPECT_THAT(call([&] { return LUMOZEPHIoctl(70, &envelope); }), Fails(ENOTTY));
}

// The library and the module are described apart: a command that is new to one must be known to the other.
// A fault is given to a command by its function's name, or is refused with the name that its command has.
TEST(Module, KnowsWhichCommandToFailForEveryOperation)
{
    operations::for_each_operation([](const operations::Chapter&, const operations::Operation& operation) {
        std::string name = std::string(operation.function.name).substr(std::string("LUMOZEPH").size());
        name.erase(0, name.find_first_not_of('_'));
        if (name == "BridgeSetConfig")
            return;
        const auto number = static_cast<std::uint32_t>(operation.command);
        try {
            EXPECT_THAT(emulator::parse_fault(name + "=EIO").commands, testing::Contains(number)) << name;
        } catch (const emulator::FaultError& error) {
            EXPECT_THAT(error.what(),
                testing::EndsWith(std::string(" is ").append(emulator::protocol::commands_by_number[number]->name)));
        }
    });
}

TEST(Module, KnowsTheCommandOfEveryOperation)
{
    using emulator::protocol::commands_by_number;
    operations::for_each_operation([](const operations::Chapter&, const operations::Operation& operation) {
        // The one function that takes a number.
        if (std::string_view(operation.function.name) == "LUMOZEPH_BridgeSetConfig")
            return;
        const auto number = static_cast<std::size_t>(operation.command);
        ASSERT_LT(number, commands_by_number.size()) << operation.function.name;
        ASSERT_NE(commands_by_number[number], nullptr) << operation.function.name;
        EXPECT_EQ(commands_by_number[number]->input.size, input_length(operation)) << operation.function.name;
    });
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
            for (int i = 0; i < 200; ++i) {
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
