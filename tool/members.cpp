#include "tool/members.h"

#include "tool/mistakes.h"
#include "tool/spelling.h"

#include <algorithm>
#include <fmt/format.h>
#include <sys/socket.h>

namespace tool {
namespace {

std::string address_of_family(const Record& record, const Member& member, const std::byte* data)
{
    const Member& family = record.members[static_cast<std::size_t>(member.depends_on)];
    const std::byte* const address = data + member.offset;
    switch (load_number(data + family.offset, family.width)) {
    case AF_INET:
        return ipv4_text(static_cast<std::uint32_t>(load_number(address, 4)), AddressOrder::Network);
    case AF_INET6:
        return ipv6_text(address);
    default:
        return bytes_text({address, member.width});
    }
}

// Records hold records, two deep.
// NOLINTBEGIN(misc-no-recursion)

bool names_something(const Member& member)
{
    return member.form != Form::Bytes && member.kind != "value" && member.kind != "address_family";
}

// Of several that name nothing: those that are not 0, by their names.
std::string values_in(const Record& record, const std::byte* data, AddressOrder order)
{
    std::string values;
    for (const Member& member : record.members)
        if (const std::string text = member_text(record, member, data, order);
            text.find_first_not_of("0 ") != std::string::npos)
            values += fmt::format("{}{} {}", values.empty() ? "" : ", ", member.name, text);
    return values.empty() ? "0" : values;
}

// The words of a record within another: its names and addresses, and what it consists of where it has none.
std::string summary(const Record& record, const std::byte* data, AddressOrder order)
{
    const bool is_one_value = record.members.size() == 1;
    if (!is_one_value && std::ranges::none_of(record.members, names_something))
        return values_in(record, data, order);
    std::string words;
    for (const Member& member : record.members) {
        if (!is_one_value && !names_something(member))
            continue;
        const std::string text = member_text(record, member, data, order);
        const char* const between = member.kind == "prefix_length" ? "/" : " ";
        words += words.empty() || text.empty() ? "" : between;
        words += text;
    }
    return words;
}

} // namespace

std::size_t elements_in_use(const Record& record, const Member& member, const std::byte* data)
{
    if (member.length == 0)
        return 1;
    if (member.depends_on < 0)
        return member.length;
    const Member& count = record.members[static_cast<std::size_t>(member.depends_on)];
    return std::min<std::size_t>(load_number(data + count.offset, count.width), member.length);
}

std::string element_text(
    const Record& record, const Member& member, const std::byte* data, std::size_t element, AddressOrder order)
{
    const std::byte* const where = data + member.offset + element * member.width;
    switch (member.form) {
    case Form::Text:
        return printable(text_in(where, member.width));
    case Form::Number:
        return fmt::format("{}", load_number(where, member.width));
    case Form::SignedNumber: {
        const unsigned unused = 64 - 8 * member.width;
        return fmt::format("{}", static_cast<std::int64_t>(load_number(where, member.width) << unused) >> unused);
    }
    case Form::Ipv4:
        return ipv4_text(static_cast<std::uint32_t>(load_number(where, 4)), order);
    case Form::Ipv6:
        return ipv6_text(where);
    case Form::Ip:
        return address_of_family(record, member, data);
    case Form::Mac:
        return mac_text(where);
    case Form::Bytes:
        return bytes_text({where, member.width});
    case Form::Records:
        return summary(*member.record, where, order);
    }
    return {};
}

std::string member_text(const Record& record, const Member& member, const std::byte* data, AddressOrder order)
{
    std::string text;
    const std::size_t count = elements_in_use(record, member, data);
    for (std::size_t i = 0; i < count; ++i) {
        text += i == 0 ? "" : member.form == Form::Records ? ", " : " ";
        text += element_text(record, member, data, i, order);
    }
    return text;
}

// NOLINTEND(misc-no-recursion)

std::vector<const Member*> members_named(const Record& record, std::span<const std::string_view> names)
{
    std::vector<const Member*> members;
    for (const std::string_view name : names) {
        const Member* const member = record.find(name);
        if (!member) {
            std::vector<std::string_view> known;
            for (const Member& one : record.members)
                known.push_back(one.name);
            throw Misuse(fmt::format("there is no field '{}' here{}", name, nearest(name, known)));
        }
        members.push_back(member);
    }
    return members;
}

std::string printable(std::string_view text)
{
    std::string shown;
    for (std::size_t i = 0; i < text.size();) {
        const auto first = static_cast<unsigned char>(text[i]);
        const std::size_t length = first < 0x80 ? 1 : first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
        const std::string_view sequence = text.substr(i, length);
        const bool continues = std::all_of(sequence.begin() + 1, sequence.end(),
            [](char c) { return (static_cast<unsigned char>(c) & 0xc0) == 0x80; });
        // U+0080 to U+009F are control characters, too.
        const bool is_control =
            first < ' ' || first == 0x7f ||
            (first == 0xc2 && sequence.size() == 2 && static_cast<unsigned char>(sequence[1]) < 0xa0);
        if (is_control || sequence.size() < length || !continues || (first >= 0x80 && (first < 0xc2 || first > 0xf4))) {
            shown += fmt::format("\\x{:02x}", first);
            ++i;
        } else {
            shown += sequence;
            i += length;
        }
    }
    return shown;
}

} // namespace tool
