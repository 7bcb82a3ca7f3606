// Every command in order: what sends it, how much input it takes and how much room its reply has.
#include "lumozeph.h"
#include "support/reads.h"

#include <set>

using namespace world;

namespace {

// What the calls below read from and write to. The device fails, so that nothing comes back.
void* out;
std::uint32_t number;
std::uint8_t bytes[64];
Bytes room(7471104, '\0');
LumoCmdResult result;
LumoRssTunables tunables;
LumoRssIndTable table;
LumoPolicyTableRefEntry entry;

struct Row
{
    int command;
    std::string function;
    std::uint32_t in_len;
    std::uint32_t out_len;
    std::int32_t (*call)();
};

// clang-format off
const std::vector<Row> rows {
    {0, "LUMOZEPH_GetInstances", 776, 256000, [] { return LUMOZEPH_GetInstances(as<LumoInstanceList>(&out)); }},
    {1, "LUMOZEPH_GetInstance", 776, 256, [] { return LUMOZEPH_GetInstance("text", as<LumoInstanceInfo>(&out)); }},
    {2, "LUMOZEPH_SetLumoInstance", 776, 0, [] { return LUMOZEPH_SetLumoInstance("text", 1, "text", 1); }},
    {3, "LUMOZEPH_DelLumoInstance", 776, 0, [] { return LUMOZEPH_DelLumoInstance("text"); }},
    {4, "LUMOZEPH_SetLumoInstanceTunables", 776, 0, [] { return LUMOZEPH_SetLumoInstanceTunables("text", "text", 1); }},
    {5, "LUMOZEPH_GetLumoInstanceCPStats", 776, 804, [] { return LUMOZEPH_GetLumoInstanceCPStats("text", as<LumoStats>(&out)); }},
    {6, "LUMOZEPH_ResetLumoInstanceCPStats", 776, 0, [] { return LUMOZEPH_ResetLumoInstanceCPStats("text"); }},
    {7, "LUMOZEPH_CPActivate", 4, 0, [] { return LUMOZEPH_CPActivate(1); }},
    {8, "LUMOZEPH_SetCPIp", 776, 0, [] { return LUMOZEPH_SetCPIp("text", 1); }},
    {9, "LUMOZEPH_GetLogLevel", 0, 4, [] { return LUMOZEPH_GetLogLevel(&number); }},
    {10, "LUMOZEPH_SetLogLevel", 4, 0, [] { return LUMOZEPH_SetLogLevel(1); }},
    {11, "LUMOZEPH_GetExtendedLogLevel", 0, 4, [] { return LUMOZEPH_GetExtendedLogLevel(&number); }},
    {12, "LUMOZEPH_SetExtendedLogLevel", 4, 0, [] { return LUMOZEPH_SetExtendedLogLevel(1); }},
    {13, "LUMOZEPH_GetStatsLevel", 0, 4, [] { return LUMOZEPH_GetStatsLevel(&number); }},
    {14, "LUMOZEPH_SetStatsLevel", 4, 0, [] { return LUMOZEPH_SetStatsLevel(1); }},
    {15, "LUMOZEPH_PlumbLumoConnection", 776, 0, [] { return LUMOZEPH_PlumbLumoConnection("text", "text", 1, "text", "text", "text"); }},
    {16, "LUMOZEPH_UnPlumbLumoConnection", 776, 0, [] { return LUMOZEPH_UnPlumbLumoConnection("text"); }},
    {17, "LUMOZEPH_GetConnections", 776, 131072, [] { return LUMOZEPH_GetConnections(room.data()); }},
    {18, "LUMOZEPH_GetConnection", 776, 152, [] { return LUMOZEPH_GetConnection("text", room.data()); }},
    {19, "LUMOZEPH_SetLif", 776, 0, [] { return LUMOZEPH_SetLif("text", "text", 1, 1, 1, 1, 1, 1, "text", bytes); }},
    {20, "LUMOZEPH_DelLif", 776, 0, [] { return LUMOZEPH_DelLif("text", "text", "text"); }},
    {21, "LUMOZEPH_GetLifs", 776, 5760000, [] { return LUMOZEPH_GetLifs("text", as<LumoLifList>(&out)); }},
    {22, "LUMOZEPH_GetLif", 776, 576, [] { return LUMOZEPH_GetLif("text", "text", as<LumoLifInfo>(&out)); }},
    {23, "LUMOZEPH_GetLifStats", 776, 804, [] { return LUMOZEPH_GetLifStats("text", "text", as<LumoStats>(&out)); }},
    {23, "LUMOZEPH_GetLifStatsCached", 776, 804, [] { return LUMOZEPH_GetLifStatsCached("text", "text", as<LumoStats>(&out)); }},
    {24, "LUMOZEPH_ResetLifStats", 776, 0, [] { return LUMOZEPH_ResetLifStats("text", "text"); }},
    {25, "LUMOZEPH_SetLifDIIp", 776, 0, [] { return LUMOZEPH_SetLifDIIp("text", "text", 1); }},
    {26, "LUMOZEPH_SetLifIp", 776, 0, [] { return LUMOZEPH_SetLifIp("text", "text", 1, 1); }},
    {27, "LUMOZEPH_DelLifIp", 776, 0, [] { return LUMOZEPH_DelLifIp("text", "text", 1, 1); }},
    {28, "LUMOZEPH_SetLifVxlanCP", 776, 0, [] { return LUMOZEPH_SetLifVxlanCP("text", "text"); }},
    {29, "LUMOZEPH_DelLifVxlanCP", 776, 0, [] { return LUMOZEPH_DelLifVxlanCP("text", "text"); }},
    {30, "LUMOZEPH_EnableLif", 776, 0, [] { return LUMOZEPH_EnableLif("text", "text"); }},
    {31, "LUMOZEPH_DisableLif", 776, 0, [] { return LUMOZEPH_DisableLif("text", "text"); }},
    {32, "LUMOZEPH_SetLifVxlanMulticastIp", 776, 0, [] { return LUMOZEPH_SetLifVxlanMulticastIp("text", "text", 1); }},
    {33, "LUMOZEPH_ConfigureLifDhcpRelay", 776, 0, [] { return LUMOZEPH_ConfigureLifDhcpRelay("text", "text", nullptr); }},
    {34, "LUMOZEPH_SetRoute", 776, 88, [] { return LUMOZEPH_SetRoute(1, 1, 1, "text", "text", 1, &result); }},
    {35, "LUMOZEPH_DelRoute", 776, 88, [] { return LUMOZEPH_DelRoute(1, 1, 1, "text", "text", &result); }},
    {36, "LUMOZEPH_GetRoutes", 776, 5344000, [] { return LUMOZEPH_GetRoutes("text", as<LumoRouteList>(&out)); }},
    {37, "LUMOZEPH_GetResolveRoute", 776, 668, [] { return LUMOZEPH_GetResolveRoute("text", 1, 1, 1, as<LumoRouteInfo>(&out)); }},
    {38, "LUMOZEPH_SetArp", 776, 0, [] { return LUMOZEPH_SetArp(1, "text", "text", "text"); }},
    {38, "LUMOZEPH_SetProxyArp", 776, 0, [] { return LUMOZEPH_SetProxyArp(1, "text", "text"); }},
    {39, "LUMOZEPH_DelArp", 776, 0, [] { return LUMOZEPH_DelArp(1, "text", "text"); }},
    {39, "LUMOZEPH_DelProxyArp", 776, 0, [] { return LUMOZEPH_DelProxyArp(1, "text", "text"); }},
    {40, "LUMOZEPH_GetArps", 776, 7471104, [] { return LUMOZEPH_GetArps("text", "text", room.data()); }},
    {40, "LUMOZEPH_GetProxyArps", 776, 7471104, [] { return LUMOZEPH_GetProxyArps("text", "text", room.data()); }},
    {41, "LUMOZEPH_ClearArp", 776, 0, [] { return LUMOZEPH_ClearArp("text", "text"); }},
    {42, "LUMOZEPH_PreUnload", 0, 0, [] { return LUMOZEPH_PreUnload(); }},
    {43, "LUMOZEPH_GetLumoDiStats", 776, 804, [] { return LUMOZEPH_GetLumoDiStats(as<LumoStats>(&out)); }},
    {44, "LUMOZEPH_ResetLumoDiStats", 776, 0, [] { return LUMOZEPH_ResetLumoDiStats(); }},
    {45, "LUMOZEPH_AddBridgeEndpoint", 776, 0, [] { return LUMOZEPH_AddBridgeEndpoint("text", "text", "text", 1, 1, "text", 1, 1, "text", 1); }},
    {46, "LUMOZEPH_DelBridgeEndpoint", 776, 0, [] { return LUMOZEPH_DelBridgeEndpoint("text", "text"); }},
    {47, "LUMOZEPH_FlushBridgeEndpoint", 776, 0, [] { return LUMOZEPH_FlushBridgeEndpoint(1); }},
    {48, "LUMOZEPH_FlushBridgeEndpoint", 776, 0, [] { return LUMOZEPH_FlushBridgeEndpoint(0); }},
    {49, "LUMOZEPH_SetBridgeRepMode", 776, 0, [] { return LUMOZEPH_SetBridgeRepMode("text", 1); }},
    {50, "LUMOZEPH_GetBeStats", 776, 146, [] { return LUMOZEPH_GetBeStats("text", room.data()); }},
    {51, "LUMOZEPH_GetBeStatus", 776, 229, [] { return LUMOZEPH_GetBeStatus("text", room.data()); }},
    {52, "LUMOZEPH_GetBeAll", 776, 4711, [] { return LUMOZEPH_GetBeAll(room.data(), 4711, &number); }},
    {53, "LUMOZEPH_BridgeAdd", 776, 0, [] { return LUMOZEPH_BridgeAdd("text", 1); }},
    {54, "LUMOZEPH_BridgeDel", 776, 0, [] { return LUMOZEPH_BridgeDel("text", 1); }},
    {55, "LUMOZEPH_BridgeEnable", 776, 0, [] { return LUMOZEPH_BridgeEnable("text", 1); }},
    {56, "LUMOZEPH_BridgeDisable", 776, 0, [] { return LUMOZEPH_BridgeDisable("text", 1); }},
    {57, "LUMOZEPH_SetBridgeLif", 776, 0, [] { return LUMOZEPH_SetBridgeLif("text", "text", 1, 1, 1, "text", 1); }},
    {58, "LUMOZEPH_SetBridgeLif", 776, 0, [] { return LUMOZEPH_SetBridgeLif("text", "text", 1, 1, 1, "text", 0); }},
    {59, "LUMOZEPH_GetBridgeLifs", 776, 5760000, [] { return LUMOZEPH_GetBridgeLifs("text", as<LumoLifList>(&out)); }},
    {60, "LUMOZEPH_GetBridgeLif", 776, 576, [] { return LUMOZEPH_GetBridgeLif("text", "text", as<LumoLifInfo>(&out)); }},
    {61, "LUMOZEPHGetBridgeInstances", 776, 1609728, [] { return LUMOZEPHGetBridgeInstances(static_cast<LumoBridgeInstanceList*>(calloc(1, 16))); }},
    {61, "LUMOZEPH_GetBridgeInstances", 776, 1609728, [] { return LUMOZEPH_GetBridgeInstances(as<LumoBridgeInstanceList>(&out)); }},
    {62, "LUMOZEPH_GetBridgeInstance", 776, 393, [] { return LUMOZEPH_GetBridgeInstance("text", as<LumoBridgeInstanceInfo>(&out)); }},
    {63, "LUMOZEPHGetBridgeNetworks", 776, 4358144, [] { return LUMOZEPHGetBridgeNetworks("text", "text", static_cast<LumoBridgeNetworkList*>(calloc(1, 16))); }},
    {63, "LUMOZEPH_GetBridgeNetworks", 776, 4358144, [] { return LUMOZEPH_GetBridgeNetworks("text", "text", as<LumoBridgeNetworkList>(&out)); }},
    {64, "LUMOZEPHGetBridgePorts", 776, 4784128, [] { return LUMOZEPHGetBridgePorts("text", "text", 1, 1, static_cast<LumoBridgePortList*>(calloc(1, 16))); }},
    {64, "LUMOZEPH_GetBridgePorts", 776, 4784128, [] { return LUMOZEPH_GetBridgePorts("text", "text", 1, 1, as<LumoBridgePortList>(&out)); }},
    {65, "LUMOZEPHGetBridgeFdbEntries", 776, 81920, [] { return LUMOZEPHGetBridgeFdbEntries("text", 1, 1, static_cast<LumoBridgeFdbList*>(calloc(1, 16))); }},
    {65, "LUMOZEPH_GetBridgeFdbEntries", 776, 81920, [] { return LUMOZEPH_GetBridgeFdbEntries("text", 1, 1, as<LumoBridgeFdbList>(&out)); }},
    {66, "LUMOZEPH_BridgeSetFdbEntry", 776, 0, [] { return LUMOZEPH_BridgeSetFdbEntry("text", "text", 1, 1, 1, 1); }},
    {67, "LUMOZEPH_BridgeClearFdbTable", 776, 0, [] { return LUMOZEPH_BridgeClearFdbTable("text", 1, 1); }},
    {72, "LUMOZEPH_DumpFLTable", 776, 426080, [] { return LUMOZEPH_DumpFLTable(1, room.data()); }},
    {73, "LUMOZEPH_GetPmac", 776, 131072, [] { return LUMOZEPH_GetPmac(room.data()); }},
    {74, "LUMOZEPH_AddPmac", 776, 0, [] { return LUMOZEPH_AddPmac(1, bytes); }},
    {75, "LUMOZEPH_DelPmac", 776, 0, [] { return LUMOZEPH_DelPmac(bytes); }},
    {80, "LUMOZEPH_GenericFlush", 776, 0, [] { return LUMOZEPH_GenericFlush(1, 1, 1, 1, "text", 1); }},
    {85, "LUMOZEPH_LUMODevCheckConnDeletion", 0, 4, [] { return LUMOZEPH_LUMODevCheckConnDeletion(&number); }},
    {86, "LUMOZEPH_GetLocaleId", 776, 16, [] { return LUMOZEPH_GetLocaleId(room.data()); }},
    {87, "LUMOZEPH_GetLumoInstanceCPSyncState", 776, 1420, [] { return LUMOZEPH_GetLumoInstanceCPSyncState("text", as<LumoCPSyncState>(&out)); }},
    {88, "LUMOZEPH_SetLumoInstanceCPSyncState", 776, 0, [] { return LUMOZEPH_SetLumoInstanceCPSyncState("text", 1); }},
    {89, "LUMOZEPHGetBridgeClusters", 776, 1830, [] { return LUMOZEPHGetBridgeClusters("text", static_cast<LumoBridgeClusterList*>(calloc(1, 16))); }},
    {89, "LUMOZEPH_GetBridgeClusters", 776, 1830, [] { return LUMOZEPH_GetBridgeClusters("text", as<LumoBridgeClusterList>(&out)); }},
    {90, "LUMOZEPH_BridgeClusterSet", 776, 0, [] { return LUMOZEPH_BridgeClusterSet("text", 1); }},
    {91, "LUMOZEPH_BridgeClusterSet", 776, 0, [] { return LUMOZEPH_BridgeClusterSet("text", 0); }},
    {92, "LUMOZEPHGetBridgeClusterNodes", 776, 7100, [] { return LUMOZEPHGetBridgeClusterNodes("text", static_cast<LumoBridgeClusterNodeList*>(calloc(1, 16))); }},
    {92, "LUMOZEPH_GetBridgeClusterNodes", 776, 7100, [] { return LUMOZEPH_GetBridgeClusterNodes("text", as<LumoBridgeClusterNodeList>(&out)); }},
    {93, "LUMOZEPH_BridgeClusterNodeSet", 776, 0, [] { return LUMOZEPH_BridgeClusterNodeSet("text", "text", bytes, 1); }},
    {94, "LUMOZEPH_BridgeClusterNodeSet", 776, 0, [] { return LUMOZEPH_BridgeClusterNodeSet("text", "text", bytes, 0); }},
    {95, "LUMOZEPHGetBridgeEndpoints", 776, 6737920, [] { return LUMOZEPHGetBridgeEndpoints("text", static_cast<LumoBridgeEndpointList*>(calloc(1, 16))); }},
    {95, "LUMOZEPH_GetBridgeEndpoints", 776, 6737920, [] { return LUMOZEPH_GetBridgeEndpoints("text", as<LumoBridgeEndpointList>(&out)); }},
    {96, "LUMOZEPHGetBridgeBFDSessions", 776, 111820800, [] { return LUMOZEPHGetBridgeBFDSessions("text", static_cast<LumoBridgeBfdSessionList*>(calloc(1, 16))); }},
    {96, "LUMOZEPH_GetBridgeBFDSessions", 776, 111820800, [] { return LUMOZEPH_GetBridgeBFDSessions("text", as<LumoBridgeBfdSessionList>(&out)); }},
    {97, "LUMOZEPH_PlumbBFDPortConnection", 776, 0, [] { return LUMOZEPH_PlumbBFDPortConnection("text", "text", bytes); }},
    {98, "LUMOZEPH_UnPlumbBFDPortConnection", 776, 0, [] { return LUMOZEPH_UnPlumbBFDPortConnection("text"); }},
    {99, "LUMOZEPH_GetBFDPortConnections", 776, 131072, [] { return LUMOZEPH_GetBFDPortConnections(room.data()); }},
    {100, "LUMOZEPH_BridgeLocalTransportNodeSet", 776, 0, [] { return LUMOZEPH_BridgeLocalTransportNodeSet("text", "text", "text", 1, bytes, 1); }},
    {101, "LUMOZEPH_BridgeLocalTransportNodeSet", 776, 0, [] { return LUMOZEPH_BridgeLocalTransportNodeSet("text", "text", "text", 1, bytes, 0); }},
    {102, "LUMOZEPH_BridgeGetLocalTransportNode", 776, 2048, [] { return LUMOZEPH_BridgeGetLocalTransportNode(room.data(), 1); }},
    {103, "LUMOZEPH_FlushBridgeCluster", 776, 0, [] { return LUMOZEPH_FlushBridgeCluster("text", 1); }},
    {104, "LUMOZEPH_FlushBridgeCluster", 776, 0, [] { return LUMOZEPH_FlushBridgeCluster("text", 0); }},
    {106, "LUMOZEPH_BridgeClusterBfdHAProfileSet", 776, 0, [] { return LUMOZEPH_BridgeClusterBfdHAProfileSet("text", 1, 1, 1); }},
    {107, "LUMOZEPH_SetBridgeClusterDebug", 776, 0, [] { return LUMOZEPH_SetBridgeClusterDebug("text", 1); }},
    {108, "LUMOZEPH_SetLifIpv6", 776, 0, [] { return LUMOZEPH_SetLifIpv6("text", "text", 1, 1, 1); }},
    {109, "LUMOZEPH_DelLifIpv6", 776, 0, [] { return LUMOZEPH_DelLifIpv6("text", "text", 1, 1, 1); }},
    {110, "LUMOZEPH_SetRoutev6", 776, 0, [] { return LUMOZEPH_SetRoutev6(1, 1, 1, 1, 1, "text", "text"); }},
    {111, "LUMOZEPH_DelRoutev6", 776, 0, [] { return LUMOZEPH_DelRoutev6(1, 1, 1, 1, 1, "text", "text"); }},
    {112, "LUMOZEPH_SetArpv6", 776, 0, [] { return LUMOZEPH_SetArpv6(1, 1, "text", "text", "text"); }},
    {112, "LUMOZEPH_SetProxyArpv6", 776, 0, [] { return LUMOZEPH_SetProxyArpv6(1, 1, "text", "text"); }},
    {113, "LUMOZEPH_DelArpv6", 776, 0, [] { return LUMOZEPH_DelArpv6(1, 1, "text", "text"); }},
    {113, "LUMOZEPH_DelProxyArpv6", 776, 0, [] { return LUMOZEPH_DelProxyArpv6(1, 1, "text", "text"); }},
    {114, "LUMOZEPH_GetRoutesv6", 776, 6208000, [] { return LUMOZEPH_GetRoutesv6("text", &out, &number); }},
    {115, "LUMOZEPH_GetRoutesv6", 776, 4, [] { return LUMOZEPH_GetRoutesv6("text", &out, &number); }},
    {116, "LUMOZEPH_GetArpsv6", 776, 7471104, [] { return LUMOZEPH_GetArpsv6("text", "text", room.data()); }},
    {117, "LUMOZEPH_ClearArpv6", 776, 0, [] { return LUMOZEPH_ClearArpv6("text", "text"); }},
    {118, "LUMOZEPH_BridgeSetHAAdminState", 776, 0, [] { return LUMOZEPH_BridgeSetHAAdminState("text", 1); }},
    {119, "LUMOZEPH_GetPolicy", 776, 28000, [] { return LUMOZEPH_GetPolicy(1, as<LumoPolicyList>(&out)); }},
    {120, "LUMOZEPH_SetPolicy", 776, 88, [] { return LUMOZEPH_SetPolicy(1, 1, 1, 1, &result); }},
    {121, "LUMOZEPH_DelPolicy", 776, 88, [] { return LUMOZEPH_DelPolicy(1, 1, 1, &result); }},
    {122, "LUMOZEPH_GetPolicyCount", 776, 4, [] { return LUMOZEPH_GetPolicyCount(1, &number); }},
    {123, "LUMOZEPH_PerformFullSyncSave", 776, 4, [] { return LUMOZEPH_PerformFullSyncSave(1, &number); }},
    {124, "LUMOZEPH_GetFullSyncSaveStatus", 776, 4, [] { return LUMOZEPH_GetFullSyncSaveStatus(&number); }},
    {125, "LUMOZEPH_SetLifMcastRouting", 776, 0, [] { return LUMOZEPH_SetLifMcastRouting("text", "text", 1); }},
    {126, "LUMOZEPH_SetLifMcastRouting", 776, 0, [] { return LUMOZEPH_SetLifMcastRouting("text", "text", 0); }},
    {127, "LUMOZEPH_SetMcastRouting", 776, 0, [] { return LUMOZEPH_SetMcastRouting("text", "text", 1, 1, 1, 1); }},
    {128, "LUMOZEPH_GetMRoutingLocalRcvrs", 776, 45056, [] { return LUMOZEPH_GetMRoutingLocalRcvrs("text", 1, as<LumoLocalRcvrList>(&out)); }},
    {129, "LUMOZEPH_GetMRoutingRemoteRcvrs", 776, 139268, [] { return LUMOZEPH_GetMRoutingRemoteRcvrs("text", 1, as<LumoVtepTable>(&out)); }},
    {130, "LUMOZEPH_GetMRoutingDomain", 776, 148, [] { return LUMOZEPH_GetMRoutingDomain("text", as<LumoMcastDomainInfo>(&out)); }},
    {131, "LUMOZEPH_AddMRoutingRemoteRcvrs", 776, 0, [] { return LUMOZEPH_AddMRoutingRemoteRcvrs("text", 1, 1, bytes, 1, 1); }},
    {132, "LUMOZEPH_DelMRoutingRemoteRcvrs", 776, 0, [] { return LUMOZEPH_DelMRoutingRemoteRcvrs("text", 1, 1); }},
    {133, "LUMOZEPH_AddMRoutingLocalRcvrs", 776, 0, [] { return LUMOZEPH_AddMRoutingLocalRcvrs("text", 1, "text"); }},
    {134, "LUMOZEPH_DelMRoutingLocalRcvrs", 776, 0, [] { return LUMOZEPH_DelMRoutingLocalRcvrs("text", 1, "text"); }},
    {135, "LUMOZEPH_GetMRoutingAllMcastGroups", 776, 49152, [] { return LUMOZEPH_GetMRoutingAllMcastGroups("text", as<LumoMcastGroupList>(&out)); }},
    {136, "LUMOZEPH_GetMRoutingReplicationIP", 776, 4, [] { return LUMOZEPH_GetMRoutingReplicationIP("text", 1, &number); }},
    {137, "LUMOZEPH_AddMRoutingMRouter", 776, 0, [] { return LUMOZEPH_AddMRoutingMRouter("text", 1); }},
    {138, "LUMOZEPH_DelMRoutingMRouter", 776, 0, [] { return LUMOZEPH_DelMRoutingMRouter("text"); }},
    {139, "LUMOZEPH_GetMRoutingMRouterIP", 776, 4, [] { return LUMOZEPH_GetMRoutingMRouterIP("text", 1, &number); }},
    {140, "LUMOZEPH_GetLifPolicies", 776, 5344000, [] { return LUMOZEPH_GetLifPolicies("text", 1, "text", as<LumoRouteList>(&out)); }},
    {141, "LUMOZEPH_SetLifPolicy", 776, 88, [] { return LUMOZEPH_SetLifPolicy(1, "text", 1, 1, 1, "text", "text", 1, &result); }},
    {142, "LUMOZEPH_DelLifPolicy", 776, 88, [] { return LUMOZEPH_DelLifPolicy(1, "text", 1, 1, 1, "text", "text", 1, &result); }},
    {143, "LUMOZEPH_GetPolicyTable", 776, 72000, [] { return LUMOZEPH_GetPolicyTable(as<LumoPolicyTableList>(&out)); }},
    {144, "LUMOZEPH_SetPolicyTable", 776, 88, [] { return LUMOZEPH_SetPolicyTable(1, "text", &result); }},
    {145, "LUMOZEPH_DelPolicyTable", 776, 88, [] { return LUMOZEPH_DelPolicyTable(1, &result); }},
    {146, "LUMOZEPH_GetLifPolicyTableRef", 776, 546, [] { return LUMOZEPH_GetLifPolicyTableRef("text", "text", as<LumoLifPolicyTableRef>(&out)); }},
    {147, "LUMOZEPH_SetLifPolicyTableRef", 776, 88, [] { return LUMOZEPH_SetLifPolicyTableRef("text", "text", 1, &entry, &result); }},
    {148, "LUMOZEPH_DelLifPolicyTableRef", 776, 88, [] { return LUMOZEPH_DelLifPolicyTableRef("text", "text", &result); }},
    {149, "LUMOZEPH_GetVMAC", 776, 6, [] { return LUMOZEPH_GetVMAC("text", bytes); }},
    {151, "LUMOZEPH_PMTUTableCearv6", 0, 0, [] { return LUMOZEPH_PMTUTableCearv6(); }},
    {152, "LUMOZEPH_RAMTUSetv6", 776, 0, [] { return LUMOZEPH_RAMTUSetv6("text", "text", 1); }},
    {153, "LUMOZEPH_SoftRSSGetStats", 776, 804, [] { return LUMOZEPH_SoftRSSGetStats("text", as<LumoRssStats>(&out)); }},
    {154, "LUMOZEPH_SoftRSSStatsReset", 776, 0, [] { return LUMOZEPH_SoftRSSStatsReset("text"); }},
    {155, "LUMOZEPH_SoftRSSGetTunables", 776, 12, [] { return LUMOZEPH_SoftRSSGetTunables("text", &tunables); }},
    {156, "LUMOZEPH_SoftRSSSetTunables", 776, 0, [] { return LUMOZEPH_SoftRSSSetTunables("text", &tunables); }},
    {157, "LUMOZEPH_SoftRSSGetIndTable", 776, 128, [] { return LUMOZEPH_SoftRSSGetIndTable("text", bytes); }},
    {158, "LUMOZEPH_SoftRSSTableSet", 776, 0, [] { return LUMOZEPH_SoftRSSTableSet("text", &table); }},
    {159, "LUMOZEPH_GetTxDispQueueSize", 0, 4, [] { return LUMOZEPH_GetTxDispQueueSize(&number); }},
    {160, "LUMOZEPH_SetTxDispQueueSize", 4, 0, [] { return LUMOZEPH_SetTxDispQueueSize(1); }},
    {70, "LUMOZEPH_BridgeSetConfig", 776, 0, [] { return LUMOZEPH_BridgeSetConfig("text", 70, 1); }},
};

// The functions that send nothing.
const std::set<std::string> silent {
    "LUMOZEPHIoctl",
    "LUMOZEPHGetUuidOrName",
    "LUMOZEPH_ReleaseInstance",
    "LUMOZEPH_ReleaseInstances",
    "LUMOZEPH_ReleaseStats",
    "LUMOZEPH_ReleaseLif",
    "LUMOZEPH_ReleaseLifs",
    "LUMOZEPH_ReleaseRoute",
    "LUMOZEPH_ReleaseRoutes",
    "LUMOZEPH_ReleaseAllPolicy",
    "LUMOZEPH_ReleaseAllPolicyTable",
    "LUMOZEPH_ReleaseLifPolicyTableRef",
    "LUMOZEPH_ReleaseBridgeInstance",
    "LUMOZEPH_ReleaseBridgeInstances",
    "LUMOZEPH_ReleaseBridgeNetwork",
    "LUMOZEPH_ReleaseBridgeNetworks",
    "LUMOZEPH_ReleaseBridgePorts",
    "LUMOZEPH_ReleaseBridgeFdbEntries",
    "LUMOZEPH_ReleaseBridgeClusters",
    "LUMOZEPH_ReleaseBridgeClusterNodes",
    "LUMOZEPH_ReleaseBridgeEndpoints",
    "LUMOZEPH_ReleaseBridgeBFDSessions",
    "LUMOZEPH_ReleaseMRoutingDomainData",
    "LUMOZEPH_ReleaseMRoutingLocalRcvrs",
    "LUMOZEPH_ReleaseVTEPTable",
    "LUMOZEPH_ReleaseMRoutingMcastGroups",
};
// clang-format on

void PrintTo(const Row& row, std::ostream* stream)
{
    *stream << row.function;
}

class CommandTable : public testing::TestWithParam<Row>
{};

TEST_P(CommandTable, HasTheNumberAndTheLengthsOfEachCall)
{
    const Row& row = GetParam();
    ScriptedDevice device;
    // Only the IPv6 routes send two commands, the second when the first has succeeded.
    if (row.command == 114)
        device.next(replies(Bytes(4, '\0')));
    device.next(fails(EPERM));
    const Call call = observe(device, row.call);
    free_left(call);
    EXPECT_EQ(call.result, -1);
    ASSERT_EQ(call.sent.size(), row.command == 114 ? 2u : 1u);
    const Sent& sent = call.sent.back();
    EXPECT_EQ(sent.number, static_cast<unsigned long>(row.command));
    EXPECT_EQ(sent.in_len, row.in_len);
    EXPECT_EQ(sent.in_ptr == 0, row.in_len == 0);
    EXPECT_EQ(sent.out_len, row.out_len);
    EXPECT_EQ(sent.out_ptr == 0, row.out_len == 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandTable, testing::ValuesIn(rows),
    [](const auto& row) { return row.param.function + "_" + std::to_string(row.param.command); });

TEST(Commands, AreSentBy154Of180Functions)
{
    std::set<std::string> senders;
    for (const Row& row : rows)
        senders.insert(row.function);
    EXPECT_EQ(senders.size(), 154u);
    EXPECT_EQ(silent.size(), 26u);
    for (const std::string& function : silent)
        EXPECT_EQ(senders.count(function), 0u) << function;
}

TEST(Commands, OfTheGapsAreSentByNoFunctionButTheOneThatTakesANumber)
{
    const std::set<int> gaps {68, 69, 70, 71, 76, 77, 78, 79, 81, 82, 83, 84, 105, 150};
    std::set<int> sent;
    for (const Row& row : rows)
        if (row.function != "LUMOZEPH_BridgeSetConfig")
            sent.insert(row.command);
    for (int command = 0; command <= 160; ++command)
        EXPECT_NE(sent.count(command), gaps.count(command)) << command;
    EXPECT_EQ(*sent.rbegin(), 160);
}

} // namespace
