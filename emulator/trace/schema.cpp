#include "emulator/trace/schema.h"

#include "emulator/protocol/commands.h"
#include "emulator/trace/reply.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace emulator {

using namespace protocol;

namespace {

json::Value text(std::string_view text)
{
    return {std::string(text)};
}

json::Value number(std::uint64_t number)
{
    return {json::Number {std::to_string(number)}};
}

json::Object of_type(const char* type)
{
    return {{"type", text(type)}};
}

json::Object pattern(const std::string& pattern)
{
    return {{"type", text("string")}, {"pattern", text(pattern)}};
}

json::Object integer(std::uint64_t largest)
{
    return {{"type", text("integer")}, {"minimum", number(0)}, {"maximum", number(largest)}};
}

constexpr auto any_number = std::numeric_limits<std::uint32_t>::max();

json::Object signed_integer(std::size_t width)
{
    const std::uint64_t beyond = std::uint64_t {1} << (8 * width - 1);
    return {{"type", text("integer")}, {"minimum", {json::Number {"-" + std::to_string(beyond)}}},
        {"maximum", number(beyond - 1)}};
}

json::Object array_of(json::Object element, std::size_t most)
{
    return {{"type", text("array")}, {"items", {std::move(element)}}, {"maxItems", number(most)}};
}

// All members are required but those that are named.
json::Object object(json::Object members, const std::vector<std::string>& optional = {})
{
    json::Array required;
    for (const json::Member& member : members)
        if (std::find(optional.begin(), optional.end(), member.name) == optional.end())
            required.push_back(text(member.name));
    json::Object made {{"type", text("object")}, {"properties", {std::move(members)}}};
    if (!required.empty())
        made.push_back({"required", {std::move(required)}});
    made.push_back({"additionalProperties", {false}});
    return made;
}

json::Object record(const Layout& layout);

json::Object value(const Field& field)
{
    switch (field.kind) {
    case Kind::Text:
        return of_type("string");
    case Kind::Number:
        return integer(std::numeric_limits<std::uint64_t>::max() >> (64 - 8 * field.width));
    case Kind::SignedNumber:
        return signed_integer(field.width);
    case Kind::Ipv4:
        return pattern("^([0-9]{1,3}\\.){3}[0-9]{1,3}$");
    case Kind::Ipv6:
        return pattern("^[0-9a-f:.]{2,}$");
    case Kind::Mac:
        return pattern("^([0-9a-f]{2}:){5}[0-9a-f]{2}$");
    case Kind::Flag:
        return of_type("boolean");
    case Kind::Bytes:
        return pattern("^([0-9a-f]{2}){" + std::to_string(field.width) + "}$");
    case Kind::Table:
        break;
    }
    return array_of(record(*field.entry), field.width / field.entry->size);
}

json::Object record(const Layout& layout)
{
    if (layout.fields.size() == 1 && layout.fields[0]->name.empty())
        return value(*layout.fields[0]);
    json::Object members;
    for (const Field* field : layout.fields)
        members.push_back({std::string(field->name), {value(*field)}});
    return object(std::move(members));
}

const char* const any_bytes = "^([0-9a-f]{2})*$";

json::Object reply(const Reply& described)
{
    json::Object members;
    if (described.head.size > 0)
        members.push_back({"head", {record(described.head)}});
    members.push_back({"records", {array_of(record(described.record), records_shown)}});
    members.push_back({"count", {integer(any_number)}});
    members.push_back({"restLength", {integer(any_number)}});
    members.push_back({"rest", {pattern(any_bytes)}});
    return object(std::move(members), {"head", "restLength", "rest"});
}

// What is there for every command and every open.
json::Object members_of_events()
{
    return {
        {"time", {pattern("^[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}Z$")}},
        {"process", {integer(any_number)}},
        {"thread", {integer(any_number)}},
        {"program", {of_type("string")}},
        {"errno", {integer(any_number)}},
        {"error", {pattern("^E[A-Z0-9]+$")}},
        {"unanswered", {json::Object {{"const", {true}}}}},
        {"faults", {of_type("string")}},
        {"duration", {json::Object {{"type", text("number")}, {"minimum", number(0)}}}},
    };
}

json::Object command(const Command& command)
{
    json::Object members {{"request", {record(command.input)}}};
    if (command.reply.shape != Shape::Nothing)
        members.push_back({"reply", {reply(command.reply)}});
    else
        members.push_back({"reply", {false}});
    json::Object is_it {{"properties", {json::Object {{"command", {json::Object {{"const", text(command.name)}}}}}}},
        {"required", {json::Array {text("command")}}}};
    return {{"if", {std::move(is_it)}}, {"then", {json::Object {{"properties", {std::move(members)}}}}}};
}

json::Object commands()
{
    json::Object members = members_of_events();
    json::Array names;
    json::Array each;
    for (const Chapter& chapter : chapters)
        for (const Command& described : chapter.commands) {
            names.push_back(text(described.name));
            each.push_back({command(described)});
        }
    for (const char* const name : {"order", "number", "inLength", "room", "replyLength"})
        members.push_back({name, {integer(any_number)}});
    members.push_back({"command", {json::Object {{"enum", {std::move(names)}}}}});
    members.push_back({"request", {of_type("object")}});
    members.push_back({"input", {pattern(any_bytes)}});
    members.push_back({"unreadable", {json::Object {{"enum", {json::Array {text("envelope"), text("input")}}}}}});
    members.push_back({"reply", {of_type("object")}});
    json::Object all =
        object(std::move(members), {"errno", "error", "unanswered", "faults", "command", "inLength", "room",
                                       "replyLength", "request", "input", "unreadable", "reply"});
    all.push_back({"allOf", {std::move(each)}});
    return all;
}

json::Object opens()
{
    json::Object members = members_of_events();
    members.push_back({"open", {of_type("string")}});
    members.push_back({"flags", {integer(std::numeric_limits<std::uint64_t>::max())}});
    return object(std::move(members), {"errno", "error", "unanswered", "faults"});
}

} // namespace

json::Value schema_of_traces()
{
    json::Array kinds;
    kinds.push_back({commands()});
    kinds.push_back({opens()});
    for (const char* const count : {"lost", "forgotten"})
        kinds.push_back({object({{count, {integer(std::numeric_limits<std::uint64_t>::max())}}})});
    return {json::Object {{"$schema", text("http://json-schema.org/draft-07/schema#")},
        {"title", text("A line of the emulator's trace")}, {"oneOf", {std::move(kinds)}}}};
}

} // namespace emulator
