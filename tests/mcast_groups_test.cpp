// Multicast groups, replication and router addresses.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;

namespace {

TEST(Mcast, AReplicationAddressIsLeftAsItWasWhereTheModuleWritesNothing)
{
    ScriptedDevice device(replies("\x01\x02"));
    std::uint32_t address = 0xaabbccdd;
    EXPECT_THAT(observe(device, [&] { return LUMOZEPH_GetMRoutingReplicationIP("inst", 1, &address); }), Succeeds());
    EXPECT_EQ(address, 0xaabb0201u);
}

// Kept: the missing bytes of the last group are whatever the buffer holds.
TEST(Mcast, AGroupReplyOf30BytesGivesThreeGroups)
{
    Bytes reply(36, '\0');
    for (std::size_t i = 0; i < 36; ++i)
        reply[i] = static_cast<char>(i + 1);
    for (const std::int32_t length : {25, 30, 35, 36}) {
        ScriptedDevice device(reports(reply, length));
        LumoMcastGroupList* list = nullptr;
        ASSERT_THAT(observe(device, {.guarded_blocks = true},
                        [&] { return LUMOZEPH_GetMRoutingAllMcastGroups("inst", &list); }),
            Succeeds());
        ASSERT_EQ(list->count, 3) << length;
        EXPECT_EQ(Bytes(reinterpret_cast<const char*>(list->records), 36), reply);
        EXPECT_EQ(+list->records[3].value1, 0u);
        LUMOZEPH_ReleaseMRoutingMcastGroups(list);
    }
}

} // namespace
