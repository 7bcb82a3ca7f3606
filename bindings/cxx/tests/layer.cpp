// The C++ layer as one that is tested: its two forms.
#include "calls.h"

namespace layer {

namespace {

const calls::Call& call_of(const shapes::Row& row)
{
    static const auto by_name = [] {
        std::map<std::string, const calls::Call*> all;
        for (const calls::Call& call : calls::all())
            all[call.c_name] = &call;
        return all;
    }();
    return *by_name.at(row.operation->function.name);
}

void call_throwing(const shapes::Row& row, LumoCmdResult* answer, Outcome& outcome)
{
    try {
        outcome.got = call_of(row).throwing(calls::Given(*row.one, answer));
    } catch (const lumozeph::error& error) {
        EXPECT_EQ(error.code().category(), std::system_category());
        outcome.error = error.code().value();
        outcome.operation = error.operation();
        EXPECT_THAT(error.what(), testing::StartsWith(outcome.operation + ": "));
    }
}

void call_trying(const shapes::Row& row, LumoCmdResult* answer, Outcome& outcome)
{
    outcome.error = call_of(row).trying(calls::Given(*row.one, answer), outcome.got).value();
}

} // namespace

std::span<const Form> forms()
{
    static constexpr Form both[] {{call_throwing, Failure::NamesOperation}, {call_trying, Failure::IsErrnoAlone}};
    return both;
}

const std::map<std::string, std::string>& names()
{
    static const auto names = [] {
        std::map<std::string, std::string> all;
        for (const calls::Call& call : calls::all())
            all[call.c_name] = call.name;
        return all;
    }();
    return names;
}

} // namespace layer
