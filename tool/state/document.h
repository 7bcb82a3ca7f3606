// JSON documents whose values know where they stand.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct Value
{
    enum class Kind
    {
        Null,
        Boolean,
        Number, // a whole one, as it is written
        Text,
        List,
        Object
    };

    Kind kind = Kind::Null;
    std::string text;
    std::vector<Value> elements;
    std::map<std::string, Value> members;
    // Where it stands, or, of a member, its name; 0: in no file.
    unsigned line = 0;
    unsigned column = 0;

    static Value object() { return {Kind::Object, {}, {}, {}, 0, 0}; }
    static Value list() { return {Kind::List, {}, {}, {}, 0, 0}; }
    static Value string(std::string text) { return {Kind::Text, std::move(text), {}, {}, 0, 0}; }
    static Value number(std::string digits) { return {Kind::Number, std::move(digits), {}, {}, 0, 0}; }

    // Null if there is none.
    const Value* find(const std::string& member) const
    {
        const auto found = members.find(member);
        return found == members.end() ? nullptr : &found->second;
    }

    // Wherever they stand.
    bool operator==(const Value& other) const
    {
        return kind == other.kind && text == other.text && elements == other.elements && members == other.members;
    }
};

std::string_view name_of(Value::Kind kind);

// A byte of a text that is not UTF-8 is a lone surrogate from U+DC80 to U+DCFF. Throws Misuse, which names the file, line
// and column, and says what was expected.
Value parse_document(std::string_view text, std::string_view file);

// The same value gives the same bytes. Lists of anything but objects are in one line.
enum class Spacing
{
    OneLine,
    Indented
};
std::string print_document(const Value& value, Spacing spacing);

} // namespace tool
