// What cannot be done, as the user is told.
#pragma once

#include <cerrno>
#include <fmt/format.h>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace emulator {

// what: "cannot make a pipe". Takes the reason from errno.
[[noreturn]] inline void fail(std::string_view what)
{
    const int error = errno;
    const std::string_view remedy = error == EMFILE ? " (more descriptors are needed: see ulimit -n)" : "";
    throw std::runtime_error(fmt::format("{}: {}{}", what, std::generic_category().message(error), remedy));
}

} // namespace emulator
