#include "channel/device.h"
#include "channel/fail.h"
#include "lumozeph.h"
#include "routing/fields.h"

#include <cstdlib>

using namespace lumo;

namespace {

constexpr uint32_t entry_size = 776;
constexpr int32_t few_entries = 8000;
constexpr int32_t many_entries = 30000;

} // namespace

int32_t LUMOZEPH_SetRoutev6(uint64_t dest1, uint64_t dest2, uint32_t prefixLen, uint64_t gateway1, uint64_t gateway2,
    const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::SetRoutev6, Request(unterminated_instance_key(instance), route6_dest(dest1, dest2),
                                         route6_prefix_len(static_cast<uint8_t>(prefixLen)),
                                         route6_gateway(gateway1, gateway2), route6_lif_name.if_given(lif)));
}

// Kept: the delete carries gateway and interface, too.
int32_t LUMOZEPH_DelRoutev6(uint64_t dest1, uint64_t dest2, uint32_t prefixLen, uint64_t gateway1, uint64_t gateway2,
    const char* lif, const char* instance)
{
    if (any_null(instance))
        return fail(EINVAL);
    return send(Command::DelRoutev6, Request(unterminated_instance_key(instance), route6_dest(dest1, dest2),
                                         route6_prefix_len(static_cast<uint8_t>(prefixLen)),
                                         route6_gateway(gateway1, gateway2), route6_lif_name.if_given(lif)));
}

int32_t LUMOZEPH_GetRoutesv6(const char* instance, void** block, uint32_t* count)
{
    // Kept: whatever the count query failed of is reported as ENOMEM.
    int32_t reported = 0;
    if (read_raw(Command::GetRoutesv6Count, Request(unterminated_instance_key(instance)), &reported, sizeof reported) !=
        0)
        return fail(ENOMEM);
    if (reported >= many_entries)
        return fail(ENOMEM);

    // Two sizes only, so that routes added between the two commands mostly still fit.
    const int32_t entries = reported < few_entries ? few_entries : many_entries;
    Room room {nullptr, static_cast<uint32_t>(entries) * entry_size};
    room.bytes = malloc(room.length);
    *block = room.bytes;
    if (room.bytes == nullptr)
        return fail(ENOMEM);

    // Filled anew: the module may have written into the first one.
    const int32_t result = exchange(Command::GetRoutesv6, input(Request(unterminated_instance_key(instance))), room);
    // Kept: after a failure the block is freed, but the caller's pointer stays and the count is stored all the same.
    *count = room.length / entry_size;
    if (result != 0) {
        const int error = errno;
        free(room.bytes);
        return fail(error);
    }
    return 0;
}

// Kept: the name is spelled so.
int32_t LUMOZEPH_PMTUTableCearv6()
{
    return send(Command::PMTUTableCearv6, no_input);
}
