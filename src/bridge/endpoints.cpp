#include "bridge/fields.h"
#include "bridge/records.h"
#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

namespace {

constexpr uint32_t be_stats_size = sizeof(LumoBridgePortInfo);
constexpr uint32_t be_status_size = 229;
constexpr uint32_t be_size = sizeof(LumoBridgeEndpointInfo);

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

// Kept: the endpoint's key lies at 192, and the first field stays empty.
int32_t LUMOZEPH_GetBeStats(const char* key, void* buffer)
{
    return read_raw(Command::GetBeStats, Request(endpoint_key(key)), buffer, be_stats_size);
}

int32_t LUMOZEPH_GetBeStatus(const char* key, void* buffer)
{
    return read_raw(Command::GetBeStatus, Request(endpoint_key(key)), buffer, be_status_size);
}

// Kept: the count is in units of a bridge endpoint's record, whatever the module wrote.
int32_t LUMOZEPH_GetBeAll(void* buffer, uint32_t size, uint32_t* count)
{
    Room room {buffer, size};
    const int32_t result = exchange(Command::GetBeAll, input(Request()), room);
    if (result == 0)
        *count = room.length / be_size;
    return result;
}
