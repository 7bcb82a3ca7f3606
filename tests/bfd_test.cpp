// BFD sessions.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;

namespace {

TEST(BfdSession, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, addr1), 2u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, addr2), 8u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value2), 14u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value3), 18u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value4), 19u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value5), 23u);
    EXPECT_EQ(offsetof(LumoBridgeBfdSessionInfo, value6), 31u);
}

} // namespace
