#include "tool/filter.h"

#include "tool/members.h"
#include "tool/mistakes.h"

#include <algorithm>
#include <arpa/inet.h>
#include <compare>
#include <fmt/format.h>

namespace tool {
namespace {

constexpr std::string_view symbols[] {"==", "!=", "<=", ">=", "<", ">", "~"};

// In the order in which people count them.
std::uint64_t rank(const Member& member, std::uint64_t number, AddressOrder order)
{
    if (member.form == Form::Ipv4 && order == AddressOrder::Network)
        return ntohl(static_cast<std::uint32_t>(number));
    if (member.form != Form::SignedNumber)
        return number;
    // The smallest negative number first.
    const std::uint64_t sign = std::uint64_t {1} << (8 * member.width - 1);
    return (number & (2 * sign - 1)) ^ sign;
}

bool is_number(const Member& member)
{
    return member.length == 0 &&
           (member.form == Form::Number || member.form == Form::SignedNumber || member.form == Form::Ipv4);
}

std::uint64_t parsed(const Member& member, std::string_view text, AddressOrder order)
{
    if (member.form == Form::Ipv4)
        return parse_ipv4(text, order);
    return member.form == Form::SignedNumber ? parse_signed_number(text, member.width)
                                             : parse_number(text, member.width);
}

// As it would be printed.
std::string usual(const Member& member, const std::string& text)
{
    if (member.form == Form::Mac) {
        const auto address = parse_mac(text);
        return mac_text(std::as_bytes(std::span(address)).data());
    }
    if (member.form == Form::Ipv6) {
        const auto address = parse_ipv6(text);
        return ipv6_text(std::as_bytes(std::span(address)).data());
    }
    return text;
}

} // namespace

Filter::Filter(std::string_view condition, const Record& record, AddressOrder order) : _order(order)
{
    const std::size_t end_of_name = condition.find_first_of("=!<>~");
    const std::string_view rest =
        end_of_name == std::string_view::npos ? std::string_view() : condition.substr(end_of_name);
    const auto symbol = std::find_if(
        std::begin(symbols), std::end(symbols), [rest](std::string_view one) { return rest.starts_with(one); });
    if (symbol == std::end(symbols))
        throw Misuse(
            fmt::format("'{}' is not a condition: a field, one of ==, !=, <, <=, >, >= and ~, and a value", condition));
    const std::string_view name = condition.substr(0, end_of_name);
    _member = members_named(record, {&name, 1}).front();
    _relation = static_cast<Relation>(symbol - std::begin(symbols));
    _text = rest.substr(symbol->size());
    if (is_number(*_member) && _relation != Relation::Containing)
        _number = rank(*_member, parsed(*_member, _text, order), order);
    else if (_relation != Relation::Equal && _relation != Relation::Unequal && _relation != Relation::Containing)
        throw Misuse(fmt::format("{} is not a number: it can be compared by ==, != and ~", name));
    else if (_relation != Relation::Containing)
        _text = usual(*_member, _text);
    _record = &record;
}

bool Filter::matches(const std::byte* record) const
{
    if (is_number(*_member) && _relation != Relation::Containing) {
        const std::uint64_t number = rank(*_member, load_number(record + _member->offset, _member->width), _order);
        return holds(number <=> _number);
    }
    const std::string text = member_text(*_record, *_member, record, _order);
    return _relation == Relation::Containing ? text.find(_text) != std::string::npos : holds(text <=> _text);
}

bool Filter::holds(std::strong_ordering found) const
{
    switch (_relation) {
    case Relation::Equal:
        return found == 0;
    case Relation::Unequal:
        return found != 0;
    case Relation::AtMost:
        return found <= 0;
    case Relation::AtLeast:
        return found >= 0;
    case Relation::Less:
        return found < 0;
    case Relation::Greater:
        return found > 0;
    case Relation::Containing:
        break;
    }
    return false;
}

} // namespace tool
