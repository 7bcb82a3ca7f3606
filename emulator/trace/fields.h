// Fields and their values, as lines show them.
#pragma once

#include "emulator/protocol/layout.h"

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace emulator {

enum class TraceFormat
{
    Text, // for people
    Json  // an object a line
};

// a=1, b="x" or "a":1,"b":"x": what stands between the braces. bytes: at least as many as the layout has.
void append_fields(
    std::string& out, TraceFormat format, const protocol::Layout& layout, std::span<const std::byte> bytes);

// The value of one that is nothing but a value, or fields in braces.
void append_record(
    std::string& out, TraceFormat format, const protocol::Layout& layout, std::span<const std::byte> bytes);

// bytes: those of the field.
void append_value(std::string& out, TraceFormat format, const protocol::Field& field, std::span<const std::byte> bytes);

template <std::integral Number>
void append_number(std::string& out, Number number)
{
    char digits[24];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

// With zeros in front, so that there are so many digits.
void append_digits(std::string& out, std::uint64_t number, std::size_t digits);

} // namespace emulator
