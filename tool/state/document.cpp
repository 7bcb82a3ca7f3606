#include "tool/state/document.h"

#include "tool/mistakes.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <fmt/format.h>

namespace tool {
namespace {

// How many bytes the UTF-8 sequence has that begins there; 0: there is none.
std::size_t sequence_at(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80)
        return 1;
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || text.size() < length)
        return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    const bool is_overlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool is_too_high = (first == 0xed && second >= 0xa0) || (first == 0xf4 && second >= 0x90);
    const bool continues = std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length),
        [](char c) { return (static_cast<unsigned char>(c) & 0xc0) == 0x80; });
    return continues && !is_overlong && !is_too_high ? length : 0;
}

void append_utf8(std::string& text, std::uint32_t character)
{
    const auto append = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80)
        return append(character);
    if (character < 0x800) {
        append(0xc0 | character >> 6);
    } else if (character < 0x10000) {
        append(0xe0 | character >> 12);
        append(0x80 | (character >> 6 & 0x3f));
    } else {
        append(0xf0 | character >> 18);
        append(0x80 | (character >> 12 & 0x3f));
        append(0x80 | (character >> 6 & 0x3f));
    }
    append(0x80 | (character & 0x3f));
}

bool is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// Documents are read and printed as deep as they are; a limit keeps that from the stack.
// NOLINTBEGIN(misc-no-recursion)
class Parser
{
public:
    Parser(std::string_view text, std::string_view file) : _text(text), _file(file) {}

    Value whole()
    {
        Value found = value(0);
        skip_blanks();
        if (_at < _text.size())
            refuse("the end of the file");
        return found;
    }

private:
    static constexpr unsigned deepest = 64;

    [[noreturn]] void refuse(std::string_view expected) const
    {
        const std::string found = _at == _text.size() ? "the end of the file"
                                  : _text[_at] > ' ' && _text[_at] <= '~'
                                      ? fmt::format("'{}'", _text[_at])
                                      : fmt::format("the byte {:02x}", static_cast<unsigned char>(_text[_at]));
        throw Misuse(fmt::format("{}:{}:{}: expected {}, found {}", _file, _line, column(), expected, found));
    }

    unsigned column() const { return static_cast<unsigned>(_at - _line_begin + 1); }
    char next() const { return _at < _text.size() ? _text[_at] : '\0'; }

    void skip_blanks()
    {
        for (; next() == ' ' || next() == '\t' || next() == '\r' || next() == '\n'; ++_at)
            if (next() == '\n') {
                ++_line;
                _line_begin = _at + 1;
            }
    }

    bool take(char c)
    {
        skip_blanks();
        if (next() != c)
            return false;
        ++_at;
        return true;
    }

    Value value(unsigned depth)
    {
        skip_blanks();
        Value found;
        found.line = _line;
        found.column = column();
        if (depth == deepest)
            refuse("a document that is not so deep");
        if (next() == '{') {
            object(found, depth);
        } else if (next() == '[') {
            list(found, depth);
        } else if (next() == '"') {
            found.kind = Value::Kind::Text;
            found.text = string();
        } else if (next() == '-' || is_digit(next())) {
            number(found);
        } else {
            word(found);
        }
        return found;
    }

    void object(Value& found, unsigned depth)
    {
        found.kind = Value::Kind::Object;
        ++_at;
        if (take('}'))
            return;
        do {
            skip_blanks();
            if (next() != '"')
                refuse("a name in quotes");
            const std::size_t at = _at;
            const unsigned line = _line;
            const unsigned column_of_name = column();
            const std::string name = string();
            if (found.members.contains(name)) {
                _at = at;
                refuse(fmt::format("a name other than \"{}\", which is there already", name));
            }
            if (!take(':'))
                refuse("':'");
            Value& member = found.members[name] = value(depth + 1);
            member.line = line;
            member.column = column_of_name;
        } while (take(','));
        if (!take('}'))
            refuse("',' or '}'");
    }

    void list(Value& found, unsigned depth)
    {
        found.kind = Value::Kind::List;
        ++_at;
        if (take(']'))
            return;
        do
            found.elements.push_back(value(depth + 1));
        while (take(','));
        if (!take(']'))
            refuse("',' or ']'");
    }

    void number(Value& found)
    {
        const std::size_t begin = _at;
        if (next() == '-')
            ++_at;
        if (!is_digit(next()))
            refuse("a digit");
        const bool begins_with_zero = next() == '0';
        const std::size_t digits = _at;
        while (is_digit(next()))
            ++_at;
        if (begins_with_zero && _at - digits > 1) {
            _at = digits;
            refuse("a number that does not begin with 0");
        }
        if (next() == '.' || next() == 'e' || next() == 'E')
            refuse("a whole number without an exponent");
        found.kind = Value::Kind::Number;
        found.text = _text.substr(begin, _at - begin);
    }

    void word(Value& found)
    {
        for (const std::string_view known : {"true", "false", "null"})
            if (_text.substr(_at).starts_with(known)) {
                found.kind = known == "null" ? Value::Kind::Null : Value::Kind::Boolean;
                found.text = known == "null" ? "" : known;
                _at += known.size();
                return;
            }
        refuse("a value");
    }

    std::string string()
    {
        std::string found;
        ++_at;
        while (next() != '"') {
            if (_at == _text.size() || static_cast<unsigned char>(next()) < ' ')
                refuse("'\"'");
            if (next() == '\\') {
                escape(found);
                continue;
            }
            const std::size_t length = sequence_at(_text.substr(_at));
            if (length == 0)
                refuse("UTF-8");
            found += _text.substr(_at, length);
            _at += length;
        }
        ++_at;
        return found;
    }

    void escape(std::string& found)
    {
        constexpr std::string_view letters = "\"\\/bfnrt";
        constexpr std::string_view meant = "\"\\/\b\f\n\r\t";
        ++_at;
        if (const std::size_t letter = letters.find(next()); _at < _text.size() && letter != std::string_view::npos) {
            found += meant[letter];
            ++_at;
            return;
        }
        if (next() != 'u')
            refuse("one of \"\\/bfnrtu");
        ++_at;
        const std::uint32_t first = four_digits();
        if (first >= 0xdc80 && first <= 0xdcff) {
            found += static_cast<char>(first & 0xff);
            return;
        }
        if (first < 0xd800 || first > 0xdfff)
            return append_utf8(found, first);
        if (first > 0xdbff || !_text.substr(_at).starts_with("\\u"))
            refuse("the second half of a surrogate pair");
        _at += 2;
        const std::uint32_t second = four_digits();
        if (second < 0xdc00 || second > 0xdfff)
            refuse("the second half of a surrogate pair");
        append_utf8(found, 0x10000 + ((first & 0x3ff) << 10) + (second & 0x3ff));
    }

    std::uint32_t four_digits()
    {
        const std::string_view digits = _text.substr(_at, 4);
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
        if (error != std::errc() || end != digits.data() + 4)
            refuse("four hexadecimal digits");
        _at += 4;
        return number;
    }

    std::string_view _text;
    std::string_view _file;
    std::size_t _at = 0;
    unsigned _line = 1;
    std::size_t _line_begin = 0;
};

void print_text(std::string& out, std::string_view text)
{
    out += '"';
    while (!text.empty()) {
        const std::size_t length = sequence_at(text);
        const auto first = static_cast<unsigned char>(text.front());
        if (length == 0)
            out += fmt::format("\\udc{:02x}", first);
        else if (first == '"' || first == '\\')
            out.append({'\\', text.front()});
        else if (first < ' ' || first == 0x7f)
            out += fmt::format("\\u{:04x}", first);
        else
            out += text.substr(0, length);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    out += '"';
}

void print_value(std::string& out, const Value& value, Spacing spacing, unsigned depth)
{
    const auto new_line = [&](unsigned indent) {
        if (spacing == Spacing::Indented)
            out.append(1, '\n').append(std::size_t {2} * indent, ' ');
    };
    bool is_first = true;
    const auto separate = [&] {
        out += is_first ? "" : ",";
        is_first = false;
    };
    switch (value.kind) {
    case Value::Kind::Null:
        out += "null";
        return;
    case Value::Kind::Boolean:
    case Value::Kind::Number:
        out += value.text;
        return;
    case Value::Kind::Text:
        return print_text(out, value.text);
    case Value::Kind::List: {
        const bool is_of_objects = !value.elements.empty() && value.elements.front().kind == Value::Kind::Object;
        out += '[';
        for (const Value& element : value.elements) {
            separate();
            if (is_of_objects)
                new_line(depth + 1);
            print_value(out, element, spacing, depth + 1);
        }
        if (is_of_objects)
            new_line(depth);
        out += ']';
        return;
    }
    case Value::Kind::Object:
        out += '{';
        for (const auto& [name, member] : value.members) {
            separate();
            new_line(depth + 1);
            print_text(out, name);
            out += spacing == Spacing::Indented ? ": " : ":";
            print_value(out, member, spacing, depth + 1);
        }
        if (!is_first)
            new_line(depth);
        out += '}';
        return;
    }
}

// NOLINTEND(misc-no-recursion)

} // namespace

std::string_view name_of(Value::Kind kind)
{
    constexpr std::string_view names[] {"null", "true or false", "a number", "a text", "a list", "an object"};
    return names[static_cast<std::size_t>(kind)];
}

Value parse_document(std::string_view text, std::string_view file)
{
    return Parser(text, file).whole();
}

std::string print_document(const Value& value, Spacing spacing)
{
    std::string out;
    print_value(out, value, spacing, 0);
    out += '\n';
    return out;
}

} // namespace tool
