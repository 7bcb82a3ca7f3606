#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_GetBridgeNetworks(const char* firstKey, const char* key, LumoBridgeNetworkList** out)
{
    return get_list(out, [&](LumoBridgeNetworkList* list) { return LUMOZEPHGetBridgeNetworks(firstKey, key, list); });
}

int32_t LUMOZEPHGetBridgeNetworks(const char* firstKey, const char* key, LumoBridgeNetworkList* list)
{
    return fill_list(Command::GetBridgeNetworks, Request(twice_written_key(firstKey, key)), bridge_networks, list);
}

int32_t LUMOZEPH_GetBridgePorts(
    const char* firstKey, const char* key, uint16_t value16, uint32_t value32, LumoBridgePortList** out)
{
    return get_list(
        out, [&](LumoBridgePortList* list) { return LUMOZEPHGetBridgePorts(firstKey, key, value16, value32, list); });
}

int32_t LUMOZEPHGetBridgePorts(
    const char* firstKey, const char* key, uint16_t value16, uint32_t value32, LumoBridgePortList* list)
{
    return fill_list(Command::GetBridgePorts,
        Request(twice_written_key(firstKey, key), selector1(uint32_t {value16}), selector2(value32), selected),
        bridge_ports, list);
}

// Kept: releases what no function returns.
int32_t LUMOZEPH_ReleaseBridgeNetwork(LumoBridgeNetworkInfo* network)
{
    return release(network);
}

int32_t LUMOZEPH_ReleaseBridgeNetworks(LumoBridgeNetworkList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_ReleaseBridgePorts(LumoBridgePortList* list)
{
    return release_list(list);
}
