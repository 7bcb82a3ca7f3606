// Every operation of the tables, whatever its shape: the number and the lengths of what it sends.
#include "shapes/rows.h"

#include <set>

using namespace operations;
using shapes::Row;

namespace {

class Operations : public testing::TestWithParam<Row>
{};

std::vector<Row> all_rows()
{
    std::vector<Row> rows;
    for_each_operation([&](const Chapter& chapter, const Operation& operation) {
        for (const Case& one : operation.cases)
            rows.push_back({&chapter, &operation, &one, nullptr});
    });
    return rows;
}

// Only the IPv6 routes send two commands, the second when the first has succeeded: how many they are.
constexpr int count_of_routes6 = 115;
constexpr int routes6_themselves = 114;

TEST_P(Operations, SendTheirNumberTheirRequestAndTheirRoom)
{
    const Row& row = GetParam();
    std::vector<char> memory(std::max<std::size_t>(target_size(*row.operation), sizeof(void*)));
    std::uint32_t count = 0;
    void* target = memory.data();
    fake::ScriptedDevice device;
    std::vector<fake::Sent> sent;
    if (row.command() == routes6_themselves)
        device.next(fake::replies(fake::Bytes(4, '\0')));
    device.next(fake::fails(EPERM));
    const fake::Call call = observe(device, [&] {
        if (row.operation->shape == Shape::ListWorker)
            target = calloc(1, 16);
        return row.call(target, &count);
    });
    free_left(call);
    EXPECT_EQ(call.result, -1);
    ASSERT_EQ(call.sent.size(), row.command() == routes6_themselves ? 2u : 1u);
    if (row.command() == routes6_themselves) {
        EXPECT_EQ(call.sent[0].number, static_cast<unsigned long>(count_of_routes6));
        EXPECT_EQ(call.sent[0].input, row.one->request.content());
        EXPECT_EQ(call.sent[0].out_len, 4u);
    }
    const fake::Sent& last = call.sent.back();
    EXPECT_EQ(last.number, static_cast<unsigned long>(row.command()));
    EXPECT_EQ(last.in_len, input_length(*row.operation));
    EXPECT_EQ(last.in_ptr == 0, last.in_len == 0);
    if (last.in_len == request_size) {
        for (std::size_t i = 0; i < request_size; ++i)
            if (row.operation->remainder == Remainder::Cleared || row.one->request.names(i)) {
                ASSERT_EQ(last.input[i], row.one->request.content()[i]) << "byte " << i;
            }
    }
    EXPECT_EQ(last.out_len, reply_room(*row.operation));
    EXPECT_EQ(last.out_ptr == 0, last.out_len == 0);
}

INSTANTIATE_TEST_SUITE_P(, Operations, testing::ValuesIn(all_rows()), shapes::NameOfRow());

std::set<std::string> senders()
{
    std::set<std::string> names;
    for_each_operation([&](const Chapter&, const Operation& operation) { names.insert(operation.function.name); });
    return names;
}

// Functions are added, and never removed: 180 were the first.
TEST(Tables, HaveTheFunctionsThatSendCommands)
{
    EXPECT_GE(senders().size(), 154u);
}

TEST(Tables, HaveTheFunctionsThatSendNothing)
{
    std::set<std::string> silent(std::begin(without_row), std::end(without_row));
    for_each_operation([&](const Chapter&, const Operation& operation) {
        if (operation.release.name != nullptr)
            silent.insert(operation.release.name);
    });
    EXPECT_GE(silent.size(), 26u);
    for (const std::string& sender : senders())
        EXPECT_EQ(silent.count(sender), 0u) << sender;
}

TEST(Tables, NameEachCaseOnce)
{
    std::set<std::string> names;
    std::size_t cases = 0;
    for_each_case([&](const Operation&, const Case& one) {
        names.insert(one.name);
        ++cases;
    });
    EXPECT_EQ(names.size(), cases);
}

TEST(Tables, HaveEveryCommandButThoseOfTheGaps)
{
    const std::set<int> gaps {68, 69, 70, 71, 76, 77, 78, 79, 81, 82, 83, 84, 105, 150};
    std::set<int> sent {count_of_routes6};
    for_each_operation([&](const Chapter&, const Operation& operation) {
        // The one function that takes a number.
        if (std::string_view(operation.function.name) != "LUMOZEPH_BridgeSetConfig")
            sent.insert(operation.command);
    });
    for (int command = 0; command <= *sent.rbegin(); ++command)
        EXPECT_NE(sent.count(command), gaps.count(command)) << command;
    EXPECT_GE(*sent.rbegin(), 160);
}

} // namespace
