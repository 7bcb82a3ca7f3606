// Policy tables, and the references from interfaces to them.
#include "fake/matchers.h"

#include <lumozeph.h>

using namespace fake;
using operations::put;

namespace {

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

} // namespace
