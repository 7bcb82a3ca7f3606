// Arguments that must not be null.
#include "shapes/rows.h"

namespace shapes {

namespace {

struct Required
{
    Row row;
    std::size_t index;
};

std::vector<Required> all_required()
{
    std::vector<Required> all;
    operations::for_each_operation([&](const operations::Chapter& chapter, const operations::Operation& operation) {
        for (const std::size_t index : operation.required)
            all.push_back({{&chapter, &operation, operation.cases.begin(), nullptr}, index});
    });
    return all;
}

void PrintTo(const Required& required, std::ostream* out)
{
    *out << required.row.operation->function.name << ", argument " << required.index;
}

class RequiredArguments : public testing::TestWithParam<Required>
{};

TEST_P(RequiredArguments, AreRejectedWhenTheyAreNull)
{
    const Row& row = GetParam().row;
    std::vector<operations::Argument> arguments(row.one->arguments);
    arguments[GetParam().index] = nullptr;
    Bytes memory(1024, '\x77');
    std::uint32_t count = 4711;
    expect_rejected([&] { return row.operation->function.call(arguments.data(), {memory.data(), &count}); });
    EXPECT_EQ(memory, Bytes(1024, '\x77'));
    EXPECT_EQ(count, 4711u);
}

INSTANTIATE_TEST_SUITE_P(, RequiredArguments, testing::ValuesIn(all_required()), [](const auto& required) {
    const Row& row = required.param.row;
    return std::string(row.chapter->name) + "_" + row.one->name + "_" + std::to_string(required.param.index);
});

} // namespace

} // namespace shapes
