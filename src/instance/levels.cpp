#include "channel/read.h"
#include "lumozeph.h"

using namespace lumo;

int32_t LUMOZEPH_GetLogLevel(uint32_t* level)
{
    if (any_null(level))
        return fail(EINVAL);
    return read_value(Command::GetLogLevel, level);
}

int32_t LUMOZEPH_SetLogLevel(uint32_t level)
{
    return send_value(Command::SetLogLevel, level);
}

int32_t LUMOZEPH_GetExtendedLogLevel(uint32_t* level)
{
    if (any_null(level))
        return fail(EINVAL);
    return read_value(Command::GetExtendedLogLevel, level);
}

int32_t LUMOZEPH_SetExtendedLogLevel(uint32_t level)
{
    return send_value(Command::SetExtendedLogLevel, level);
}

int32_t LUMOZEPH_GetStatsLevel(uint32_t* level)
{
    if (any_null(level))
        return fail(EINVAL);
    return read_value(Command::GetStatsLevel, level);
}

int32_t LUMOZEPH_SetStatsLevel(uint32_t level)
{
    return send_value(Command::SetStatsLevel, level);
}

int32_t LUMOZEPH_GetTxDispQueueSize(uint32_t* size)
{
    if (any_null(size))
        return fail(EINVAL);
    return read_value(Command::GetTxDispQueueSize, size);
}

int32_t LUMOZEPH_SetTxDispQueueSize(uint32_t size)
{
    return send_value(Command::SetTxDispQueueSize, size);
}
