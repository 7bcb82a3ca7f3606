// Policies, policy tables, and the references from interfaces to them.
#include "lumozeph.h"
#include "support/layouts.h"
#include "support/reads.h"
#include "support/sends.h"

using namespace world;
using testing::ElementsAre;

namespace {

const Layout& policy = layouts::policy;
const Layout& table = layouts::policy_table;
const Layout& reference = layouts::policy_table_ref;

const std::vector<ListRead> list_reads {
    {"GetPolicy", 119, policy, 1000, 28000, Record().u32(220, 0x01020304),
        [](void** out) { return LUMOZEPH_GetPolicy(0x01020304, as<LumoPolicyList>(out)); },
        releasing(LUMOZEPH_ReleaseAllPolicy)},
    {"GetPolicyTable", 143, table, 1000, 72000, Record(),
        [](void** out) { return LUMOZEPH_GetPolicyTable(as<LumoPolicyTableList>(out)); },
        releasing(LUMOZEPH_ReleaseAllPolicyTable)},
};

INSTANTIATE_TEST_SUITE_P(Policy, ListReads, testing::ValuesIn(list_reads), NameOfRow());

const std::vector<SingleRead> single_reads {
    {"GetLifPolicyTableRef", 146, reference, Record().text(0, "inst").text(192, "lif"),
        [](void** out) { return LUMOZEPH_GetLifPolicyTableRef("inst", "lif", as<LumoLifPolicyTableRef>(out)); },
        releasing(LUMOZEPH_ReleaseLifPolicyTableRef)},
    {"GetLifPolicyTableRefWithLongNames", 146, reference, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [](void** out) {
            return LUMOZEPH_GetLifPolicyTableRef(
                Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), as<LumoLifPolicyTableRef>(out));
        },
        releasing(LUMOZEPH_ReleaseLifPolicyTableRef)},
};

INSTANTIATE_TEST_SUITE_P(Policy, SingleReads, testing::ValuesIn(single_reads), NameOfRow());

// Entries in which every byte tells which one it is.
std::vector<LumoPolicyTableRefEntry> entries(std::size_t count)
{
    std::vector<LumoPolicyTableRefEntry> made(count);
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = 0; j < 24; ++j)
            made[i].bytes[j] = static_cast<std::uint8_t>(1 + (i * 24 + j) % 251);
    return made;
}

Bytes bytes_of(const std::vector<LumoPolicyTableRefEntry>& entries)
{
    return {reinterpret_cast<const char*>(entries.data()), entries.size() * 24};
}

Send set_references(const std::string& name, std::uint16_t count, const Bytes& sent)
{
    return {name, 147, Record().text(0, "inst").text(192, "lif").u16(288, count).text(292, sent),
        [count] { return LUMOZEPH_SetLifPolicyTableRef("inst", "lif", count, entries(count).data(), nullptr); }};
}

const std::vector<Send> sends {
    set_references("SetOneReference", 1, bytes_of(entries(1))),
    set_references("SetTwentyReferences", 20, bytes_of(entries(20))),
    // Kept: the count is sent as it is; the entries end where the request ends.
    set_references("SetTwentyOneReferencesCutsTheLast", 21, bytes_of(entries(21)).substr(0, 484)),
    set_references("SetAsManyReferencesAsTheCountCanSay", 65535, bytes_of(entries(21)).substr(0, 484)),
    {"SetNoReferences", 147, Record().text(0, "inst").text(192, "lif"),
        [] { return LUMOZEPH_SetLifPolicyTableRef("inst", "lif", 0, nullptr, nullptr); }},
};

INSTANTIATE_TEST_SUITE_P(Policy, Sends, testing::ValuesIn(sends), NameOfRow());

const std::vector<ResultSend> result_sends {
    {"SetPolicy", 120, Record().u32(64, 0x11121314).u32(68, 0x21222324).u32(212, 0x31323334).u32(220, 0x01020304),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetPolicy(0x01020304, 0x11121314, 0x21222324, 0x31323334, result);
        }},
    {"DelPolicy", 121, Record().u32(64, 0x11121314).u32(68, 0x21222324).u32(220, 0x01020304),
        [](LumoCmdResult* result) { return LUMOZEPH_DelPolicy(0x01020304, 0x11121314, 0x21222324, result); }},
    {"SetPolicyTable", 144, Record().u32(220, 0x01020304).text(224, "table"),
        [](LumoCmdResult* result) { return LUMOZEPH_SetPolicyTable(0x01020304, "table", result); }},
    {"SetPolicyTableWithANameOf64", 144, Record().u32(220, 1).text(224, Bytes(63, 't')),
        [](LumoCmdResult* result) { return LUMOZEPH_SetPolicyTable(1, Bytes(64, 't').c_str(), result); }},
    {"DelPolicyTable", 145, Record().u32(220, 0x01020304),
        [](LumoCmdResult* result) { return LUMOZEPH_DelPolicyTable(0x01020304, result); }},
    {"SetLifPolicyTableRef", 147, Record().text(0, "inst").text(192, "lif").u16(288, 2).text(292, bytes_of(entries(2))),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetLifPolicyTableRef("inst", "lif", 2, entries(2).data(), result);
        }},
    {"SetLifPolicyTableRefWithLongNames", 147, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [](LumoCmdResult* result) {
            return LUMOZEPH_SetLifPolicyTableRef(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), 0, nullptr, result);
        }},
    {"DelLifPolicyTableRef", 148, Record().text(0, "inst").text(192, "lif"),
        [](LumoCmdResult* result) { return LUMOZEPH_DelLifPolicyTableRef("inst", "lif", result); }},
    {"DelLifPolicyTableRefWithLongNames", 148, Record().text(0, Bytes(63, 'i')).text(192, Bytes(63, 'l')),
        [](LumoCmdResult* result) {
            return LUMOZEPH_DelLifPolicyTableRef(Bytes(64, 'i').c_str(), Bytes(64, 'l').c_str(), result);
        }},
};

INSTANTIATE_TEST_SUITE_P(Policy, ResultSends, testing::ValuesIn(result_sends), NameOfRow());

TEST(PolicyTableRef, NeedsInstanceAndInterface)
{
    const auto one = entries(1);
    LumoCmdResult result;
    std::memset(&result, 0x77, sizeof result);
    const LumoCmdResult before = result;
    LumoLifPolicyTableRef* out = reinterpret_cast<LumoLifPolicyTableRef*>(elsewhere);
    using Names = std::pair<const char*, const char*>;
    for (const Names& names : {Names {"inst", nullptr}, Names {nullptr, "lif"}}) {
        const char* const instance = names.first;
        const char* const lif = names.second;
        expect_rejected([&] { return LUMOZEPH_GetLifPolicyTableRef(instance, lif, &out); });
        expect_rejected([&] { return LUMOZEPH_SetLifPolicyTableRef(instance, lif, 1, one.data(), &result); });
        expect_rejected([&] { return LUMOZEPH_DelLifPolicyTableRef(instance, lif, &result); });
    }
    EXPECT_EQ(out, reinterpret_cast<LumoLifPolicyTableRef*>(elsewhere));
    EXPECT_EQ(std::memcmp(&result, &before, sizeof result), 0);
}

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

TEST(PolicyTable, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(72, '\0');
    put(reply, 0, 0x01020304, 4);
    reply.replace(4, 5, "table");
    put(reply, 68, 0x11121314, 4);
    ScriptedDevice device(replies(reply));
    LumoPolicyTableList* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetPolicyTable(&out); }), Succeeds());
    const LumoPolicyTableInfo info = out->records[0];
    LUMOZEPH_ReleaseAllPolicyTable(out);
    EXPECT_EQ(+info.policyTableId, 0x01020304u);
    EXPECT_STREQ(info.policyTableName, "table");
    EXPECT_EQ(+info.value1, 0x11121314u);
}

TEST(PolicyTableRef, FieldsLieAsTheModuleWritesThem)
{
    Bytes reply(546, '\0');
    reply.replace(0, 4, "text");
    put(reply, 64, 2, 2);
    reply.replace(66, 48, bytes_of(entries(2)));
    reply.replace(114, 24, Bytes(24, 'x')); // the third entry, which does not count
    ScriptedDevice device(replies(reply));
    LumoLifPolicyTableRef* out = nullptr;
    ASSERT_THAT(observe(device, [&] { return LUMOZEPH_GetLifPolicyTableRef("inst", "lif", &out); }), Succeeds());
    const LumoLifPolicyTableRef ref = *out;
    LUMOZEPH_ReleaseLifPolicyTableRef(out);
    EXPECT_STREQ(ref.text1, "text");
    EXPECT_EQ(+ref.refCount, 2);
    EXPECT_EQ(Bytes(reinterpret_cast<const char*>(ref.refs), 48), bytes_of(entries(2)));
    EXPECT_EQ(+ref.refs[2].bytes[0], 0);
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
