// Policies.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using operations::get;
using operations::put;
using testing::ElementsAre;

namespace {

TEST(Policy, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(56, '\0');
    put(reply, 28 + 0, 0x01020304, 4);
    put(reply, 28 + 4, 0x11121314, 4);
    put(reply, 28 + 8, 0x21222324, 4);
    put(reply, 28 + 12, 0x31323334, 4);
    put(reply, 28 + 16, 0x41424344, 4);
    put(reply, 28 + 20, 0x5152535455565758, 8);
    ScriptedDevice device(replies(reply));
    LumoPolicyList* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetPolicy(1, &out); }), Succeeds());
    ASSERT_EQ(out->count, 2);
    const LumoPolicyInfo info = out->records[1];
    LUMOZEPH_ReleaseAllPolicy(out);
    EXPECT_EQ(+info.value1, 0x01020304u);
    EXPECT_EQ(+info.value2, 0x11121314u);
    EXPECT_EQ(+info.value3, 0x21222324u);
    EXPECT_EQ(+info.value4, 0x31323334u);
    EXPECT_EQ(+info.value5, 0x41424344u);
    EXPECT_EQ(+info.value6, 0x5152535455565758u);
}

class PolicyCount : public testing::Test
{
protected:
    std::uint32_t count = 4711;

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return LUMOZEPH_GetPolicyCount(0x01020304, &count); });
    }
};

const Bytes twelve("\x0c\0\0\0", 4);

TEST_F(PolicyCount, IsRead)
{
    const Call call = read(replies(twelve));
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(count, 12u);
    EXPECT_THAT(call.events, ElementsAre("malloc(4) = #1", "getenv(USE_UPGRADE_DEV)",
                                 "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000", "ioctl(5000, 122)",
                                 "close(5000)", "free(#1)"));
    EXPECT_EQ(call.sent.at(0).out_len, 4u);
}

// Kept: nothing but the key's first bytes and the table's number is written into the request.
TEST_F(PolicyCount, NamesItsTableInARequestThatIsNotCleared)
{
    const Call call = read(replies(twelve));
    const Bytes& request = call.sent.at(0).input;
    ASSERT_EQ(request.size(), 776u);
    EXPECT_EQ(get(request, 0, 4), 0u);
    EXPECT_EQ(get(request, 220, 4), 0x01020304u);
}

TEST_F(PolicyCount, TakesALongerReply)
{
    for (const std::int32_t length : {5, 8, 9, INT32_MAX}) {
        count = 4711;
        EXPECT_THAT(read(reports(twelve, length), {.guarded_blocks = true}), Succeeds());
        EXPECT_EQ(count, 12u);
    }
}

// Kept: the buffer of a short reply stays allocated.
TEST_F(PolicyCount, LeavesItsBufferAllocatedWhenTheReplyIsShort)
{
    for (const std::int32_t length : {3, 2, 1, 0, -1, INT32_MIN}) {
        const Call call = read(reports(twelve.substr(0, 3), length), {.guarded_blocks = true});
        EXPECT_THAT(call, Fails(EBADMSG));
        EXPECT_THAT(call.blocks_left, ElementsAre("#1: malloc(4)"));
        free_left(call);
        EXPECT_EQ(count, 4711u);
    }
}

TEST_F(PolicyCount, IsUntouchedWhenTheReadFails)
{
    const Call rejected = read(fails(EPERM));
    EXPECT_THAT(rejected, Fails(EPERM));
    EXPECT_THAT(rejected, LeavesNothingAllocated());
    const Call absent = read({}, {.open_error = ENOENT});
    EXPECT_THAT(absent, Fails(ENOENT));
    EXPECT_THAT(absent, LeavesNothingAllocated());
    const Call unallocated = read({}, {.failing_allocation = 1});
    EXPECT_THAT(unallocated, Fails(ENOMEM));
    EXPECT_THAT(unallocated.events, ElementsAre("malloc(4) = null"));
    EXPECT_EQ(count, 4711u);
}

} // namespace
