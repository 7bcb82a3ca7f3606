// How a call ended: result and errno together, both by name.
#pragma once

#include "fake/system.h"

#include <cstring>
#include <gmock/gmock.h>

namespace fake {

inline std::string errno_name(int error)
{
    if (error == untouched)
        return "untouched";
    const char* name = strerrorname_np(error);
    return name != nullptr ? name : std::to_string(error);
}

inline void PrintTo(const Call& call, std::ostream* out)
{
    *out << "result " << call.result << ", errno " << errno_name(call.error);
    for (const std::string& event : call.events)
        *out << "\n    " << event;
}

// 0; nothing left open. What the call handed out is the test's to look at.
MATCHER(Succeeds, "succeeds")
{
    return arg.result == 0 && arg.descriptors_left == 0;
}

// -1 with this errno; nothing left open.
MATCHER_P(Fails, error, "fails with errno " + errno_name(error))
{
    return arg.result == -1 && arg.error == error && arg.descriptors_left == 0;
}

// The module was not contacted and nothing was allocated.
MATCHER(DoesNothing, "makes no call")
{
    return arg.events.empty();
}

MATCHER(LeavesNothingAllocated, "leaves nothing allocated")
{
    *result_listener << testing::PrintToString(arg.blocks_left);
    return arg.blocks_left.empty();
}

} // namespace fake
