#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

namespace {

constexpr uint32_t bfd_connections_size = 131072;

} // namespace

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
