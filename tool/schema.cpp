#include "tool/schema.h"

#include "tool/description.h"
#include "tool/grammar.h"
#include "tool/layouts.h"
#include "tool/records.h"
#include "tool/state/reading.h"
#include "tool/state/shape.h"
#include "tool/state/texts.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace tool {
namespace {

using Schema = nlohmann::ordered_json;

Schema reference(std::string_view record)
{
    return {{"$ref", fmt::format("#/$defs/{}", record)}};
}

Schema number(unsigned bits, bool is_signed)
{
    const std::uint64_t most = ~std::uint64_t {0} >> (64 - bits);
    if (!is_signed)
        return {{"type", "integer"}, {"minimum", 0}, {"maximum", most}};
    const auto half = static_cast<std::int64_t>(most / 2);
    return {{"type", "integer"}, {"minimum", -half - 1}, {"maximum", half}};
}

Schema element(const Member& member)
{
    switch (member.form) {
    case Form::Number:
        return number(8U * member.width, false);
    case Form::SignedNumber:
        return number(8U * member.width, true);
    case Form::Text:
        return {{"type", "string"}, {"maxLength", member.width}};
    case Form::Ipv4:
        return {{"type", "string"}, {"format", "ipv4"}};
    case Form::Ipv6:
        return {{"type", "string"}, {"format", "ipv6"}};
    case Form::Ip:
        return {{"type", "string"}};
    case Form::Mac:
        return {{"type", "string"}, {"pattern", "^([0-9a-f]{2}:){5}[0-9a-f]{2}$"}};
    case Form::Bytes:
        return {{"type", "string"}, {"pattern", fmt::format("^[0-9a-f]{{{}}}$", 2 * member.width)}};
    case Form::Records:
        return reference(member.record->name);
    }
    return {};
}

// Options may leave members out; there are no others.
Schema object(const Record& record)
{
    Schema properties = Schema::object();
    for (const Member& member : record.members)
        properties[std::string(member.name)] =
            member.length == 0 ? element(member)
                               : Schema {{"type", "array"}, {"items", element(member)}, {"maxItems", member.length}};
    return {{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

Schema array_of(const Schema& items, std::size_t most)
{
    Schema array {{"type", "array"}, {"items", items}};
    if (most > 0)
        array["maxItems"] = most;
    return array;
}

Schema one_value(const Operation& operation)
{
    Schema properties = Schema::object();
    if (operation.answer == Answer::Value)
        properties[std::string(operation.result)] =
            operation.form == Form::Ipv4 ? Schema {{"type", "string"}, {"format", "ipv4"}} : number(32, false);
    else if (operation.answer != Answer::Nothing)
        properties[std::string(operation.result)] = Schema {{"type", "string"}};
    Schema required = Schema::array();
    for (const auto& [name, property] : properties.items())
        required.push_back(name);
    return {{"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", false}};
}

Schema answer(const Operation& operation)
{
    if (const RawLayout* const layout = find_layout(operation.name)) {
        const Schema record = reference(layout->record.name);
        return layout->repeated == Repeated::Once ? record : array_of(record, 0);
    }
    if (operation.answer == Answer::Record)
        return reference(operation.record->name);
    if (operation.answer == Answer::List)
        return array_of(reference(operation.record->name), operation.cap);
    return one_value(operation);
}

Schema text()
{
    return {{"type", "string"}};
}

Schema hexadecimal()
{
    return {{"type", "string"}, {"pattern", "^([0-9a-f]{2})*$"}};
}

Schema all_of(const Schema& properties, const Schema& required)
{
    return {{"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", false}};
}

// What --dry-run shows: a line for each command.
Schema request()
{
    const Schema field =
        all_of({{"offset", number(32, false)}, {"size", number(32, false)}, {"name", text()}, {"value", text()}},
            {"offset", "size", "value"});
    return all_of(
        {{"command", number(32, false)}, {"operation", text()}, {"fields", {{"type", "array"}, {"items", field}}},
            {"request", hexadecimal()}, {"room", number(32, false)}},
        {"command", "fields", "request", "room"});
}

// What watch prints: a line for each event.
Schema event()
{
    Schema records = Schema::array();
    for (const Object& one : known_objects())
        for (const Verb& verb : one.verbs)
            if (!verb.key.empty()) {
                const Schema record = reference(record_of(*find_operation(verb.operation))->name);
                if (std::ranges::find(records, record) == records.end())
                    records.push_back(record);
            }
    const Schema any {{"anyOf", records}};
    const Schema changes {{"type", "object"},
        {"additionalProperties", all_of({{"old", Schema::object()}, {"new", Schema::object()}}, {"old", "new"})}};
    const Schema time {{"type", "string"}, {"format", "date-time"}};
    const Schema place {{"type", "object"}, {"additionalProperties", text()}};
    Schema kinds = Schema::array();
    const auto add = [&](std::string_view name, const Schema& also) {
        Schema properties {{"time", time}, {"event", {{"const", name}}}};
        Schema required {"event"};
        if (name != "begun") {
            properties.update({{"list", text()}, {"operation", text()}, {"place", place}});
            required.insert(required.end(), {"list", "operation", "place"});
        }
        properties.update(also);
        for (const auto& [key, value] : also.items())
            required.push_back(key);
        kinds.push_back(all_of(properties, required));
    };
    const Schema count = number(32, false);
    add("begun", {{"lists", count}, {"records", count}});
    kinds.back()["properties"]["absent"] = {{"type", "array"}, {"items", text()}};
    add("added", {{"key", any}, {"record", any}});
    add("removed", {{"key", any}, {"record", any}});
    add("changed", {{"key", any}, {"changes", changes}});
    add("failed", {{"error", text()}, {"errno", text()}, {"number", number(32, true)}, {"advice", text()}});
    add("answered", Schema::object());
    return {{"oneOf", kinds}};
}

// What --rates shows of any record: its counters.
Schema rates()
{
    const Schema rate {{"type", "number"}, {"minimum", 0}};
    const Schema one_or_more {{"anyOf", {rate, {{"type", "array"}, {"items", rate}}}}};
    return {{"type", "object"}, {"additionalProperties", one_or_more}};
}

// A JSON patch.
Schema patch()
{
    const Schema step {{"type", "object"},
        {"properties",
            {{"op", {{"enum", {"add", "remove", "replace"}}}}, {"path", text()}, {"value", Schema::object()}}},
        {"required", {"op", "path"}}, {"additionalProperties", false}};
    return array_of(step, 0);
}

Schema outcome()
{
    const Schema texts = array_of({{"type", "string"}}, 0);
    const Schema state {{"type", "object"}};
    return {{"type", "object"},
        {"properties", {{"commands", texts}, {"done", texts}, {"notDone", texts}, {"notRolledBack", texts},
                           {"notSettable", texts}, {"losses", texts}, {"before", state}, {"after", state}}},
        {"additionalProperties", false}};
}

// Lists of records are written as texts.
Schema property(const Member& member)
{
    const bool is_list = member.form == Form::Records || member.length > 0;
    Schema found = member.form == Form::Records ? Schema {{"type", "string"}} : element(member);
    return is_list ? Schema {{"type", "array"}, {"items", found}} : found;
}

// The state is six levels deep.
// NOLINTNEXTLINE(misc-no-recursion)
Schema object_of(const Level& level, const Level* outer)
{
    Schema properties = Schema::object();
    for (const Field& field : level.fields)
        if (!is_in_key(level, field.name))
            properties[std::string(field.name)] = property(member_of(level, outer, field));
    for (const Level* const inner : level.levels) {
        Schema one = object_of(*inner, inner->embedded.empty() ? nullptr : &level);
        if (!inner->key.empty())
            one = {{"type", "object"}, {"description", fmt::format("{}, by \"{}\"", inner->brief, inner->key)},
                {"additionalProperties", one}};
        else
            one["description"] = inner->brief;
        properties[std::string(inner->name)] = one;
    }
    return {{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

} // namespace

std::string state_schema()
{
    Schema document {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
        {"title", "The state of a host's router and bridge, as lumozephctl saves and applies it"}};
    const Schema whole = object_of(whole_state(), nullptr);
    document.update(whole);
    document["properties"]["format"] = {{"const", Schema::parse(document_format)}};
    document["properties"]["instance"] = {{"type", "string"}, {"description", "the only one that it speaks of"}};
    document["required"] = {"format"};
    return document.dump(1) + "\n";
}

std::string schema()
{
    Schema definitions = Schema::object();
    for (const Record* const record : records())
        definitions[std::string(record->name)] = object(*record);
    for (const RawLayout& layout : layouts())
        definitions[std::string(layout.record.name)] = object(layout.record);
    for (const Operation& operation : operations())
        definitions[std::string(operation.name)] = answer(operation);
    definitions["error"] = {{"type", "object"},
        {"properties",
            {{"error", {{"type", "string"}}}, {"place", {{"type", "string"}}}, {"operation", {{"type", "string"}}},
                {"errno", {{"type", "string"}}}, {"number", {{"type", "integer"}}}, {"advice", {{"type", "string"}}}}},
        {"required", {"error"}}, {"additionalProperties", false}};
    definitions["event"] = event();
    definitions["rates"] = rates();
    definitions["request"] = request();
    definitions["raw"] = all_of({{"reply", hexadecimal()}}, {"reply"});
    definitions["diff"] = patch();
    definitions["apply"] = outcome();
    const Schema document {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
        {"title", "What lumozephctl prints as JSON, by the operation that it carries out"}, {"$defs", definitions}};
    return document.dump(1) + "\n";
}

} // namespace tool
