#include "tool/record_json.h"

#include "tool/members.h"

namespace tool {

std::vector<const Member*> all_members(const Record& record)
{
    std::vector<const Member*> members;
    for (const Member& member : record.members)
        members.push_back(&member);
    return members;
}

// Records hold records, two deep.
// NOLINTBEGIN(misc-no-recursion)
namespace {

void write_element(JsonWriter& json, const Record& record, const Member& member, const std::byte* data,
    std::size_t element, AddressOrder order)
{
    const std::byte* const where = data + member.offset + element * member.width;
    switch (member.form) {
    case Form::Number:
        return json.number(load_number(where, member.width));
    case Form::SignedNumber: {
        const unsigned unused = 64 - 8 * member.width;
        return json.number(static_cast<std::int64_t>(load_number(where, member.width) << unused) >> unused);
    }
    case Form::Text:
        return json.string(text_in(where, member.width));
    case Form::Records:
        return write_record(json, *member.record, all_members(*member.record), where, order);
    default:
        return json.string(element_text(record, member, data, element, order));
    }
}

} // namespace

void write_record(JsonWriter& json, const Record& record, std::span<const Member* const> members, const std::byte* data,
    AddressOrder order)
{
    json.begin_object();
    for (const Member* const one : members) {
        json.key(one->name);
        write_member(json, record, *one, data, order);
    }
    json.end_object();
}

void write_member(
    JsonWriter& json, const Record& record, const Member& member, const std::byte* data, AddressOrder order)
{
    if (member.length == 0)
        return write_element(json, record, member, data, 0, order);
    json.begin_array();
    const std::size_t count = elements_in_use(record, member, data);
    for (std::size_t i = 0; i < count; ++i)
        write_element(json, record, member, data, i, order);
    json.end_array();
}

// NOLINTEND(misc-no-recursion)

} // namespace tool
