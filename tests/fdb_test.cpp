// Forwarding table.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;

namespace {

const Bytes mac_bytes("\xa1\xa2\xa3\xa4\xa5\xa6");

TEST(Fdb, ValuesShareAWord)
{
    Bytes reply(20, '\0');
    reply.replace(0, 6, mac_bytes);
    put(reply, 6, 0x0102, 2);
    put(reply, 8, 0x44332211, 4);
    put(reply, 12, 0x51525354, 4);
    put(reply, 16, 0x61626364, 4);
    ScriptedDevice device(replies(reply));
    LumoBridgeFdbList* list = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetBridgeFdbEntries("b", 1, 2, &list); }), Succeeds());
    const LumoBridgeFdbEntry entry = list->records[0];
    LUMOZEPH_ReleaseBridgeFdbEntries(list);
    EXPECT_EQ(+entry.mac[5], 0xa6);
    EXPECT_EQ(+entry.value1, 0x0102);
    EXPECT_EQ(entry.value2 + 0u, 0x332211u);
    EXPECT_EQ(entry.value3 + 0u, 0x44u);
    EXPECT_EQ(+entry.value4, 0x51525354u);
    EXPECT_EQ(+entry.value5, 0x61626364u);
}

} // namespace
