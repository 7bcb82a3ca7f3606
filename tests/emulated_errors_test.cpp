// The errors that the emulator's model answers, through the library: what is not there, and what is more than there can be.
#include "fake/emulated.h"
#include "fake/matchers.h"

#include <arpa/inet.h>
#include <lumozeph.h>

using namespace fake;

namespace {

class EmulatedErrors : public testing::Test
{
protected:
    EmulatedDevice device;

    Call call(const std::function<std::int32_t()>& call) { return observe(device, call); }
    void succeed(const std::function<std::int32_t()>& function) { EXPECT_THAT(call(function), Succeeds()); }

    // So many succeed, and one more does not.
    void fill(std::uint32_t most, const std::function<std::int32_t(std::uint32_t)>& add)
    {
        const Installed installed(device);
        for (std::uint32_t i = 0; i < most; ++i)
            ASSERT_EQ(add(i), 0) << i;
        errno = 0;
        EXPECT_EQ(add(most), -1);
        EXPECT_EQ(errno, ENOSPC);
        // What is there can be set again.
        EXPECT_EQ(add(0), 0);
    }

    void create_lif()
    {
        succeed([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); });
        succeed([] { return LUMOZEPH_SetLif("uplink", "", 0x0200000a, 0xff, 0, 0, 0, 0, "blue", nullptr); });
        succeed([] { return LUMOZEPH_EnableLif("blue", "uplink"); });
    }
};

struct Call1
{
    const char* name;
    std::int32_t (*call)();
};

constexpr std::uint8_t mac[6] = {2};

// Of an instance, a LIF, a bridge, ... that is not there.
const Call1 about_nothing[] = {
    {"GetInstance",
        [] {
            LumoInstanceInfo* out = nullptr;
            return LUMOZEPH_GetInstance("no", &out);
        }},
    {"DelLumoInstance", [] { return LUMOZEPH_DelLumoInstance("no"); }},
    {"SetLumoInstanceTunables", [] { return LUMOZEPH_SetLumoInstanceTunables("no", "x", 1); }},
    {"GetLumoInstanceCPStats",
        [] {
            LumoStats* out = nullptr;
            return LUMOZEPH_GetLumoInstanceCPStats("no", &out);
        }},
    {"ResetLumoInstanceCPStats", [] { return LUMOZEPH_ResetLumoInstanceCPStats("no"); }},
    {"GetLifStats",
        [] {
            LumoStats* out = nullptr;
            return LUMOZEPH_GetLifStats("no", "no", &out);
        }},
    {"GetLifStatsCached",
        [] {
            LumoStats* out = nullptr;
            return LUMOZEPH_GetLifStatsCached("no", "no", &out);
        }},
    {"ResetLifStats", [] { return LUMOZEPH_ResetLifStats("no", "no"); }},
    {"SetCPIp", [] { return LUMOZEPH_SetCPIp("no", 1); }},
    {"GetLumoInstanceCPSyncState",
        [] {
            LumoCPSyncState* out = nullptr;
            return LUMOZEPH_GetLumoInstanceCPSyncState("no", &out);
        }},
    {"SetLumoInstanceCPSyncState", [] { return LUMOZEPH_SetLumoInstanceCPSyncState("no", 1); }},
    {"UnPlumbLumoConnection", [] { return LUMOZEPH_UnPlumbLumoConnection("no"); }},
    {"GetConnection",
        [] {
            char record[152];
            return LUMOZEPH_GetConnection("no", record);
        }},
    {"SetLif", [] { return LUMOZEPH_SetLif("no", "", 0, 0, 0, 0, 0, 0, "no", nullptr); }},
    {"DelLif", [] { return LUMOZEPH_DelLif("no", "", "no"); }},
    {"GetLifs",
        [] {
            LumoLifList* out = nullptr;
            return LUMOZEPH_GetLifs("no", &out);
        }},
    {"GetLif",
        [] {
            LumoLifInfo* out = nullptr;
            return LUMOZEPH_GetLif("no", "no", &out);
        }},
    {"SetBridgeLif on", [] { return LUMOZEPH_SetBridgeLif("no", "", 1, 2, 3, "no", 1); }},
    {"SetBridgeLif off", [] { return LUMOZEPH_SetBridgeLif("no", "", 1, 2, 3, "no", 0); }},
    {"GetBridgeLif",
        [] {
            LumoLifInfo* out = nullptr;
            return LUMOZEPH_GetBridgeLif("no", "no", &out);
        }},
    {"SetLifDIIp", [] { return LUMOZEPH_SetLifDIIp("no", "no", 1); }},
    {"SetLifIp", [] { return LUMOZEPH_SetLifIp("no", "no", 1, 1); }},
    {"DelLifIp", [] { return LUMOZEPH_DelLifIp("no", "no", 1, 1); }},
    {"SetLifVxlanCP", [] { return LUMOZEPH_SetLifVxlanCP("no", "no"); }},
    {"DelLifVxlanCP", [] { return LUMOZEPH_DelLifVxlanCP("no", "no"); }},
    {"EnableLif", [] { return LUMOZEPH_EnableLif("no", "no"); }},
    {"DisableLif", [] { return LUMOZEPH_DisableLif("no", "no"); }},
    {"SetLifVxlanMulticastIp", [] { return LUMOZEPH_SetLifVxlanMulticastIp("no", "no", 1); }},
    {"SetLifIpv6", [] { return LUMOZEPH_SetLifIpv6("no", "no", 1, 2, 64); }},
    {"DelLifIpv6", [] { return LUMOZEPH_DelLifIpv6("no", "no", 1, 2, 64); }},
    {"SetLifMcastRouting on", [] { return LUMOZEPH_SetLifMcastRouting("no", "no", 1); }},
    {"SetLifMcastRouting off", [] { return LUMOZEPH_SetLifMcastRouting("no", "no", 0); }},
    {"SetMcastRouting", [] { return LUMOZEPH_SetMcastRouting("no", "x", 1, 2, 3, 4); }},
    {"RAMTUSetv6", [] { return LUMOZEPH_RAMTUSetv6("no", "no", 1500); }},
    {"ConfigureLifDhcpRelay", [] { return LUMOZEPH_ConfigureLifDhcpRelay("no", "no", nullptr); }},
    {"SetRoute", [] { return LUMOZEPH_SetRoute(0, 0, 0, nullptr, "no", 0, nullptr); }},
    {"DelRoute", [] { return LUMOZEPH_DelRoute(0, 0, 0, nullptr, "no", nullptr); }},
    {"GetRoutes",
        [] {
            LumoRouteList* out = nullptr;
            return LUMOZEPH_GetRoutes("no", &out);
        }},
    {"GetResolveRoute",
        [] {
            LumoRouteInfo* out = nullptr;
            return LUMOZEPH_GetResolveRoute("no", 1, 2, 3, &out);
        }},
    {"SetRoutev6", [] { return LUMOZEPH_SetRoutev6(0, 0, 0, 0, 0, nullptr, "no"); }},
    {"DelRoutev6", [] { return LUMOZEPH_DelRoutev6(0, 0, 0, 0, 0, nullptr, "no"); }},
    {"SetArp", [] { return LUMOZEPH_SetArp(1, "02:00:00:00:00:01", "no", "no"); }},
    {"DelArp", [] { return LUMOZEPH_DelArp(1, "no", "no"); }},
    {"DelProxyArp", [] { return LUMOZEPH_DelProxyArp(1, "no", "no"); }},
    {"ClearArp", [] { return LUMOZEPH_ClearArp("no", nullptr); }},
    {"SetArpv6", [] { return LUMOZEPH_SetArpv6(1, 2, "02:00:00:00:00:01", "no", "no"); }},
    {"DelArpv6", [] { return LUMOZEPH_DelArpv6(1, 2, "no", "no"); }},
    {"DelProxyArpv6", [] { return LUMOZEPH_DelProxyArpv6(1, 2, "no", "no"); }},
    {"ClearArpv6", [] { return LUMOZEPH_ClearArpv6("no", "no"); }},
    {"GetLifPolicies",
        [] {
            LumoRouteList* out = nullptr;
            return LUMOZEPH_GetLifPolicies("no", 1, nullptr, &out);
        }},
    {"SetLifPolicy", [] { return LUMOZEPH_SetLifPolicy(1, nullptr, 0, 0, 0, nullptr, "no", 0, nullptr); }},
    {"DelLifPolicy", [] { return LUMOZEPH_DelLifPolicy(1, nullptr, 0, 0, 0, nullptr, "no", 0, nullptr); }},
    {"GetPolicy",
        [] {
            LumoPolicyList* out = nullptr;
            return LUMOZEPH_GetPolicy(7, &out);
        }},
    {"SetPolicy", [] { return LUMOZEPH_SetPolicy(7, 1, 2, 3, nullptr); }},
    {"DelPolicy", [] { return LUMOZEPH_DelPolicy(7, 1, 2, nullptr); }},
    {"GetPolicyCount",
        [] {
            std::uint32_t count = 0;
            return LUMOZEPH_GetPolicyCount(7, &count);
        }},
    {"DelPolicyTable", [] { return LUMOZEPH_DelPolicyTable(7, nullptr); }},
    {"GetLifPolicyTableRef",
        [] {
            LumoLifPolicyTableRef* out = nullptr;
            return LUMOZEPH_GetLifPolicyTableRef("no", "no", &out);
        }},
    {"DelLifPolicyTableRef", [] { return LUMOZEPH_DelLifPolicyTableRef("no", "no", nullptr); }},
    {"SetBridgeRepMode", [] { return LUMOZEPH_SetBridgeRepMode("no", 1); }},
    {"BridgeDel", [] { return LUMOZEPH_BridgeDel("no", 1); }},
    {"BridgeEnable", [] { return LUMOZEPH_BridgeEnable("no", 1); }},
    {"BridgeDisable", [] { return LUMOZEPH_BridgeDisable("no", 1); }},
    {"GetBridgeInstance",
        [] {
            LumoBridgeInstanceInfo* out = nullptr;
            return LUMOZEPH_GetBridgeInstance("no", &out);
        }},
    {"BridgeSetHAAdminState", [] { return LUMOZEPH_BridgeSetHAAdminState("no", 1); }},
    {"BridgeSetFdbEntry", [] { return LUMOZEPH_BridgeSetFdbEntry("no", "02:00:00:00:00:01", 1, 2, 3, 4); }},
    {"BridgeClearFdbTable", [] { return LUMOZEPH_BridgeClearFdbTable("no", 1, 2); }},
    {"DelPmac", [] { return LUMOZEPH_DelPmac(mac); }},
    {"BridgeClusterSet off", [] { return LUMOZEPH_BridgeClusterSet("no", 0); }},
    {"BridgeClusterNodeSet on", [] { return LUMOZEPH_BridgeClusterNodeSet("no", "x", mac, 1); }},
    {"BridgeClusterNodeSet off", [] { return LUMOZEPH_BridgeClusterNodeSet("no", "x", nullptr, 0); }},
    {"FlushBridgeCluster", [] { return LUMOZEPH_FlushBridgeCluster("no", 1); }},
    {"BridgeClusterBfdHAProfileSet", [] { return LUMOZEPH_BridgeClusterBfdHAProfileSet("no", 1, 2, 3); }},
    {"SetBridgeClusterDebug", [] { return LUMOZEPH_SetBridgeClusterDebug("no", 1); }},
    {"DelBridgeEndpoint", [] { return LUMOZEPH_DelBridgeEndpoint("no", "no"); }},
    {"GetBeStats",
        [] {
            char record[146];
            return LUMOZEPH_GetBeStats("no", record);
        }},
    {"GetBeStatus",
        [] {
            char record[229];
            return LUMOZEPH_GetBeStatus("no", record);
        }},
    {"UnPlumbBFDPortConnection", [] { return LUMOZEPH_UnPlumbBFDPortConnection("no"); }},
    {"GetMRoutingDomain",
        [] {
            LumoMcastDomainInfo* out = nullptr;
            return LUMOZEPH_GetMRoutingDomain("no", &out);
        }},
    {"AddMRoutingRemoteRcvrs", [] { return LUMOZEPH_AddMRoutingRemoteRcvrs("no", 1, 2, mac, 3, 4); }},
    {"DelMRoutingRemoteRcvrs", [] { return LUMOZEPH_DelMRoutingRemoteRcvrs("no", 1, 2); }},
    {"AddMRoutingLocalRcvrs", [] { return LUMOZEPH_AddMRoutingLocalRcvrs("no", 1, "x"); }},
    {"DelMRoutingLocalRcvrs", [] { return LUMOZEPH_DelMRoutingLocalRcvrs("no", 1, "x"); }},
    {"GetMRoutingReplicationIP",
        [] {
            std::uint32_t out = 0;
            return LUMOZEPH_GetMRoutingReplicationIP("no", 1, &out);
        }},
    {"AddMRoutingMRouter", [] { return LUMOZEPH_AddMRoutingMRouter("no", 1); }},
    {"DelMRoutingMRouter", [] { return LUMOZEPH_DelMRoutingMRouter("no"); }},
    {"GetMRoutingMRouterIP",
        [] {
            std::uint32_t out = 0;
            return LUMOZEPH_GetMRoutingMRouterIP("no", 1, &out);
        }},
};

TEST_F(EmulatedErrors, WhatIsNotThereIsEnoent)
{
    for (const auto& [name, function] : about_nothing)
        EXPECT_THAT(call(function), Fails(ENOENT)) << name;
}

TEST_F(EmulatedErrors, WhatHasNoNameCannotBeCreated)
{
    create_lif();
    EXPECT_THAT(call([] { return LUMOZEPH_SetLumoInstance("", 1, nullptr, 2); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_SetLif("", "", 0, 0, 0, 0, 0, 0, "blue", nullptr); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_SetBridgeLif("", "", 1, 2, 3, "blue", 1); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_PlumbLumoConnection("", "", 0, nullptr, nullptr, nullptr); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_PlumbBFDPortConnection("", "", nullptr); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeAdd("", 1); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_BridgeClusterSet("", 1); }), Fails(EINVAL));
    EXPECT_THAT(call([] { return LUMOZEPH_AddBridgeEndpoint("", "", "", 1, 2, "", 3, 4, "", 5); }), Fails(EINVAL));
    LumoRssTunables tunables {};
    EXPECT_THAT(call([&] { return LUMOZEPH_SoftRSSSetTunables("", &tunables); }), Fails(EINVAL));
}

using EmulatedCaps = EmulatedErrors;

std::string name_of(std::uint32_t entry)
{
    return "entry-" + std::to_string(entry);
}

TEST_F(EmulatedCaps, OfInstances)
{
    fill(1000, [](std::uint32_t i) { return LUMOZEPH_SetLumoInstance(name_of(i).c_str(), 1, nullptr, 2); });
}

TEST_F(EmulatedCaps, OfLifs)
{
    succeed([] { return LUMOZEPH_SetLumoInstance("blue", 1, nullptr, 2); });
    fill(10000,
        [](std::uint32_t i) { return LUMOZEPH_SetLif(name_of(i).c_str(), "", 0, 0, 0, 0, 0, 0, "blue", nullptr); });
    EXPECT_THAT(call([] { return LUMOZEPH_SetBridgeLif("one more", "", 1, 2, 3, "blue", 1); }), Fails(ENOSPC));
}

TEST_F(EmulatedCaps, OfIpv6AddressesOfALif)
{
    create_lif();
    fill(10, [](std::uint32_t i) { return LUMOZEPH_SetLifIpv6("blue", "uplink", 0x20, i, 64); });
}

TEST_F(EmulatedCaps, OfRoutesAndOfNextHops)
{
    create_lif();
    fill(7999, [](std::uint32_t i) {
        return LUMOZEPH_SetRoute(htonl((i + 1) << 16), htonl(0xffff0000), 0x0100000a, "uplink", "blue", 0, nullptr);
    });
    // The route has one already.
    fill(7, [](std::uint32_t i) {
        return LUMOZEPH_SetRoute(
            htonl(1 << 16), htonl(0xffff0000), htonl(0x0a000003 + i), "uplink", "blue", 0, nullptr);
    });
}

TEST_F(EmulatedCaps, OfIpv6Routes)
{
    create_lif();
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 0x20, 1, 64); });
    fill(29998, [](std::uint32_t i) { return LUMOZEPH_SetRoutev6(0xfd, i, 128, 0, 0, "uplink", "blue"); });
    EXPECT_THAT(call([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 0x21, 1, 64); }), Fails(ENOSPC));
    succeed([] { return LUMOZEPH_DisableLif("blue", "uplink"); });
    succeed([] { return LUMOZEPH_SetLifIpv6("blue", "uplink", 0x21, 1, 64); });
    EXPECT_THAT(call([] { return LUMOZEPH_EnableLif("blue", "uplink"); }), Fails(ENOSPC));
}

TEST_F(EmulatedCaps, OfNeighbours)
{
    create_lif();
    fill(65535, [](std::uint32_t i) { return LUMOZEPH_SetArp(i, "02:00:00:00:00:01", "uplink", "blue"); });
    EXPECT_THAT(call([] { return LUMOZEPH_SetProxyArpv6(1, 2, "uplink", "blue"); }), Fails(ENOSPC));
}

TEST_F(EmulatedCaps, OfInterfacePolicies)
{
    create_lif();
    fill(8000, [](std::uint32_t i) {
        return LUMOZEPH_SetLifPolicy(1, nullptr, i, 0xffffffff, 0, "uplink", "blue", 0, nullptr);
    });
}

TEST_F(EmulatedCaps, OfPoliciesAndTheirTables)
{
    fill(1000, [](std::uint32_t i) { return LUMOZEPH_SetPolicyTable(i, "table", nullptr); });
    fill(1000, [](std::uint32_t i) { return LUMOZEPH_SetPolicy(7, i, 2, 3, nullptr); });
}

TEST_F(EmulatedCaps, OfBridgesAndForwardingEntries)
{
    fill(4096, [](std::uint32_t i) { return LUMOZEPH_BridgeAdd(name_of(i).c_str(), 1); });
    fill(4096, [](std::uint32_t i) {
        char address[18];
        std::snprintf(address, sizeof address, "02:00:00:00:%02x:%02x", i >> 8 & 0xff, i & 0xff);
        return LUMOZEPH_BridgeSetFdbEntry("entry-0", address, 1, 2, 3, 4);
    });
}

TEST_F(EmulatedCaps, OfPmacs)
{
    fill(13107, [](std::uint32_t i) {
        std::uint8_t address[6] = {2};
        std::memcpy(address + 2, &i, sizeof i);
        return LUMOZEPH_AddPmac(1, address);
    });
}

TEST_F(EmulatedCaps, OfClustersAndNodes)
{
    fill(10, [](std::uint32_t i) { return LUMOZEPH_BridgeClusterSet(name_of(i).c_str(), 1); });
    fill(100, [](std::uint32_t i) {
        return LUMOZEPH_BridgeClusterNodeSet(name_of(i % 10).c_str(), name_of(i).c_str(), mac, 1);
    });
}

TEST_F(EmulatedCaps, OfEndpoints)
{
    fill(28672, [](std::uint32_t i) {
        return LUMOZEPH_AddBridgeEndpoint(name_of(i).c_str(), "", "name", 1, 2, "", 3, 4, "", 5);
    });
}

TEST_F(EmulatedCaps, OfConnections)
{
    fill(862, [](std::uint32_t i) {
        return LUMOZEPH_PlumbLumoConnection(name_of(i).c_str(), "", 0, nullptr, nullptr, nullptr);
    });
    fill(862, [](std::uint32_t i) { return LUMOZEPH_PlumbBFDPortConnection(name_of(i).c_str(), "", nullptr); });
}

TEST_F(EmulatedCaps, OfReceivers)
{
    create_lif();
    fill(512, [](std::uint32_t i) { return LUMOZEPH_AddMRoutingLocalRcvrs("blue", 9, name_of(i).c_str()); });
    fill(2048, [](std::uint32_t i) { return LUMOZEPH_AddMRoutingRemoteRcvrs("blue", 9, i, mac, 7, 8); });
}

} // namespace
