#include "emulator/state/json.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace emulator::json {

namespace {

constexpr int deepest = 64;

// How many bytes the UTF-8 character at the beginning of the text has; 0 if there is none.
std::size_t character_length(std::string_view text)
{
    const auto byte = [&](std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0u; };
    const auto follows = [&](std::size_t at) { return (byte(at) & 0xc0u) == 0x80; };
    const unsigned first = byte(0);
    if (text.empty())
        return 0;
    if (first < 0x80)
        return 1;
    if (first >= 0xc2 && first < 0xe0)
        return follows(1) ? 2 : 0;
    if (first >= 0xe0 && first < 0xf0) {
        const bool is_shorter = first == 0xe0 && byte(1) < 0xa0;
        const bool is_surrogate = first == 0xed && byte(1) >= 0xa0;
        return follows(1) && follows(2) && !is_shorter && !is_surrogate ? 3 : 0;
    }
    if (first >= 0xf0 && first < 0xf5) {
        const bool is_shorter = first == 0xf0 && byte(1) < 0x90;
        const bool is_beyond = first == 0xf4 && byte(1) >= 0x90;
        return follows(1) && follows(2) && follows(3) && !is_shorter && !is_beyond ? 4 : 0;
    }
    return 0;
}

void append_character(std::string& text, std::uint32_t code)
{
    const auto append = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        append(code);
    } else if (code < 0x800) {
        append(0xc0 | code >> 6);
        append(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        append(0xe0 | code >> 12);
        append(0x80 | (code >> 6 & 0x3f));
        append(0x80 | (code & 0x3f));
    } else {
        append(0xf0 | code >> 18);
        append(0x80 | (code >> 12 & 0x3f));
        append(0x80 | (code >> 6 & 0x3f));
        append(0x80 | (code & 0x3f));
    }
}

class Reader
{
public:
    explicit Reader(std::string_view text) : text_(text) {}

    Value document()
    {
        Value value = read(0);
        skip_space();
        if (!at_end())
            fail("expected nothing more");
        return value;
    }

private:
    bool at_end() const { return next_ == text_.size(); }
    char peek() const { return at_end() ? '\0' : text_[next_]; }

    char take()
    {
        const char character = text_[next_++];
        if (character == '\n')
            position_ = {position_.line + 1, 1};
        else
            ++position_.column;
        return character;
    }

    [[noreturn]] void fail(const std::string& message) const { throw Error(position_, message); }

    void skip_space()
    {
        while (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r')
            take();
    }

    void expect(char character)
    {
        skip_space();
        if (at_end() || peek() != character)
            fail(std::string("expected '") + character + "'");
        take();
    }

    Value read(int depth)
    {
        if (depth == deepest)
            fail("expected no deeper nesting");
        skip_space();
        Value value;
        value.position = position_;
        const char first = peek();
        if (first == '{')
            value.content = object(depth);
        else if (first == '[')
            value.content = array(depth);
        else if (first == '"')
            value.content = string();
        else if (first == '-' || (first >= '0' && first <= '9'))
            value.content = number();
        else if (word("true"))
            value.content = true;
        else if (word("false"))
            value.content = false;
        else if (word("null"))
            value.content = nullptr;
        else
            fail("expected a value");
        return value;
    }

    bool word(std::string_view wanted)
    {
        if (text_.substr(next_, wanted.size()) != wanted)
            return false;
        for (std::size_t i = 0; i < wanted.size(); ++i)
            take();
        return true;
    }

    Object object(int depth)
    {
        Object object;
        take();
        skip_space();
        if (peek() == '}') {
            take();
            return object;
        }
        do {
            skip_space();
            Member member;
            member.position = position_;
            if (peek() != '"')
                fail("expected the name of a member");
            member.name = string();
            expect(':');
            member.value = read(depth + 1);
            object.push_back(std::move(member));
            skip_space();
        } while (peek() == ',' && take() != '\0');
        expect('}');
        refuse_doubles(object);
        return object;
    }

    static void refuse_doubles(const Object& object)
    {
        std::vector<const Member*> sorted;
        for (const Member& member : object)
            sorted.push_back(&member);
        std::stable_sort(sorted.begin(), sorted.end(),
            [](const Member* left, const Member* right) { return left->name < right->name; });
        const auto twice = std::adjacent_find(sorted.begin(), sorted.end(),
            [](const Member* left, const Member* right) { return left->name == right->name; });
        if (twice != sorted.end())
            throw Error((*(twice + 1))->position, "expected no second '" + (*twice)->name + "'");
    }

    Array array(int depth)
    {
        Array array;
        take();
        skip_space();
        if (peek() == ']') {
            take();
            return array;
        }
        do {
            array.push_back(read(depth + 1));
            skip_space();
        } while (peek() == ',' && take() != '\0');
        expect(']');
        return array;
    }

    Number number()
    {
        Number number;
        const auto digits = [&] {
            if (peek() < '0' || peek() > '9')
                fail("expected a digit");
            while (peek() >= '0' && peek() <= '9')
                number.digits.push_back(take());
        };
        if (peek() == '-')
            number.digits.push_back(take());
        if (peek() == '0')
            number.digits.push_back(take());
        else
            digits();
        if (peek() == '.') {
            number.digits.push_back(take());
            digits();
        }
        if (peek() == 'e' || peek() == 'E') {
            number.digits.push_back(take());
            if (peek() == '+' || peek() == '-')
                number.digits.push_back(take());
            digits();
        }
        return number;
    }

    std::string string()
    {
        std::string text;
        take();
        while (peek() != '"') {
            if (at_end() || static_cast<unsigned char>(peek()) < 0x20)
                fail("expected '\"' at the end of the text");
            if (peek() == '\\') {
                take();
                escaped(text);
                continue;
            }
            const std::size_t length = character_length(text_.substr(next_));
            if (length == 0)
                fail("expected UTF-8");
            for (std::size_t i = 0; i < length; ++i)
                text.push_back(take());
        }
        take();
        return text;
    }

    void escaped(std::string& text)
    {
        constexpr std::string_view letters = "\"\\/bfnrt";
        constexpr std::string_view meant = "\"\\/\b\f\n\r\t";
        if (at_end())
            fail("expected a character after '\\'");
        if (peek() == 'u') {
            take();
            unicode(text);
            return;
        }
        const std::size_t which = letters.find(peek());
        if (which == std::string_view::npos)
            fail("expected one of '\"\\/bfnrtu' after '\\'");
        take();
        text.push_back(meant[which]);
    }

    std::uint32_t four_digits()
    {
        std::uint32_t code = 0;
        const char* const begin = text_.data() + next_;
        if (text_.size() - next_ < 4 || std::from_chars(begin, begin + 4, code, 16).ptr != begin + 4)
            fail("expected four hexadecimal digits");
        for (int i = 0; i < 4; ++i)
            take();
        return code;
    }

    void unicode(std::string& text)
    {
        const std::uint32_t code = four_digits();
        if (code >= 0xdc80 && code <= 0xdcff) {
            text.push_back(static_cast<char>(code & 0xff));
        } else if (code >= 0xd800 && code < 0xdc00) {
            if (!word("\\u"))
                fail("expected the second half of a pair");
            const std::uint32_t low = four_digits();
            if (low < 0xdc00 || low > 0xdfff)
                fail("expected the second half of a pair");
            append_character(text, 0x10000 + ((code - 0xd800) << 10) + (low - 0xdc00));
        } else if (code >= 0xdc00 && code <= 0xdfff) {
            fail("expected the first half of a pair");
        } else {
            append_character(text, code);
        }
    }

    std::string_view text_;
    std::size_t next_ = 0;
    Position position_;
};

void print(std::string& out, const Value& value, std::size_t indent);

template <class All, class One>
void print_all(std::string& out, const All& all, std::size_t indent, char open, char close, One one)
{
    out.push_back(open);
    const char* separator = "\n";
    for (const auto& each : all) {
        out += separator;
        out.append(indent + 2, ' ');
        one(each);
        separator = ",\n";
    }
    if (!all.empty()) {
        out.push_back('\n');
        out.append(indent, ' ');
    }
    out.push_back(close);
}

void print(std::string& out, const Value& value, std::size_t indent)
{
    if (const Object* object = value.object())
        print_all(out, *object, indent, '{', '}', [&](const Member& member) {
            append_text(out, member.name);
            out += ": ";
            print(out, member.value, indent + 2);
        });
    else if (const Array* array = value.array())
        print_all(out, *array, indent, '[', ']', [&](const Value& element) { print(out, element, indent + 2); });
    else if (const std::string* text = value.text())
        append_text(out, *text);
    else if (const Number* number = value.number())
        out += number->digits;
    else if (const bool* truth = value.truth())
        out += *truth ? "true" : "false";
    else
        out += "null";
}

} // namespace

Error::Error(Position at, const std::string& message)
    : std::runtime_error(std::to_string(at.line) + ":" + std::to_string(at.column) + ": " + message), position_(at)
{}

const Value* find(const Object& object, std::string_view name)
{
    const auto found =
        std::find_if(object.begin(), object.end(), [&](const Member& member) { return member.name == name; });
    return found == object.end() ? nullptr : &found->value;
}

Value* find(Object& object, std::string_view name)
{
    return const_cast<Value*>(find(std::as_const(object), name));
}

std::string plain(std::string_view digits)
{
    constexpr int furthest = 64; // that the point is moved
    const std::size_t end = std::min(digits.find_first_of("eE"), digits.size());
    int exponent = 0;
    if (end < digits.size()) {
        const char* const begin = digits.data() + end + (digits.substr(end + 1, 1) == "+" ? 2 : 1);
        const std::errc error = std::from_chars(begin, digits.data() + digits.size(), exponent).ec;
        if (error != std::errc() || std::abs(exponent) > furthest)
            return std::string(digits);
    }
    const std::size_t point = std::min(digits.find('.'), end);
    // With so many zeros around it, the point is moved within the text.
    std::string all(furthest, '0');
    all += digits.substr(0, point);
    const std::size_t moved = all.size() + static_cast<std::size_t>(exponent + furthest) - furthest;
    if (point < end)
        all += digits.substr(point + 1, end - point - 1);
    all.append(furthest, '0');
    const std::size_t first = std::min(all.find_first_not_of('0'), moved - 1);
    const std::size_t last = std::max(all.find_last_not_of('0') + 1, moved);
    all.resize(last);
    if (last > moved)
        all.insert(moved, 1, '.');
    return all.substr(first);
}

bool equal(const Value& left, const Value& right)
{
    if (left.content.index() != right.content.index())
        return false;
    if (const Object* object = left.object())
        return object->size() == right.object()->size() &&
               std::all_of(object->begin(), object->end(), [&](const Member& member) {
                   const Value* other = find(*right.object(), member.name);
                   return other != nullptr && equal(member.value, *other);
               });
    if (const Array* array = left.array())
        return std::equal(array->begin(), array->end(), right.array()->begin(), right.array()->end(), equal);
    if (const std::string* text = left.text())
        return *text == *right.text();
    if (const Number* number = left.number())
        return number->digits == right.number()->digits || plain(number->digits) == plain(right.number()->digits);
    return left.is_null() || *left.truth() == *right.truth();
}

Value parse(std::string_view text)
{
    return Reader(text).document();
}

void append_text(std::string& out, std::string_view text)
{
    const auto escape = [&](unsigned code) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04x", code);
        out += escaped;
    };
    out.push_back('"');
    while (!text.empty()) {
        const auto first = static_cast<unsigned char>(text[0]);
        const std::size_t length = character_length(text);
        if (length == 0)
            escape(0xdc00u | first);
        else if (first < 0x20 || first == 0x7f)
            escape(first);
        else if (first == '"' || first == '\\')
            out.append({'\\', text[0]});
        else
            out.append(text.substr(0, length));
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    out.push_back('"');
}

std::string print(const Value& value)
{
    std::string out;
    print(out, value, 0);
    out.push_back('\n');
    return out;
}

} // namespace emulator::json
