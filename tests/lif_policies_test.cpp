// Interface policies.
#include "fake/matchers.h"
#include "shapes/rows.h"

#include <lumozeph.h>

using namespace fake;
using shapes::elsewhere;
using shapes::expect_rejected;

namespace {

TEST(LifPolicy, OfKind4NeedsAText)
{
    LumoCmdResult result;
    std::memset(&result, 0x77, sizeof result);
    const LumoCmdResult before = result;
    LumoRouteList* out = reinterpret_cast<LumoRouteList*>(elsewhere);
    expect_rejected([&] { return LUMOZEPH_SetLifPolicy(4, nullptr, 1, 2, 3, "lif", "inst", 4, &result); });
    expect_rejected([&] { return LUMOZEPH_DelLifPolicy(4, nullptr, 1, 2, 3, "lif", "inst", 4, &result); });
    expect_rejected([&] { return LUMOZEPH_GetLifPolicies("inst", 4, nullptr, &out); });
    EXPECT_EQ(out, reinterpret_cast<LumoRouteList*>(elsewhere));
    EXPECT_EQ(std::memcmp(&result, &before, sizeof result), 0);
}

} // namespace
