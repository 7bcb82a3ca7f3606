// Reads of counted lists, but for the one whose room is of another order.
#include "list_reads.h"
#include "lumozeph.h"

namespace fuzz {

namespace {

namespace layouts = world::layouts;

ListRead groups()
{
    ListRead row = list(
        "GetMRoutingAllMcastGroups", layouts::mcast_group, 4096, Holder::LeftAllocated,
        [](LumoMcastGroupList** out) { return LUMOZEPH_GetMRoutingAllMcastGroups("inst", out); },
        LUMOZEPH_ReleaseMRoutingMcastGroups);
    row.looks = Looks::AtWholeRecordsAndAFragment;
    return row;
}

const std::vector<ListRead> rows {
    list("GetInstances", layouts::instance, 1000, Holder::Freed, LUMOZEPH_GetInstances, LUMOZEPH_ReleaseInstances),
    list(
        "GetLifs", layouts::lif, 10000, Holder::Freed, [](LumoLifList** out) { return LUMOZEPH_GetLifs("inst", out); },
        LUMOZEPH_ReleaseLifs),
    list(
        "GetBridgeLifs", layouts::lif, 10000, Holder::LeftAllocated,
        [](LumoLifList** out) { return LUMOZEPH_GetBridgeLifs("inst", out); }, LUMOZEPH_ReleaseLifs),
    list(
        "GetRoutes", layouts::route, 8000, Holder::Freed,
        [](LumoRouteList** out) { return LUMOZEPH_GetRoutes("inst", out); }, LUMOZEPH_ReleaseRoutes),
    list(
        "GetLifPolicies", layouts::route, 8000, Holder::Freed,
        [](LumoRouteList** out) { return LUMOZEPH_GetLifPolicies("inst", 4, "text", out); }, LUMOZEPH_ReleaseRoutes),
    list(
        "GetPolicy", layouts::policy, 1000, Holder::Freed,
        [](LumoPolicyList** out) { return LUMOZEPH_GetPolicy(1, out); }, LUMOZEPH_ReleaseAllPolicy),
    list("GetPolicyTable", layouts::policy_table, 1000, Holder::Freed, LUMOZEPH_GetPolicyTable,
        LUMOZEPH_ReleaseAllPolicyTable),
    list(
        "GetMRoutingLocalRcvrs", layouts::local_receiver, 512, Holder::LeftAllocated,
        [](LumoLocalRcvrList** out) { return LUMOZEPH_GetMRoutingLocalRcvrs("inst", 1, out); },
        LUMOZEPH_ReleaseMRoutingLocalRcvrs),
    groups(),

    list("GetBridgeInstances", layouts::bridge_instance, 4096, Holder::LeftAllocated, LUMOZEPH_GetBridgeInstances,
        LUMOZEPH_ReleaseBridgeInstances),
    worker("LUMOZEPHGetBridgeInstances", layouts::bridge_instance, 4096, LUMOZEPHGetBridgeInstances,
        LUMOZEPH_ReleaseBridgeInstances),
    list(
        "GetBridgeNetworks", layouts::bridge_network, 32768, Holder::LeftAllocated,
        [](LumoBridgeNetworkList** out) { return LUMOZEPH_GetBridgeNetworks("first", "key", out); },
        LUMOZEPH_ReleaseBridgeNetworks),
    worker(
        "LUMOZEPHGetBridgeNetworks", layouts::bridge_network, 32768,
        [](LumoBridgeNetworkList* list) { return LUMOZEPHGetBridgeNetworks("first", "key", list); },
        LUMOZEPH_ReleaseBridgeNetworks),
    list(
        "GetBridgePorts", layouts::bridge_port, 32768, Holder::LeftAllocated,
        [](LumoBridgePortList** out) { return LUMOZEPH_GetBridgePorts("first", "key", 1, 2, out); },
        LUMOZEPH_ReleaseBridgePorts),
    worker(
        "LUMOZEPHGetBridgePorts", layouts::bridge_port, 32768,
        [](LumoBridgePortList* list) { return LUMOZEPHGetBridgePorts("first", "key", 1, 2, list); },
        LUMOZEPH_ReleaseBridgePorts),
    list(
        "GetBridgeFdbEntries", layouts::fdb_entry, 4096, Holder::LeftAllocated,
        [](LumoBridgeFdbList** out) { return LUMOZEPH_GetBridgeFdbEntries("key", 1, 2, out); },
        LUMOZEPH_ReleaseBridgeFdbEntries),
    worker(
        "LUMOZEPHGetBridgeFdbEntries", layouts::fdb_entry, 4096,
        [](LumoBridgeFdbList* list) { return LUMOZEPHGetBridgeFdbEntries("key", 1, 2, list); },
        LUMOZEPH_ReleaseBridgeFdbEntries),
    list(
        "GetBridgeClusters", layouts::cluster, 10, Holder::LeftAllocated,
        [](LumoBridgeClusterList** out) { return LUMOZEPH_GetBridgeClusters("key", out); },
        LUMOZEPH_ReleaseBridgeClusters),
    worker(
        "LUMOZEPHGetBridgeClusters", layouts::cluster, 10,
        [](LumoBridgeClusterList* list) { return LUMOZEPHGetBridgeClusters(nullptr, list); },
        LUMOZEPH_ReleaseBridgeClusters),
    list(
        "GetBridgeClusterNodes", layouts::cluster_node, 100, Holder::LeftAllocated,
        [](LumoBridgeClusterNodeList** out) { return LUMOZEPH_GetBridgeClusterNodes("key", out); },
        LUMOZEPH_ReleaseBridgeClusterNodes),
    worker(
        "LUMOZEPHGetBridgeClusterNodes", layouts::cluster_node, 100,
        [](LumoBridgeClusterNodeList* list) { return LUMOZEPHGetBridgeClusterNodes(nullptr, list); },
        LUMOZEPH_ReleaseBridgeClusterNodes),
    list(
        "GetBridgeEndpoints", layouts::endpoint, 28672, Holder::LeftAllocated,
        [](LumoBridgeEndpointList** out) { return LUMOZEPH_GetBridgeEndpoints("key", out); },
        LUMOZEPH_ReleaseBridgeEndpoints),
    worker(
        "LUMOZEPHGetBridgeEndpoints", layouts::endpoint, 28672,
        [](LumoBridgeEndpointList* list) { return LUMOZEPHGetBridgeEndpoints(nullptr, list); },
        LUMOZEPH_ReleaseBridgeEndpoints),
};

} // namespace

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz::Input input(data, size);
    fuzz::run(choose(fuzz::rows, input), input);
    return 0;
}
