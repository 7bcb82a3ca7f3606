// Software receive-side scaling.
#include "fake/matchers.h"
#include "operations/request.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;
using operations::Request;
using testing::ElementsAre;

namespace {

constexpr LumoRssTunables tunables {0x0102030405060708, 0x11121314};

// Kept: a table of more entries than there are overwrites the size behind it, and ends where the request ends.
TEST(Rss, ATableSetOfMoreThan128OverwritesTheSizeAndStaysInTheRequest)
{
    for (const std::int32_t size : {129, 132, 300, 648, 649, 100000, INT32_MAX}) {
        // The caller's memory behind the table is read as far as the request has room.
        Bytes block(648, '\0');
        for (std::size_t i = 0; i < block.size(); ++i)
            block[i] = static_cast<char>(1 + i % 127);
        put(block, 128, static_cast<std::uint32_t>(size), 4);
        const auto sent_size = static_cast<std::size_t>(std::min(size, 648));
        Bytes expected(Request().text(64, "t").u32(256, static_cast<std::uint32_t>(size)).content());
        expected.replace(128, sent_size, block.substr(0, sent_size));
        ScriptedDevice device;
        const Call call = observe(device,
            [&] { return LUMOZEPH_SoftRSSTableSet("t", reinterpret_cast<const LumoRssIndTable*>(block.data())); });
        EXPECT_THAT(call, Succeeds());
        EXPECT_EQ(call.sent.at(0).input, expected) << size;
    }
}

class RssStats : public testing::Test
{
protected:
    LumoRssStats* out = reinterpret_cast<LumoRssStats*>(0x5a5a);

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return LUMOZEPH_SoftRSSGetStats("target", &out); });
    }

    // The block after a reply with this count, in which no byte is that of fresh memory (0xa5).
    Bytes read_count(std::uint32_t count, Bytes& reply)
    {
        reply.resize(804);
        for (std::size_t i = 0; i < 804; ++i)
            reply[i] = static_cast<char>(1 + i % 97);
        put(reply, 4, count, 4);
        EXPECT_THAT(read(replies(reply), {.guarded_blocks = true}), Succeeds());
        const Bytes block(reinterpret_cast<const char*>(out), 804);
        free(out);
        return block;
    }
};

TEST_F(RssStats, AreReadIntoABlockThatIsAllocatedAfterTheCall)
{
    const Call call = read(replies(Bytes(804, '\0')));
    EXPECT_THAT(call, Succeeds());
    EXPECT_THAT(call.events, ElementsAre("malloc(804) = #1", "getenv(USE_UPGRADE_DEV)",
                                 "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000", "ioctl(5000, 153)",
                                 "close(5000)", "malloc(804) = #2", "free(#1)"));
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].input, Request().text(64, "target").content());
    EXPECT_EQ(call.sent[0].out_len, 804u);
    free(out);
}

TEST_F(RssStats, WithoutEntriesHaveNothingButTheCount)
{
    Bytes reply;
    Bytes expected(804, '\xa5');
    put(expected, 4, 0, 4);
    EXPECT_EQ(read_count(0, reply), expected);
}

TEST_F(RssStats, HaveAsManyEntriesInEachArrayAsTheCountSays)
{
    for (std::uint32_t count = 1; count <= 16; ++count) {
        Bytes reply;
        const Bytes block = read_count(count, reply);
        Bytes expected(804, '\xa5');
        expected.replace(4, 4, reply.substr(4, 4));
        expected.replace(8, 4 * count, reply.substr(8, 4 * count));
        for (const std::size_t array : {76u, 204u, 332u})
            expected.replace(array, 8 * count, reply.substr(array, 8 * count));
        EXPECT_EQ(block, expected) << count;
    }
}

// Kept: entries beyond the sixteenth run into what follows their array.
TEST_F(RssStats, OfMoreThanSixteenEntriesAreCopiedByOffset)
{
    for (std::uint32_t count = 17; count <= 59; ++count) {
        Bytes reply;
        const Bytes block = read_count(count, reply);
        Bytes expected(804, '\xa5');
        expected.replace(4, 4, reply.substr(4, 4));
        for (std::size_t i = 0; i < count; ++i) {
            expected.replace(8 + 4 * i, 4, reply.substr(8 + 4 * i, 4));
            for (const std::size_t array : {76u, 204u, 332u})
                expected.replace(array + 8 * i, 8, reply.substr(array + 8 * i, 8));
        }
        EXPECT_EQ(block, expected) << count;
    }
}

TEST_F(RssStats, OfAnyLargerCountStayInsideTheBlock)
{
    std::vector<std::uint32_t> counts {0xffffffff};
    for (std::uint32_t count = 60; count <= 256; ++count)
        counts.push_back(count);
    for (unsigned bit = 9; bit < 32; ++bit)
        counts.insert(counts.end(), {(1u << bit) - 1, 1u << bit});
    for (const std::uint32_t count : counts) {
        Bytes reply;
        const Bytes block = read_count(count, reply);
        EXPECT_EQ(block.substr(4), reply.substr(4)) << count;
        EXPECT_EQ(block.substr(0, 4), Bytes(4, '\xa5'));
    }
}

// Kept: the reported length is not looked at.
TEST_F(RssStats, AreTakenWhateverLengthTheModuleReports)
{
    for (const std::int32_t length : {0, 803, -1}) {
        EXPECT_THAT(read(reports(Bytes(804, '\0'), length)), Succeeds());
        free(out);
    }
}

TEST_F(RssStats, AreUntouchedWhenReplyOrDeviceFail)
{
    const Call unallocated = read({}, {.failing_allocation = 1});
    EXPECT_THAT(unallocated, Fails(ENOMEM));
    EXPECT_THAT(unallocated.events, ElementsAre("malloc(804) = null"));
    const Call rejected = read(fails(EPERM));
    EXPECT_THAT(rejected, Fails(EPERM));
    EXPECT_THAT(rejected, LeavesNothingAllocated());
    EXPECT_THAT(read({}, {.open_error = ENOENT}), Fails(ENOENT));
    EXPECT_EQ(out, reinterpret_cast<LumoRssStats*>(0x5a5a));
}

TEST_F(RssStats, AreNullWhenTheBlockCannotBeAllocated)
{
    const Call call = read(replies(Bytes(804, '\0')), {.failing_allocation = 2});
    EXPECT_THAT(call, Fails(ENOMEM));
    EXPECT_EQ(out, nullptr);
    EXPECT_THAT(call, LeavesNothingAllocated());
    EXPECT_EQ(call.events.back(), "free(#1)");
}

TEST_F(RssStats, FieldsLieAsTheModuleWritesThem)
{
    EXPECT_EQ(offsetof(LumoRssStats, rssEntryCount), 4u);
    EXPECT_EQ(offsetof(LumoRssStats, rssWord), 8u);
    EXPECT_EQ(offsetof(LumoRssStats, rssCounter1), 76u);
    EXPECT_EQ(offsetof(LumoRssStats, rssCounter2), 204u);
    EXPECT_EQ(offsetof(LumoRssStats, rssCounter3), 332u);
}

class RssTunables : public testing::Test
{
protected:
    LumoRssTunables block = tunables;

    Call read(Answer answer, const System& system = {})
    {
        ScriptedDevice device(std::move(answer));
        return observe(device, system, [&] { return LUMOZEPH_SoftRSSGetTunables("target", &block); });
    }
    Bytes content() const { return {reinterpret_cast<const char*>(&block), 12}; }
};

TEST_F(RssTunables, AreReadThroughABuffer)
{
    const Call call = read(replies("eight by4byt"));
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(content(), "eight by4byt");
    EXPECT_THAT(call.events, ElementsAre("malloc(12) = #1", "getenv(USE_UPGRADE_DEV)",
                                 "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000", "ioctl(5000, 155)",
                                 "close(5000)", "free(#1)"));
    EXPECT_EQ(call.sent.at(0).input, Request().text(64, "target").content());
    EXPECT_EQ(call.sent.at(0).out_len, 12u);
    EXPECT_EQ(offsetof(LumoRssTunables, value2), 8u);
}

// Kept: what the buffer held goes to the caller.
TEST_F(RssTunables, AreOverwrittenAlsoWhenTheDeviceFails)
{
    EXPECT_THAT(read(fails(EPERM)), Fails(EPERM));
    EXPECT_EQ(content(), Bytes(12, '\xa5'));
    block = tunables;
    EXPECT_THAT(read({}, {.open_error = ENOENT}), Fails(ENOENT));
    EXPECT_EQ(content(), Bytes(12, '\xa5'));
}

TEST_F(RssTunables, AreUntouchedWhenTheBufferCannotBeAllocated)
{
    EXPECT_THAT(read({}, {.failing_allocation = 1}), Fails(ENOMEM));
    EXPECT_EQ(+block.value2, 0x11121314u);
}

TEST(RssIndTable, IsReadThroughABufferOnSuccessOnly)
{
    Bytes entries(128, '\x5a');
    const auto read = [&] {
        return LUMOZEPH_SoftRSSGetIndTable("target", reinterpret_cast<std::uint8_t*>(entries.data()));
    };
    ScriptedDevice rejecting(fails(EPERM));
    const Call rejected = observe(rejecting, read);
    EXPECT_THAT(rejected, Fails(EPERM));
    EXPECT_THAT(rejected, LeavesNothingAllocated());
    ScriptedDevice absent;
    EXPECT_THAT(observe(absent, {.open_error = ENOENT}, read), Fails(ENOENT));
    EXPECT_THAT(observe(absent, {.failing_allocation = 1}, read), Fails(ENOMEM));
    EXPECT_EQ(entries, Bytes(128, '\x5a'));

    Bytes table(128, '\0');
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i] = static_cast<char>(i + 1);
    ScriptedDevice device(reports(table, 3));
    const Call call = observe(device, read);
    EXPECT_THAT(call, Succeeds());
    EXPECT_EQ(entries, table);
    EXPECT_THAT(call.events, ElementsAre("malloc(128) = #1", "getenv(USE_UPGRADE_DEV)",
                                 "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000", "ioctl(5000, 157)",
                                 "close(5000)", "free(#1)"));
    EXPECT_EQ(call.sent.at(0).input, Request().text(64, "target").content());
    EXPECT_EQ(call.sent.at(0).out_len, 128u);
}

} // namespace
