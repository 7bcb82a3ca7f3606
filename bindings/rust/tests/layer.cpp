// The Rust layer as one that is tested: what calls.rs has of it.
#include "layer.h"

#include <string_view>

namespace {

struct View
{
    const char* bytes = nullptr;
    std::size_t size = 0;

    operator std::string() const { return {bytes, size}; }
};

struct Taker
{
    void (*take)(void* context, const void* bytes, std::size_t size, std::size_t count);
    void* context;
};

} // namespace

extern "C" {
std::size_t rust_call_count();
void rust_call_names(std::size_t index, View* c_name, View* name);
int rust_call(std::size_t index, const operations::Argument* arguments, std::size_t argument_count,
    LumoCmdResult* answer, const Taker* taker, View* operation);
}

namespace layer {

namespace {

struct Name
{
    std::size_t index;
    std::string name;
};

const std::map<std::string, Name>& calls()
{
    static const auto calls = [] {
        std::map<std::string, Name> all;
        for (std::size_t i = 0; i < rust_call_count(); ++i) {
            View c_name;
            View name;
            rust_call_names(i, &c_name, &name);
            all[c_name] = {i, name};
        }
        return all;
    }();
    return calls;
}

void take(void* context, const void* bytes, std::size_t size, std::size_t count)
{
    *static_cast<Got*>(context) = {bytes_of(static_cast<const char*>(bytes), size), count};
}

void call(const shapes::Row& row, LumoCmdResult* answer, Outcome& outcome)
{
    const Taker taker {take, &outcome.got};
    View operation;
    const auto& arguments = row.one->arguments;
    outcome.error = rust_call(calls().at(row.operation->function.name).index, arguments.begin(), arguments.size(),
        answer, &taker, &operation);
    outcome.operation = operation;
}

} // namespace

std::span<const Form> forms()
{
    static constexpr Form one[] {{call, Failure::NamesOperation}};
    return one;
}

const std::map<std::string, std::string>& names()
{
    static const auto names = [] {
        std::map<std::string, std::string> all;
        for (const auto& [c_name, call] : calls())
            all[c_name] = call.name;
        return all;
    }();
    return names;
}

} // namespace layer
