#include "tool/lists.h"

#include "tool/carrying_out.h"
#include "tool/members.h"
#include "tool/pattern.h"
#include "tool/words.h"

#include <algorithm>

namespace tool {
namespace {

// As it counts: what stands behind the end of a text does not.
std::string key_bytes(const Member& member, const std::byte* record)
{
    const std::byte* const where = record + member.offset;
    if (member.form == Form::Text)
        return std::string(text_in(where, member.width)) + '\0';
    return {reinterpret_cast<const char*>(where), member.width};
}

} // namespace

std::vector<const Verb*> lists_of_object(std::string_view name)
{
    std::vector<const Verb*> verbs;
    for (const Object& object : known_objects())
        for (const Verb& verb : object.verbs)
            if (object.name == name && !verb.key.empty())
                verbs.push_back(&verb);
    return verbs;
}

std::vector<List> lists_of(const Verb& verb, Names& names)
{
    std::vector<List> lists {{&verb, {}}};
    for (const std::string& parameter : Pattern(verb.form).demanded()) {
        std::vector<List> narrower;
        for (const List& list : lists)
            for (const std::string& name : names.from(*find_source(verb, parameter), list.place)) {
                narrower.push_back(list);
                narrower.back().place.push_back({parameter, name});
            }
        lists = std::move(narrower);
    }
    return lists;
}

Contents contents_of(const Records& records, std::string_view key)
{
    const std::vector<std::string_view> names = split(key, ',');
    const std::vector<const Member*> members = members_named(*records.record, names);
    Contents contents;
    std::map<std::string, std::uint32_t> seen;
    for (std::size_t i = 0; i < records.count; ++i) {
        std::string bytes;
        for (const Member* const member : members)
            bytes += key_bytes(*member, records[i]);
        const std::uint32_t number = seen[bytes]++;
        for (const unsigned shift : {24U, 16U, 8U, 0U})
            bytes += static_cast<char>(number >> shift);
        contents[bytes].assign(reinterpret_cast<const char*>(records[i]), records.record->size);
    }
    return contents;
}

Contents contents_of(const List& list, AddressOrder order)
{
    const Operation& operation = *find_operation(list.verb->operation);
    const Reply reply = answer_of({list.verb, &operation, list.place}, order);
    return contents_of(*records_of(operation, reply), list.verb->key);
}

std::vector<const Member*> differences(
    const Record& record, const std::string& before, const std::string& after, AddressOrder order)
{
    std::vector<const Member*> members;
    if (before == after)
        return members;
    const std::byte* const old_data = std::as_bytes(std::span(before)).data();
    const std::byte* const new_data = std::as_bytes(std::span(after)).data();
    for (const Member& member : record.members)
        if (member_text(record, member, old_data, order) != member_text(record, member, new_data, order))
            members.push_back(&member);
    return members;
}

} // namespace tool
