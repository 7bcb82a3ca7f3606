// Multicast domain, local and remote receivers.
#include "fake/matchers.h"
#include "operations/request.h"
#include "shapes/rows.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using operations::Request;
using shapes::elsewhere;
using shapes::expect_rejected;
using testing::ElementsAre;

namespace {

TEST(Mcast, DomainFieldsLieAsTheModuleWritesThem)
{
    Bytes reply(148, '\0');
    reply.replace(0, 4, "text");
    reply.replace(64, 48, Bytes(48, 'x'));
    for (std::size_t i = 0; i < 4; ++i)
        put(reply, 112 + 8 * i, 0x0102030405060700 + i, 8);
    put(reply, 144, 0x11121314, 4);
    ScriptedDevice device(replies(reply));
    LumoMcastDomainInfo* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetMRoutingDomain("inst", &out); }), Succeeds());
    const LumoMcastDomainInfo info = *out;
    LUMOZEPH_ReleaseMRoutingDomainData(out);
    EXPECT_STREQ(info.text1, "text");
    EXPECT_EQ(Bytes(info.text2), Bytes(47, 'x'));
    EXPECT_EQ(+info.value1, 0x0102030405060700u);
    EXPECT_EQ(+info.value2, 0x0102030405060701u);
    EXPECT_EQ(+info.value3, 0x0102030405060702u);
    EXPECT_EQ(+info.value4, 0x0102030405060703u);
    EXPECT_EQ(+info.value5, 0x11121314u);
    EXPECT_EQ(offsetof(LumoLocalRcvrInfo, value1), 64u);
    EXPECT_EQ(offsetof(LumoLocalRcvrInfo, value2), 68u);
    EXPECT_EQ(offsetof(LumoLocalRcvrInfo, value3), 72u);
    EXPECT_EQ(offsetof(LumoLocalRcvrInfo, value4), 80u);
}

class VtepTable : public testing::Test
{
protected:
    LumoVtepTable* out = reinterpret_cast<LumoVtepTable*>(elsewhere);

    static Bytes reply_of(std::uint32_t count, std::size_t entries)
    {
        Bytes reply(4 + 68 * entries, '\0');
        put(reply, 0, count, 4);
        for (std::size_t i = 4; i < reply.size(); ++i)
            reply[i] = static_cast<char>(1 + i % 251);
        return reply;
    }
    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return LUMOZEPH_GetMRoutingRemoteRcvrs("inst", 0x01020304, &out); });
    }
    Call release()
    {
        ScriptedDevice device;
        return observe(device, [&] { return LUMOZEPH_ReleaseVTEPTable(out); });
    }

    const std::vector<std::string> until_reply {"malloc(139268) = #1", "getenv(USE_UPGRADE_DEV)",
        "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000", "ioctl(5000, 129)", "close(5000)"};
    std::vector<std::string> after_reply(const std::vector<std::string>& events) const
    {
        std::vector<std::string> all = until_reply;
        all.insert(all.end(), events.begin(), events.end());
        return all;
    }
};

TEST_F(VtepTable, IsReadAsItStands)
{
    const Bytes reply = reply_of(3, 3);
    const Call call = read(replies(reply), {.guarded_blocks = true});
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, after_reply({"calloc(1, 16) = #2", "calloc(3, 68) = #3", "free(#1)"}));
    EXPECT_EQ(call.sent.at(0).input, Request().text(0, "inst").u32(64, 0x01020304).content());
    EXPECT_EQ(call.sent.at(0).out_len, 139268u);
    EXPECT_EQ(out->count, 3u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(out->records), 204), reply.substr(4));
    EXPECT_THAT(release().events, ElementsAre("free(calloc(3, 68))", "free(calloc(1, 16))"));
}

TEST_F(VtepTable, HoldsAsManyEntriesAsTheRoom)
{
    const Bytes reply = reply_of(2048, 2048);
    ASSERT_EQ(reply.size(), 139268u);
    ASSERT_THAT(read(replies(reply), {.guarded_blocks = true}), Succeeds());
    EXPECT_EQ(out->count, 2048u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(out->records), 2048 * 68), reply.substr(4));
    release();
}

// Kept: the array of a table without entries stays allocated.
TEST_F(VtepTable, WithoutEntriesIsReleasedButForItsArray)
{
    const Call call = read(replies(reply_of(0, 0)));
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(call.events, after_reply({"calloc(1, 16) = #2", "calloc(0, 68) = #3", "free(#1)"}));
    EXPECT_EQ(out->count, 0u);
    LumoVtepEntry* const array = out->records;
    EXPECT_NE(array, nullptr);
    EXPECT_THAT(release().events, ElementsAre("free(calloc(1, 16))"));
    free(array);
}

TEST_F(VtepTable, IsRejectedWhenTheReplyIsShorterThanItsEntries)
{
    const System guarded {.guarded_blocks = true, .kept_content = 4096};
    const auto expect_rejected_as_short = [&](std::uint32_t count, std::int32_t length) {
        const Call call = read(reports(reply_of(count, 3), length), guarded);
        ASSERT_THAT(call, Fails(EBADMSG)) << count << " entries in " << length << " bytes";
        ASSERT_EQ(call.events, after_reply({"calloc(1, 16) = #2", "free(#2)", "free(#1)"}));
        ASSERT_EQ(out, nullptr);
    };
    for (const std::uint32_t count : {1u, 2u, 3u}) {
        const auto whole = static_cast<std::int32_t>(4 + 68 * count);
        for (std::int32_t length = -1; length < whole; ++length)
            ASSERT_NO_FATAL_FAILURE(expect_rejected_as_short(count, length));
        for (std::int32_t length = whole; length <= 4 + 68 * 3 + 1; ++length) {
            ASSERT_THAT(read(reports(reply_of(count, 3), length), guarded), Succeeds());
            ASSERT_EQ(out->count, count);
            ASSERT_EQ(Bytes(reinterpret_cast<const char*>(out->records), 68 * count),
                reply_of(count, 3).substr(4, 68 * count));
            release();
        }
    }
    for (const std::int32_t length : {3, 0, -1, INT32_MIN})
        ASSERT_NO_FATAL_FAILURE(expect_rejected_as_short(0, length));
    ASSERT_NO_FATAL_FAILURE(expect_rejected_as_short(2049, 139268));
}

// What the buffer held before is no count, however well it would wrap around.
TEST_F(VtepTable, IsRejectedBeforeItsArrayWhenTheReplyHasNoCount)
{
    for (const std::uint32_t count : {0u, 1u, 31580642u, 63161283u, 63161284u, 0xffffffffu})
        for (const std::int32_t length : {3, 1, 0, -1, INT32_MIN}) {
            const Call call = read(reports(reply_of(count, 1), length));
            ASSERT_THAT(call, Fails(EBADMSG)) << count << " in " << length << " bytes";
            ASSERT_EQ(call.events, after_reply({"calloc(1, 16) = #2", "free(#2)", "free(#1)"}));
            ASSERT_EQ(out, nullptr);
        }
}

TEST_F(VtepTable, IsNotReadBeyondTheReplyWhateverLengthIsReported)
{
    ASSERT_THAT(read(reports(reply_of(2050, 2048), 4 + 2050 * 68), {.guarded_blocks = true}), Succeeds());
    EXPECT_EQ(out->count, 2050u);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(out->records + 2048), 2 * 68), Bytes(2 * 68, '\0'));
    release();
}

// Kept: the length is computed in 32 bits. A count whose length wraps around passes the comparison and fails without
// errno.
TEST_F(VtepTable, OfACountThatWrapsAroundFailsWithoutErrno)
{
    // 0x80000000 / 68 and more: negative. 0x100000000 / 68 and more: small again.
    for (const std::uint32_t count : {31580642u, 63161283u, 63161284u}) {
        ScriptedDevice device(reports(reply_of(count, 1), 139268));
        const Call call = observe(device, [&] { return LUMOZEPH_GetMRoutingRemoteRcvrs("inst", 0x01020304, &out); });
        EXPECT_THAT(call, Fails(untouched)) << count;
        EXPECT_EQ(out, nullptr);
        EXPECT_THAT(call, LeavesNothingAllocated());
    }
}

TEST_F(VtepTable, IsUntouchedWhenReplyOrDeviceFail)
{
    EXPECT_THAT(read({}, {.failing_allocation = 1}), Fails(ENOMEM));
    const Call rejected = read(fails(EPERM));
    EXPECT_THAT(rejected, Fails(EPERM));
    EXPECT_EQ(rejected.events, after_reply({"free(#1)"}));
    EXPECT_THAT(read({}, {.open_error = ENOENT}), Fails(ENOENT));
    EXPECT_EQ(out, elsewhere);
}

TEST_F(VtepTable, IsNullWhenItCannotBeAllocated)
{
    const Call no_holder = read(replies(reply_of(1, 1)), {.failing_allocation = 2});
    EXPECT_THAT(no_holder, Fails(ENOMEM));
    EXPECT_EQ(no_holder.events, after_reply({"calloc(1, 16) = null", "free(#1)"}));
    EXPECT_EQ(out, nullptr);
    out = reinterpret_cast<LumoVtepTable*>(elsewhere);
    const Call no_array = read(replies(reply_of(1, 1)), {.failing_allocation = 3});
    EXPECT_THAT(no_array, Fails(ENOMEM));
    EXPECT_EQ(no_array.events, after_reply({"calloc(1, 16) = #2", "calloc(1, 68) = null", "free(#2)", "free(#1)"}));
    EXPECT_EQ(out, nullptr);
}

TEST_F(VtepTable, OfNullIsReleasedWithoutHarm)
{
    out = nullptr;
    EXPECT_THAT(release(), DoesNothing());
}

} // namespace
