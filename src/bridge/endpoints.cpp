#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

namespace {

constexpr uint32_t bfd_connections_size = 131072;

} // namespace

// Kept: the endpoint's key lies at 192, and the first field stays empty.
int32_t LUMOZEPH_AddBridgeEndpoint(const char* key, const char* text1, const char* name, uint32_t value1,
    uint32_t value2, const char* text2, uint16_t value3, uint8_t flag1, const char* text3, uint8_t flag2)
{
    return send(Command::AddBridgeEndpoint,
        Request(endpoint_key(key), endpoint_text1(text1), endpoint_name(name), endpoint_value1(value1),
            endpoint_value2(value2), endpoint_text2(text2), endpoint_value3(value3), endpoint_flag1(flag1),
            endpoint_text3(text3), endpoint_flag2(flag2)));
}

int32_t LUMOZEPH_DelBridgeEndpoint(const char* key, const char* name)
{
    return send(Command::DelBridgeEndpoint, Request(endpoint_key(key), endpoint_name(name)));
}

int32_t LUMOZEPH_FlushBridgeEndpoint(int8_t on)
{
    return send(on != 0 ? Command::FlushBridgeEndpointOn : Command::FlushBridgeEndpointOff, Request());
}

int32_t LUMOZEPH_SetBridgeRepMode(const char* key, uint32_t mode)
{
    return send(Command::SetBridgeRepMode, Request(instance_key(key), rep_mode(mode)));
}

int32_t LUMOZEPH_GetBridgeEndpoints(const char* key, LumoBridgeEndpointList** out)
{
    return get_list(out, [&](LumoBridgeEndpointList* list) { return LUMOZEPHGetBridgeEndpoints(key, list); });
}

int32_t LUMOZEPHGetBridgeEndpoints(const char* key, LumoBridgeEndpointList* list)
{
    return fill_list(Command::GetBridgeEndpoints, Request(instance_key.if_given(key)), endpoints, list);
}

int32_t LUMOZEPH_ReleaseBridgeEndpoints(LumoBridgeEndpointList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_GetBridgeBFDSessions(const char* key, LumoBridgeBfdSessionList** out)
{
    return get_list(out, [&](LumoBridgeBfdSessionList* list) { return LUMOZEPHGetBridgeBFDSessions(key, list); });
}

int32_t LUMOZEPHGetBridgeBFDSessions(const char* key, LumoBridgeBfdSessionList* list)
{
    return fill_list(Command::GetBridgeBFDSessions, Request(instance_key.if_given(key)), bfd_sessions, list);
}

int32_t LUMOZEPH_ReleaseBridgeBFDSessions(LumoBridgeBfdSessionList* list)
{
    return release_list(list);
}

int32_t LUMOZEPH_PlumbBFDPortConnection(const char* port, const char* text, const uint8_t* mac)
{
    return send(
        Command::PlumbBFDPortConnection, Request(bfd_port_name(port), bfd_port_text(text), bfd_port_mac.if_given(mac)));
}

int32_t LUMOZEPH_UnPlumbBFDPortConnection(const char* port)
{
    return send(Command::UnPlumbBFDPortConnection, Request(bfd_port_name(port)));
}

int32_t LUMOZEPH_GetBFDPortConnections(void* buffer)
{
    return read_raw(Command::GetBFDPortConnections, Request(), buffer, bfd_connections_size);
}
