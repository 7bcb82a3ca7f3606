// What cannot be done, as the user is told.
#pragma once

#include <cerrno>
#include <fmt/format.h>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace emulator {

// The exit status of the program where it fails by itself, as env(1) has it.
constexpr int emulator_failed = 125;

inline std::string_view remedy_for(int error)
{
    switch (error) {
    case EMFILE:
        return " (more descriptors are needed: see ulimit -n)";
    case EAGAIN:
        return " (more processes or more memory are needed: see ulimit -u and -v)";
    default:
        return "";
    }
}

// what: "cannot make a pipe". Takes the reason from errno.
[[noreturn]] inline void fail(std::string_view what)
{
    const int error = errno;
    throw std::runtime_error(fmt::format("{}: {}{}", what, std::generic_category().message(error), remedy_for(error)));
}

} // namespace emulator
