// A fault as a text says it: which commands it is about, and what becomes of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace emulator {

struct Effect
{
    enum class Kind
    {
        Error,    // fails with the errno that is the number, and does not take place
        Short,    // the reply is cut to so many bytes
        Fragment, // the reply ends in the middle of a record
        Long,     // the reply is said to be longer than the room
        Garbage,  // the reply is bytes at random
        Count,    // the reply's counts are the number
        Delay,    // takes place so many nanoseconds later
        Hang      // is never answered
    };

    Kind kind {};
    std::uint64_t number = 0;
};

// What is certain, in the unit of probabilities.
constexpr std::uint64_t certain = 1000000000;

struct Fault
{
    std::string text;                    // as it was written
    std::vector<std::uint32_t> commands; // by their numbers, in order
    bool is_of_opens = false;            // and of no commands
    std::uint64_t first = 1;             // of those, counted from 1
    std::uint64_t last = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t probability = certain;
    Effect effect;
};

class FaultError : public std::runtime_error
{
public:
    // column: counts from 1.
    FaultError(std::string_view text, std::size_t column, std::string_view why);
};

// Throws a FaultError.
Fault parse_fault(std::string_view text);

} // namespace emulator
