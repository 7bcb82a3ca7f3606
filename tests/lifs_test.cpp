// Logical interfaces.
#include "fake/matchers.h"
#include "shapes/rows.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using shapes::elsewhere;

namespace {

TEST(Lif, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(576, '\0');
    reply.replace(0, 3, "lif");
    reply.replace(64, 6, "second");
    put(reply, 128, 0x01020304, 4);
    put(reply, 132, 0x11121314, 4);
    put(reply, 136, 0x21222324, 4);
    reply.replace(140, 6, "\xa1\xa2\xa3\xa4\xa5\xa6");
    put(reply, 146, 0x31323334, 4);
    put(reply, 150, 0x41424344, 4);
    put(reply, 154, 0x51525354, 4);
    reply.replace(158, 4, "\xb1\xb2\xb3\xb4");
    put(reply, 162, 2, 4);
    reply.replace(166, 4, "\x0a\x01\x02\x03");
    put(reply, 182, 1, 4);
    reply.replace(186, 16, "0123456789abcdef");
    put(reply, 202, 3, 4);
    reply.replace(326, 16, "fedcba9876543210");
    put(reply, 342, 64, 4);
    put(reply, 346, 0xc1, 1);
    put(reply, 347, 0xffffff, 3);
    put(reply, 350, 0xff, 1); // the second entry, which does not count
    put(reply, 566, 1, 4);
    put(reply, 570, 0xd1, 1);
    put(reply, 571, 0xd2, 1);
    put(reply, 572, 0x61626364, 4);

    ScriptedDevice device(replies(reply));
    LumoLifInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetLif("inst", "lif", &out); }), Succeeds());
    const LumoLifInfo lif = *out;
    LUMOZEPH_ReleaseLif(out);
    EXPECT_STREQ(lif.lifName, "lif");
    EXPECT_STREQ(lif.lifSecondName, "second");
    EXPECT_EQ(+lif.ipAddr, 0x01020304u);
    EXPECT_EQ(+lif.ipMask, 0x11121314u);
    EXPECT_EQ(+lif.diIp, 0x21222324u);
    EXPECT_EQ(+lif.lifMac[0], 0xa1);
    EXPECT_EQ(+lif.lifMac[5], 0xa6);
    EXPECT_EQ(+lif.lifValue1, 0x31323334u);
    EXPECT_EQ(+lif.lifValue2, 0x41424344u);
    EXPECT_EQ(+lif.lifValue3, 0x51525354u);
    EXPECT_EQ(+lif.lifFlags[3], 0xb4);
    EXPECT_EQ(+lif.dhcpRelay.relayCount, 2u);
    EXPECT_EQ(+lif.dhcpRelay.servers[0].address[3], 3);
    EXPECT_EQ(+lif.dhcpRelay.servers[0].family, 1u);
    EXPECT_EQ(+lif.dhcpRelay.servers[1].address[15], 'f');
    EXPECT_EQ(+lif.dhcpRelay.servers[1].family, 3u);
    EXPECT_EQ(+lif.ipv6Addrs[0].address[0], 'f');
    EXPECT_EQ(+lif.ipv6Addrs[0].prefixLen, 64u);
    EXPECT_EQ(+lif.ipv6Addrs[0].value, 0xc1);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(lif.ipv6Addrs[0].uncopied), 3), Bytes(3, '\0'));
    EXPECT_EQ(+lif.ipv6Addrs[1].address[0], 0);
    EXPECT_EQ(+lif.ipv6Count, 1u);
    EXPECT_EQ(+lif.lifState1, 0xd1);
    EXPECT_EQ(+lif.lifState2, 0xd2);
    EXPECT_EQ(+lif.lifValue4, 0x61626364u);
}

TEST(Lif, AListReplyOfTwoRecordsAnd100BytesFails)
{
    ScriptedDevice device(replies(Bytes(1152 + 100, 'x')));
    LumoLifList* out = reinterpret_cast<LumoLifList*>(elsewhere);
    const Call call = observe(device, [&] { return LUMOZEPH_GetLifs("inst", &out); });
    EXPECT_THAT(call, Fails(EBADMSG));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(call, LeavesNothingAllocated());
}

} // namespace
