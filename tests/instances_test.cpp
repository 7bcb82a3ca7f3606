// Router instances: what is particular to reading and releasing them.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using testing::ElementsAre;

namespace {

TEST(Instances, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(256, '\0');
    put(reply, 64, 0x11121314, 4);
    put(reply, 68, 0x21222324, 4);
    put(reply, 72, 0x3132, 2);
    put(reply, 74, 0x4142, 2);
    put(reply, 76, 0x5152, 2);
    put(reply, 78, 0x61626364, 4);
    put(reply, 82, 0x71727374, 4);
    put(reply, 86, 0x81828384, 4);
    put(reply, 90, 0x91, 1);
    put(reply, 91, 0xa1a2, 2);
    put(reply, 95, 0xb1, 1);
    put(reply, 96, 0xc1, 1);
    for (std::size_t i = 0; i < 13; ++i)
        put(reply, 97 + i, 0xd0 + i, 1);
    for (std::size_t i = 0; i < 4; ++i)
        put(reply, 110 + 4 * i, 0xe1e2e300 + i, 4);
    put(reply, 126, 0xf1f2f3f4, 4);
    put(reply, 130, 0x1516, 2);
    put(reply, 132, 0x25, 1);
    put(reply, 133, 0x3536, 2);
    put(reply, 135, 0x45, 1);
    reply.replace(136, 6, "second");
    put(reply, 200, 0x5556, 2);
    for (std::size_t i = 0; i < 32; ++i)
        put(reply, 202 + i, i + 1, 1);
    put(reply, 234, 0x0102030405060708, 8);
    put(reply, 242, 0x65666768, 4);
    put(reply, 246, 0x75, 1);
    put(reply, 247, 0x85868788, 4);
    put(reply, 251, 0x95969798, 4);
    put(reply, 255, 0xa5, 1);
    reply.replace(0, 5, "first");

    ScriptedDevice device(replies(reply));
    LumoInstanceInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetInstance("first", &out); }), Succeeds());
    const LumoInstanceInfo info = *out;
    LUMOZEPH_ReleaseInstance(out);
    EXPECT_STREQ(info.instanceKey, "first");
    EXPECT_EQ(+info.value1, 0x11121314u);
    EXPECT_EQ(+info.value2, 0x21222324u);
    EXPECT_EQ(+info.value3, 0x3132);
    EXPECT_EQ(+info.value4, 0x4142);
    EXPECT_EQ(+info.value5, 0x5152);
    EXPECT_EQ(+info.value6, 0x61626364u);
    EXPECT_EQ(+info.value7, 0x71727374u);
    EXPECT_EQ(+info.value8, 0x81828384u);
    EXPECT_EQ(+info.value9, 0x91);
    EXPECT_EQ(+info.value10, 0xa1a2);
    EXPECT_EQ(+info.value11, 0xb1);
    EXPECT_EQ(+info.value12, 0xc1);
    EXPECT_EQ(+info.bytes1[12], 0xdc);
    EXPECT_EQ(+info.words[3], 0xe1e2e303u);
    EXPECT_EQ(+info.value13, 0xf1f2f3f4u);
    EXPECT_EQ(+info.value14, 0x1516);
    EXPECT_EQ(+info.value15, 0x25);
    EXPECT_EQ(+info.value16, 0x3536);
    EXPECT_EQ(+info.value17, 0x45);
    EXPECT_STREQ(info.text2, "second");
    EXPECT_EQ(+info.value18, 0x5556);
    EXPECT_EQ(+info.bytes2[31], 32);
    EXPECT_EQ(+info.value19, 0x0102030405060708u);
    EXPECT_EQ(+info.value20, 0x65666768u);
    EXPECT_EQ(+info.value21, 0x75);
    EXPECT_EQ(+info.value22, 0x85868788u);
    EXPECT_EQ(+info.value23, 0x95969798u);
    EXPECT_EQ(+info.value24, 0xa5);
}

TEST(Instances, AReplyOf300BytesFailsAfterOneRecord)
{
    ScriptedDevice device(replies(Bytes(300, 'x')));
    LumoInstanceList* out = reinterpret_cast<LumoInstanceList*>(0x5a5a);
    const Call call = observe(device, [&] { return LUMOZEPH_GetInstances(&out); });
    EXPECT_THAT(call, Fails(EBADMSG));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(call, LeavesNothingAllocated());
}

// Kept: bytes 72 to 77 of each counted record are wiped, and nothing else.
TEST(Instances, AListIsWipedOfThreeValuesWhenItIsReleased)
{
    const Bytes reply(3 * 256, '\xee');
    ScriptedDevice device(replies(reply));
    LumoInstanceList* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetInstances(&out); }), Succeeds());
    Bytes expected(reinterpret_cast<const char*>(out->records), 3 * 256);
    for (std::size_t i = 0; i < 3; ++i)
        expected.replace(256 * i + 72, 6, Bytes(6, '\0'));
    const Call call = observe(device, [&] { return LUMOZEPH_ReleaseInstances(out); });
    ASSERT_EQ(call.freed_content.size(), 2u);
    EXPECT_EQ(call.freed_content[0].substr(0, 3 * 256), expected);
}

TEST(Instances, ARecordIsReleasedAsItIs)
{
    ScriptedDevice device(replies(Bytes(256, '\xee')));
    LumoInstanceInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetInstance("r", &out); }), Succeeds());
    const Bytes expected(reinterpret_cast<const char*>(out), 256);
    const Call call = observe(device, [&] { return LUMOZEPH_ReleaseInstance(out); });
    EXPECT_THAT(call.freed_content, ElementsAre(expected));
}

} // namespace
