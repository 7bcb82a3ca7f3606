// Control-plane attachment.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;

namespace {

TEST(ControlPlane, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(1420, '\0');
    const std::size_t fourth = 3 * 284;
    put(reply, fourth + 0, 0x0102030405060708, 8);
    for (std::size_t i = 0; i < 5; ++i)
        put(reply, fourth + 8 + 4 * i, 0x11121310 + i, 4);
    for (std::size_t i = 0; i < 8; ++i)
        put(reply, fourth + 28 + 8 * i, 0x2122232425262700 + i, 8);
    put(reply, fourth + 92, 0x3132333435363738, 8);
    for (std::size_t i = 0; i < 23; ++i)
        put(reply, fourth + 100 + 8 * i, 0x4142434445464700 + i, 8);
    ScriptedDevice device(replies(reply));
    LumoCPSyncState* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetLumoInstanceCPSyncState("inst", &out); }), Succeeds());
    const LumoCPSyncStateEntry entry = out->entries[3];
    LUMOZEPH_ReleaseStats(out);
    EXPECT_EQ(+entry.value1, 0x0102030405060708u);
    EXPECT_EQ(+entry.value2, 0x11121310u);
    EXPECT_EQ(+entry.value3, 0x11121311u);
    EXPECT_EQ(+entry.value4, 0x11121312u);
    EXPECT_EQ(+entry.value5, 0x11121313u);
    EXPECT_EQ(+entry.value6, 0x11121314u);
    EXPECT_EQ(+entry.values7[0], 0x2122232425262700u);
    EXPECT_EQ(+entry.values7[7], 0x2122232425262707u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(entry.uncopied), 8), Bytes(8, '\0'));
    EXPECT_EQ(+entry.values8[0], 0x4142434445464700u);
    EXPECT_EQ(+entry.values8[22], 0x4142434445464716u);
}

} // namespace
