#include "channel/read.h"
#include "instance/fields.h"
#include "lumozeph.h"

using namespace lumo;

namespace {

constexpr uint32_t connections_size = 131072;
constexpr uint32_t connection_size = 152;
constexpr uint32_t mac_size = 6;

} // namespace

int32_t LUMOZEPH_GetConnections(void* buffer)
{
    return read_raw(Command::GetConnections, Request(), buffer, connections_size);
}

int32_t LUMOZEPH_GetConnection(const char* name, void* buffer)
{
    return read_raw(Command::GetConnection, Request(connection_name(name)), buffer, connection_size);
}

int32_t LUMOZEPH_GetVMAC(const char* name, uint8_t* mac)
{
    return read_raw(Command::GetVMAC, Request(connection_name(name)), mac, mac_size);
}

// Kept: the third argument is accepted and not sent.
int32_t LUMOZEPH_PlumbLumoConnection(
    const char* name, const char* text1, uint32_t, const char* text2, const char* text3, const char* text4)
{
    return send(Command::PlumbLumoConnection,
        Request(connection_name(name), connection_text1(text1), connection_text2.if_given(text2),
            connection_text3.if_given(text3), connection_text4.if_given(text4)));
}

int32_t LUMOZEPH_UnPlumbLumoConnection(const char* name)
{
    return send(Command::UnPlumbLumoConnection, Request(connection_name(name)));
}

// Kept: unlike the levels, the destination is not tested.
int32_t LUMOZEPH_LUMODevCheckConnDeletion(uint32_t* value)
{
    return read_value(Command::LUMODevCheckConnDeletion, value);
}
