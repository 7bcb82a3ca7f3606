#include "tool/state/texts.h"

#include "tool/mistakes.h"
#include "tool/words.h"

#include <algorithm>
#include <arpa/inet.h>
#include <bit>
#include <fmt/format.h>
#include <optional>
#include <span>

namespace tool {
namespace {

constexpr std::string_view escaped_letters = " %/";

std::string escaped(std::string_view part)
{
    if (part.empty())
        return "-";
    if (part == "-")
        return "%2d";
    std::string text;
    for (const char c : part)
        text += escaped_letters.find(c) == std::string_view::npos ? std::string(1, c) : fmt::format("%{:02x}", c);
    return text;
}

std::string unescaped(std::string_view part)
{
    if (part == "-")
        return {};
    std::string text;
    for (std::size_t i = 0; i < part.size(); ++i) {
        if (part[i] != '%') {
            text += part[i];
            continue;
        }
        text += parse_bytes(part.substr(i + 1, 2), 1);
        i += 2;
    }
    return text;
}

// The length of a prefix, of a mask that has no hole.
std::optional<int> length_of(const std::string& mask)
{
    const std::uint32_t bits = ntohl(parse_ipv4(mask, AddressOrder::Network));
    const int length = std::popcount(bits);
    if (bits != (length == 0 ? 0 : ~std::uint32_t {0} << (32 - length)))
        return std::nullopt;
    return length;
}

std::string value_under(const Texts& texts, std::string_view name)
{
    const auto found = texts.find(name);
    return found == texts.end() ? std::string() : found->second;
}

std::string part_of_key(const Texts& texts, std::string_view part)
{
    const std::size_t slash = part.find('/');
    if (slash == std::string_view::npos)
        return escaped(value_under(texts, part));
    const std::string second = value_under(texts, part.substr(slash + 1));
    const bool is_mask = second.find('.') != std::string::npos;
    const std::optional<int> length = is_mask ? length_of(second) : std::nullopt;
    return fmt::format("{}/{}", value_under(texts, part.substr(0, slash)), length ? std::to_string(*length) : second);
}

// What stands between the separators, empty parts too.
std::vector<std::string_view> parts_of(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t length = std::min(text.find(separator), text.size());
        parts.push_back(text.substr(0, length));
        if (length == text.size())
            return parts;
        text.remove_prefix(length + 1);
    }
}

// As a person would write the key.
std::string form_of_key(const Level& level)
{
    std::string form;
    for (const std::string_view part : split(level.key, ' '))
        form += fmt::format("{}{}", form.empty() ? "" : " ", part);
    return form;
}

bool is_number_member(const Member& member)
{
    return member.form == Form::Number || member.form == Form::SignedNumber;
}

std::string normal_text(const Member& member, const std::string& text)
{
    switch (member.form) {
    case Form::Ipv4:
        return ipv4_text(parse_ipv4(text, AddressOrder::Network), AddressOrder::Network);
    case Form::Ipv6: {
        const auto address = parse_ipv6(text);
        return ipv6_text(std::as_bytes(std::span(address)).data());
    }
    case Form::Mac: {
        const auto address = parse_mac(text);
        return mac_text(std::as_bytes(std::span(address)).data());
    }
    case Form::Bytes: {
        const std::string bytes = parse_bytes(text, member.width);
        return bytes_text(std::as_bytes(std::span(bytes)));
    }
    case Form::Text:
        if (text.find('\0') != std::string::npos)
            throw Misuse("expected a text without U+0000, which would end it");
        if (text.size() > member.width)
            throw Misuse(fmt::format("expected a text of at most {} bytes", member.width));
        return text;
    default:
        return text;
    }
}

// What the elements of a list are. Records are written as their only member, or as their address.
Member element_of(const Member& list)
{
    if (list.form == Form::Records && list.record->members.size() == 1)
        return list.record->members.front();
    Member element = list;
    element.length = 0;
    if (list.form == Form::Records)
        element.form = Form::Ip;
    return element;
}

} // namespace

std::vector<Given> given_to(const Operation& operation, std::string_view said, const Texts& texts, AddressOrder order)
{
    const std::vector<std::string_view> words = split(said, ' ');
    std::vector<Given> given;
    for (const Parameter& parameter : operation.parameters) {
        const std::string_view name = parameter.address.empty() ? parameter.name : parameter.address;
        if (std::ranges::find(given, name, &Given::name) != given.end())
            continue;
        const auto word =
            std::ranges::find_if(words, [&](std::string_view one) { return one.substr(0, one.find('=')) == name; });
        const std::string_view meant = word == words.end() ? name : word->substr(word->find('=') + 1);
        const auto found = texts.find(meant);
        if (found == texts.end() && word == words.end())
            continue;
        std::string value = found == texts.end() ? std::string(meant) : found->second;
        if (value.empty() && parameter.may_be_left_out)
            continue;
        if (parameter.input == Input::Number && value.find('.') != std::string::npos)
            value = std::to_string(parse_ipv4(value, order));
        given.push_back({std::string(name), std::move(value)});
    }
    return given;
}

std::string typed(const Value& value)
{
    if (value.kind != Value::Kind::List)
        return value.text;
    std::string text = print_document(value, Spacing::OneLine);
    text.pop_back();
    return text;
}

Value zero_of(const Member& member)
{
    if (member.form == Form::Records || member.length > 0)
        return Value::list();
    switch (member.form) {
    case Form::Number:
    case Form::SignedNumber:
        return Value::number("0");
    case Form::Ipv4:
        return Value::string("0.0.0.0");
    case Form::Ipv6:
        return Value::string("::");
    case Form::Mac:
        return Value::string("00:00:00:00:00:00");
    case Form::Bytes:
        return Value::string(std::string(std::size_t {2} * member.width, '0'));
    default:
        return Value::string("");
    }
}

std::string key_of(const Level& level, const Texts& texts)
{
    const std::vector<std::string_view> parts = split(level.key, ' ');
    // A name alone stands as it is.
    if (parts.size() == 1 && parts.front().find('/') == std::string_view::npos)
        return value_under(texts, parts.front());
    std::string key;
    for (const std::string_view part : parts)
        key += fmt::format("{}{}", key.empty() ? "" : " ", part_of_key(texts, part));
    return key;
}

Texts fields_of_key(const Level& level, const Level* outer, std::string_view key)
{
    Texts texts;
    const std::vector<std::string_view> fields = split(level.key, ' ');
    const bool is_a_name = fields.size() == 1 && fields.front().find('/') == std::string_view::npos;
    const std::vector<std::string_view> parts = is_a_name ? std::vector<std::string_view> {key} : parts_of(key, ' ');
    if (parts.size() != fields.size())
        throw Misuse(fmt::format("expected the key of {}, which is \"{}\"", level.name, form_of_key(level)));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t between = fields[i].find('/');
        if (between == std::string_view::npos) {
            texts.emplace(fields[i], is_a_name ? std::string(parts[i]) : unescaped(parts[i]));
            continue;
        }
        const std::size_t slash = parts[i].find('/');
        if (slash == std::string_view::npos)
            throw Misuse(fmt::format("expected an address with a prefix, which is \"{}\"", fields[i]));
        std::string second(parts[i].substr(slash + 1));
        const Field* const length = find_field(level, fields[i].substr(between + 1));
        if (member_of(level, outer, *length).form == Form::Ipv4 && second.find('.') == std::string::npos)
            second = ipv4_text(mask_of_length(second, AddressOrder::Network), AddressOrder::Network);
        texts.emplace(fields[i].substr(0, between), std::string(parts[i].substr(0, slash)));
        texts.emplace(fields[i].substr(between + 1), second);
    }
    for (auto& [name, text] : texts) {
        const Member member = member_of(level, outer, *find_field(level, name));
        text = normal(member, is_number_member(member) ? Value::number(text) : Value::string(text)).text;
    }
    return texts;
}

bool is_in_key(const Level& level, std::string_view field)
{
    const auto is_between = [](char c) { return c == ' ' || c == '/'; };
    const std::size_t at = level.key.find(field);
    const std::size_t end = at + field.size();
    return at != std::string_view::npos && (at == 0 || is_between(level.key[at - 1])) &&
           (end == level.key.size() || is_between(level.key[end]));
}

// A list is as deep as it gets.
// NOLINTNEXTLINE(misc-no-recursion)
Value normal(const Member& member, const Value& value)
{
    const bool is_list = member.form == Form::Records || member.length > 0;
    const Value::Kind kind = is_list                    ? Value::Kind::List
                             : is_number_member(member) ? Value::Kind::Number
                                                        : Value::Kind::Text;
    if (value.kind != kind)
        throw Misuse(fmt::format("expected {}, found {}", name_of(kind), name_of(value.kind)));
    Value found = value;
    if (is_list)
        for (Value& element : found.elements)
            element = normal(element_of(member), element);
    else if (member.form == Form::Number)
        found.text = std::to_string(parse_number(value.text, member.width));
    else if (member.form == Form::SignedNumber)
        found.text = std::to_string(static_cast<std::int64_t>(parse_signed_number(value.text, member.width)));
    else
        found.text = normal_text(member, value.text);
    return found;
}

} // namespace tool
