#include "shapes/rows.h"

namespace shapes {

std::vector<Row> rows_of(Shape shape)
{
    std::vector<Row> rows;
    operations::for_each_operation([&](const operations::Chapter& chapter, const operations::Operation& operation) {
        if (operation.shape != shape)
            return;
        for (const operations::Case& one : operation.cases) {
            for (const Layout& layout : operation.layouts)
                rows.push_back({&chapter, &operation, &one, &layout});
            if (operation.layouts.size() == 0)
                rows.push_back({&chapter, &operation, &one, nullptr});
        }
    });
    return rows;
}

std::string NameOfRow::operator()(const testing::TestParamInfo<Row>& row) const
{
    const Layout* const layout = row.param.layout;
    return std::string(row.param.chapter->name) + "_" + row.param.one->name + (layout != nullptr ? layout->name : "");
}

void PrintTo(const Row& row, std::ostream* out)
{
    *out << row.operation->function.name << " as " << row.one->name;
}

std::vector<std::string> device_call(int command)
{
    return {"getenv(USE_UPGRADE_DEV)", "open64(/pelt/devices/char/zephdriver/kola_lumo, 2) = 5000",
        "ioctl(5000, " + std::to_string(command) + ")", "close(5000)"};
}

std::vector<std::string> joined(const std::vector<std::vector<std::string>>& pieces)
{
    std::vector<std::string> all;
    for (const auto& piece : pieces)
        all.insert(all.end(), piece.begin(), piece.end());
    return all;
}

void expect_sent(const Row& row, const Call& call)
{
    ASSERT_EQ(call.sent.size(), 1u);
    EXPECT_EQ(call.sent[0].number, static_cast<unsigned long>(row.command()));
    EXPECT_EQ(call.sent[0].in_len, 776u);
    const operations::Request& request = row.one->request;
    if (row.operation->remainder == operations::Remainder::Cleared) {
        EXPECT_EQ(call.sent[0].input, request.content());
        return;
    }
    ASSERT_EQ(call.sent[0].input.size(), 776u);
    for (std::size_t i = 0; i < call.sent[0].input.size(); ++i)
        if (request.names(i)) {
            EXPECT_EQ(call.sent[0].input[i], request.content()[i]) << "byte " << i;
        }
}

void expect_rejected(const std::function<std::int32_t()>& call)
{
    ScriptedDevice device;
    const Call rejected = observe(device, call);
    EXPECT_THAT(rejected, Fails(EINVAL));
    EXPECT_THAT(rejected, DoesNothing());
}

} // namespace shapes
