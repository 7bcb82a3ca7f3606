// JSON as state files have it: members keep their order, numbers their digits, and everything knows where it stood.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace emulator::json {

// Both count from 1, columns in bytes.
struct Position
{
    std::size_t line = 1;
    std::size_t column = 1;
};

class Error : public std::runtime_error
{
public:
    Error(Position at, const std::string& message);

    Position position() const { return position_; }

private:
    Position position_;
};

struct Member;
struct Value;

// As it was written.
struct Number
{
    std::string digits;
};

using Array = std::vector<Value>;
using Object = std::vector<Member>;

struct Value
{
    std::variant<std::nullptr_t, bool, Number, std::string, Array, Object> content;
    Position position {};

    // Null if it is something else.
    const Object* object() const { return std::get_if<Object>(&content); }
    Object* object() { return std::get_if<Object>(&content); }
    const Array* array() const { return std::get_if<Array>(&content); }
    Array* array() { return std::get_if<Array>(&content); }
    const std::string* text() const { return std::get_if<std::string>(&content); }
    const Number* number() const { return std::get_if<Number>(&content); }
    const bool* truth() const { return std::get_if<bool>(&content); }
    bool is_null() const { return std::holds_alternative<std::nullptr_t>(content); }
};

struct Member
{
    std::string name;
    Value value;
    Position position {}; // of the name
};

// Null if there is none.
const Value* find(const Object& object, std::string_view name);
Value* find(Object& object, std::string_view name);

// The digits of a number without exponent, and without decimals that say nothing: 1e3 is 1000, 3.0 is 3, 25e-1 is 2.5.
std::string plain(std::string_view digits);

// Numbers are equal if their digits are; objects are equal in whatever order their members are.
bool equal(const Value& left, const Value& right);

// Throws an Error. In texts, a lone surrogate from U+DC80 to U+DCFF is the byte 80 to FF, so that any bytes can be written.
Value parse(std::string_view text);

// A line for each member and element, and one at the end.
std::string print(const Value& value);

// Appends the text, quoted.
void append_text(std::string& out, std::string_view text);

} // namespace emulator::json
