// How the tool ends when it does not do what it was asked.
#pragma once

#include <stdexcept>
#include <string>

namespace tool {

inline constexpr int failed = 1;
inline constexpr int misused = 2;

// What was asked makes no sense.
struct Misuse : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// It makes sense and could not be done.
struct Failure : std::runtime_error
{
    Failure(const std::string& what, std::string operation_name, int error, std::string what_to_look_at)
        : std::runtime_error(what), operation(std::move(operation_name)), number(error),
          advice(std::move(what_to_look_at))
    {}

    std::string operation; // the name of the function, without its prefix; none: no function failed
    int number;            // errno; 0: there is none
    std::string advice;    // what to look at; may be empty
};

// The module did not answer in time, and may do so yet.
struct NoAnswer : Failure
{
    using Failure::Failure;
};

} // namespace tool
