#include "support/commands.h"
#include "support/matchers.h"

#include <set>

namespace world {

void PrintTo(const CommandRow& row, std::ostream* stream)
{
    *stream << row.function << " with " << row.command;
}

} // namespace world

using namespace world;

namespace {

class CommandTable : public testing::TestWithParam<CommandRow>
{};

TEST_P(CommandTable, HasTheNumberAndTheLengthsOfEachCall)
{
    const CommandRow& row = GetParam();
    ScriptedDevice device;
    // Only the IPv6 routes send two commands, the second when the first has succeeded.
    if (row.command == 114)
        device.next(replies(Bytes(4, '\0')));
    device.next(fails(EPERM));
    const Call call = observe(device, row.call);
    free_left(call);
    EXPECT_EQ(call.result, -1);
    ASSERT_EQ(call.sent.size(), row.command == 114 ? 2u : 1u);
    const Sent& sent = call.sent.back();
    EXPECT_EQ(sent.number, static_cast<unsigned long>(row.command));
    EXPECT_EQ(sent.in_len, row.in_len);
    EXPECT_EQ(sent.in_ptr == 0, row.in_len == 0);
    EXPECT_EQ(sent.out_len, row.out_len);
    EXPECT_EQ(sent.out_ptr == 0, row.out_len == 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandTable, testing::ValuesIn(command_rows.begin(), command_rows.end()),
    [](const auto& row) { return std::string(row.param.function) + "_" + std::to_string(row.param.command); });

TEST(Commands, AreSentBy154Of180Functions)
{
    std::set<std::string> senders;
    for (const CommandRow& row : command_rows)
        senders.insert(row.function);
    EXPECT_EQ(senders.size(), 154u);
    EXPECT_EQ(silent_functions.size(), 26u);
    for (const char* function : silent_functions)
        EXPECT_EQ(senders.count(function), 0u) << function;
}

TEST(Commands, OfTheGapsAreSentByNoFunctionButTheOneThatTakesANumber)
{
    const std::set<int> gaps {68, 69, 70, 71, 76, 77, 78, 79, 81, 82, 83, 84, 105, 150};
    std::set<int> sent;
    for (const CommandRow& row : command_rows)
        if (std::string_view(row.function) != "LUMOZEPH_BridgeSetConfig")
            sent.insert(row.command);
    for (int command = 0; command <= 160; ++command)
        EXPECT_NE(sent.count(command), gaps.count(command)) << command;
    EXPECT_EQ(*sent.rbegin(), 160);
}

} // namespace
