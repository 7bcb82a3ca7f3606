#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

namespace {

constexpr uint32_t locale_id_size = 16;
constexpr uint32_t local_transport_node_size = 2048;

} // namespace

int32_t LUMOZEPH_GetLocaleId(void* buffer)
{
    return read_raw(Command::GetLocaleId, Request(), buffer, locale_id_size);
}

int32_t LUMOZEPH_GetBridgeClusters(const char* key, LumoBridgeClusterList** out)
{
    return get_list(out, [&](LumoBridgeClusterList* list) { return LUMOZEPHGetBridgeClusters(key, list); });
}

int32_t LUMOZEPHGetBridgeClusters(const char* key, LumoBridgeClusterList* list)
{
    return fill_list(Command::GetBridgeClusters, Request(instance_key.if_given(key)), clusters, list);
}

int32_t LUMOZEPH_ReleaseBridgeClusters(LumoBridgeClusterList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_BridgeClusterSet(const char* key, int8_t on)
{
    return send(on != 0 ? Command::BridgeClusterSetOn : Command::BridgeClusterSetOff, Request(instance_key(key)));
}

int32_t LUMOZEPH_GetBridgeClusterNodes(const char* key, LumoBridgeClusterNodeList** out)
{
    return get_list(out, [&](LumoBridgeClusterNodeList* list) { return LUMOZEPHGetBridgeClusterNodes(key, list); });
}

int32_t LUMOZEPHGetBridgeClusterNodes(const char* key, LumoBridgeClusterNodeList* list)
{
    return fill_list(Command::GetBridgeClusterNodes, Request(instance_key.if_given(key)), cluster_nodes, list);
}

int32_t LUMOZEPH_ReleaseBridgeClusterNodes(LumoBridgeClusterNodeList* list)
{
    return release_list(list);
}

// Kept: the MAC address is neither read nor sent when the node is removed.
int32_t LUMOZEPH_BridgeClusterNodeSet(const char* key, const char* node, const uint8_t* mac, int8_t on)
{
    if (on == 0)
        return send(Command::BridgeClusterNodeSetOff, Request(instance_key(key), node_name(node)));
    return send(Command::BridgeClusterNodeSetOn, Request(instance_key(key), node_name(node), node_mac(mac)));
}

int32_t LUMOZEPH_BridgeLocalTransportNodeSet(
    const char* text1, const char* text2, const char* text3, uint32_t value, const void* block, int8_t on)
{
    return send(on != 0 ? Command::BridgeLocalTransportNodeSetOn : Command::BridgeLocalTransportNodeSetOff,
        Request(transport_name1(text1), transport_name2(text2), transport_text(text3), transport_value(value),
            transport_block(block)));
}

int32_t LUMOZEPH_BridgeGetLocalTransportNode(void* buffer, uint32_t selector)
{
    return read_raw(
        Command::BridgeGetLocalTransportNode, Request(transport_selector(selector)), buffer, local_transport_node_size);
}

int32_t LUMOZEPH_FlushBridgeCluster(const char* key, int8_t on)
{
    return send(
        on != 0 ? Command::FlushBridgeClusterOn : Command::FlushBridgeClusterOff, Request(instance_key.if_given(key)));
}

int32_t LUMOZEPH_SetBridgeClusterDebug(const char* key, uint8_t level)
{
    return send(Command::SetBridgeClusterDebug, Request(instance_key.if_given(key), debug_level(level)));
}

int32_t LUMOZEPH_BridgeClusterBfdHAProfileSet(const char* key, uint8_t flag, uint32_t value1, uint32_t value2)
{
    return send(Command::BridgeClusterBfdHAProfileSet,
        Request(instance_key(key), bfd_profile_flag(flag), bfd_value1(value1), bfd_value2(value2)));
}
