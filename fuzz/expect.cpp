#include "expect.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

namespace {

std::string_view read_name;

} // namespace

void now_reading(std::string_view name)
{
    read_name = name;
}

void fail(std::string_view what)
{
    std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(read_name.size()), read_name.data(),
        static_cast<int>(what.size()), what.data());
    std::abort();
}

void expect_equal(std::string_view what, std::int64_t is, std::int64_t should_be)
{
    if (is != should_be)
        fail(std::string(what) + " is " + std::to_string(is) + " and should be " + std::to_string(should_be));
}

void expect_equal(std::string_view what, const void* is, const void* should_be)
{
    if (is == should_be)
        return;
    char text[64];
    std::snprintf(text, sizeof text, " is %p and should be %p", is, should_be);
    fail(std::string(what) + text);
}

void expect_bytes(std::string_view what, std::string_view is, std::string_view should_be)
{
    expect_equal(std::string(what) + ": length", static_cast<std::int64_t>(is.size()),
        static_cast<std::int64_t>(should_be.size()));
    for (std::size_t i = 0; i < is.size(); ++i)
        if (is[i] != should_be[i])
            expect_equal(std::string(what) + ": byte " + std::to_string(i), static_cast<std::uint8_t>(is[i]),
                static_cast<std::uint8_t>(should_be[i]));
}

void expect_success(const Ended& ended)
{
    if (ended.result != 0)
        fail("fails with errno " + std::to_string(ended.error));
}

void expect_failure(const Ended& ended, int error)
{
    expect_equal("result", ended.result, -1);
    expect_equal("errno", ended.error, error);
}

} // namespace fuzz
