// The four module-wide settings: a bare 32-bit value in, a bare 32-bit value out.
#include "lumozeph.h"
#include "support/matchers.h"
#include "support/reads.h"

using namespace world;
using testing::ElementsAre;

namespace {

struct Setting
{
    std::string name;
    std::int32_t (*get)(std::uint32_t*);
    unsigned long get_command;
    std::int32_t (*set)(std::uint32_t);
    unsigned long set_command;
};

const std::vector<Setting> settings {
    {"LogLevel", LUMOZEPH_GetLogLevel, 9, LUMOZEPH_SetLogLevel, 10},
    {"ExtendedLogLevel", LUMOZEPH_GetExtendedLogLevel, 11, LUMOZEPH_SetExtendedLogLevel, 12},
    {"StatsLevel", LUMOZEPH_GetStatsLevel, 13, LUMOZEPH_SetStatsLevel, 14},
    {"TxDispQueueSize", LUMOZEPH_GetTxDispQueueSize, 159, LUMOZEPH_SetTxDispQueueSize, 160},
};

void PrintTo(const Setting& row, std::ostream* out)
{
    *out << row.name;
}

class Levels : public testing::TestWithParam<Setting>
{
protected:
    const Setting& row = GetParam();
};

TEST_P(Levels, AreReadWithoutInputIntoFourBytes)
{
    ScriptedDevice device(replies({"\x78\x56\x34\x12", 4}));
    std::uint32_t value = 0;
    const Call call = observe(device, [&] { return row.get(&value); });
    ASSERT_THAT(call, Succeeds());
    EXPECT_EQ(value, 0x12345678u);
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, row.get_command);
    EXPECT_EQ(call.sent[0].in_len, 0u);
    EXPECT_EQ(call.sent[0].in_ptr, 0u);
    EXPECT_EQ(call.sent[0].out_len, 4u);
    EXPECT_NE(call.sent[0].out_ptr, 0u);
    EXPECT_NE(call.sent[0].out_ptr, reinterpret_cast<std::uint64_t>(&value));
    EXPECT_EQ(call.events.size(), 4u);
}

TEST_P(Levels, AreSetWithFourBytesOfInputAndNoReply)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.set(0x89abcdef); });
    ASSERT_THAT(call, Succeeds());
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, row.set_command);
    EXPECT_EQ(call.sent[0].in_len, 4u);
    EXPECT_EQ(call.sent[0].input, Bytes("\xef\xcd\xab\x89", 4));
    EXPECT_EQ(call.sent[0].out_len, 0u);
    EXPECT_EQ(call.sent[0].out_ptr, 0u);
    EXPECT_EQ(call.events.size(), 4u);
}

TEST_P(Levels, RejectANullDestinationWithoutContactingTheModule)
{
    ScriptedDevice device;
    const Call call = observe(device, [&] { return row.get(nullptr); });
    EXPECT_THAT(call, Fails(EINVAL));
    EXPECT_THAT(call, DoesNothing());
}

TEST_P(Levels, LeaveTheCallersValueUnchangedWhenTheReadFails)
{
    ScriptedDevice device(fails(EPERM));
    std::uint32_t value = 42;
    EXPECT_THAT(observe(device, [&] { return row.get(&value); }), Fails(EPERM));
    EXPECT_EQ(value, 42u);
    EXPECT_THAT(observe(device, {.open_error = ENOENT}, [&] { return row.get(&value); }), Fails(ENOENT));
    EXPECT_EQ(value, 42u);
}

// Kept: the reported length is not looked at.
TEST_P(Levels, TakeTheValueWhateverLengthTheModuleReports)
{
    for (const std::int32_t length : {0, 3, 5, -1}) {
        ScriptedDevice device(reports({"\x01\x02\x03\x04", 4}, length));
        std::uint32_t value = 0;
        EXPECT_THAT(observe(device, [&] { return row.get(&value); }), Succeeds());
        EXPECT_EQ(value, 0x04030201u);
    }
}

TEST_P(Levels, PassTheErrnoOfAFailedSetOn)
{
    ScriptedDevice device(fails(ERANGE));
    EXPECT_THAT(observe(device, [&] { return row.set(1); }), Fails(ERANGE));
    EXPECT_THAT(observe(device, {.open_error = EACCES}, [&] { return row.set(1); }), Fails(EACCES));
}

INSTANTIATE_TEST_SUITE_P(Rows, Levels, testing::ValuesIn(settings), NameOfRow());

} // namespace
