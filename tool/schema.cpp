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

using json = nlohmann::ordered_json;

json reference(std::string_view record)
{
    return {{"$ref", fmt::format("#/$defs/{}", record)}};
}

json number(unsigned bits, bool is_signed)
{
    const std::uint64_t most = ~std::uint64_t {0} >> (64 - bits);
    if (!is_signed)
        return {{"type", "integer"}, {"minimum", 0}, {"maximum", most}};
    const auto half = static_cast<std::int64_t>(most / 2);
    return {{"type", "integer"}, {"minimum", -half - 1}, {"maximum", half}};
}

json element(const Member& member)
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
json object(const Record& record)
{
    json properties = json::object();
    for (const Member& member : record.members)
        properties[std::string(member.name)] =
            member.length == 0 ? element(member)
                               : json {{"type", "array"}, {"items", element(member)}, {"maxItems", member.length}};
    return {{"type", "object"}, {"properties", properties}, {"additionalProperties", false}};
}

json array_of(const json& items, std::size_t most)
{
    json array {{"type", "array"}, {"items", items}};
    if (most > 0)
        array["maxItems"] = most;
    return array;
}

json one_value(const Operation& operation)
{
    json properties = json::object();
    if (operation.answer == Answer::Value)
        properties[std::string(operation.result)] =
            operation.form == Form::Ipv4 ? json {{"type", "string"}, {"format", "ipv4"}} : number(32, false);
    else if (operation.answer != Answer::Nothing)
        properties[std::string(operation.result)] = json {{"type", "string"}};
    json required = json::array();
    for (const auto& [name, property] : properties.items())
        required.push_back(name);
    return {{"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", false}};
}

json answer(const Operation& operation)
{
    if (const RawLayout* const layout = find_layout(operation.name)) {
        const json record = reference(layout->record.name);
        return layout->repeated == Repeated::Once ? record : array_of(record, 0);
    }
    if (operation.answer == Answer::Record)
        return reference(operation.record->name);
    if (operation.answer == Answer::List)
        return array_of(reference(operation.record->name), operation.cap);
    return one_value(operation);
}

json text()
{
    return {{"type", "string"}};
}

json hexadecimal()
{
    return {{"type", "string"}, {"pattern", "^([0-9a-f]{2})*$"}};
}

json all_of(const json& properties, const json& required)
{
    return {{"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", false}};
}

// What --dry-run shows: a line for each command.
json request()
{
    const json field =
        all_of({{"offset", number(32, false)}, {"size", number(32, false)}, {"name", text()}, {"value", text()}},
            {"offset", "size", "value"});
    return all_of(
        {{"command", number(32, true)}, {"operation", text()}, {"fields", {{"type", "array"}, {"items", field}}},
            {"request", hexadecimal()}, {"room", number(32, false)}},
        {"command", "fields", "request", "room"});
}

// What watch prints: a line for each event.
json event()
{
    json records = json::array();
    for (const Object& one : known_objects())
        for (const Verb& verb : one.verbs)
            if (!verb.key.empty()) {
                const json record = reference(record_of(*find_operation(verb.operation))->name);
                if (std::ranges::find(records, record) == records.end())
                    records.push_back(record);
            }
    const json any {{"anyOf", records}};
    const json changes {{"type", "object"},
        {"additionalProperties", all_of({{"old", json::object()}, {"new", json::object()}}, {"old", "new"})}};
    const json time {{"type", "string"}, {"format", "date-time"}};
    const json place {{"type", "object"}, {"additionalProperties", text()}};
    json kinds = json::array();
    const auto add = [&](std::string_view name, const json& also) {
        json properties {{"time", time}, {"event", {{"const", name}}}};
        json required {"event"};
        if (name != "begun") {
            properties.update({{"list", text()}, {"operation", text()}, {"place", place}});
            required.insert(required.end(), {"list", "operation", "place"});
        }
        properties.update(also);
        for (const auto& [key, value] : also.items())
            required.push_back(key);
        kinds.push_back(all_of(properties, required));
    };
    const json count = number(32, false);
    add("begun", {{"lists", count}, {"records", count}});
    add("added", {{"key", any}, {"record", any}});
    add("removed", {{"key", any}, {"record", any}});
    add("changed", {{"key", any}, {"changes", changes}});
    add("failed", {{"error", text()}, {"number", number(32, true)}});
    add("answered", json::object());
    return {{"oneOf", kinds}};
}

// What --rates shows of any record: its counters.
json rates()
{
    const json rate {{"type", "number"}, {"minimum", 0}};
    const json one_or_more {{"anyOf", {rate, {{"type", "array"}, {"items", rate}}}}};
    return {{"type", "object"}, {"additionalProperties", one_or_more}};
}

// A JSON patch.
json patch()
{
    const json step {{"type", "object"},
        {"properties", {{"op", {{"enum", {"add", "remove", "replace"}}}}, {"path", text()}, {"value", json::object()}}},
        {"required", {"op", "path"}}, {"additionalProperties", false}};
    return array_of(step, 0);
}

json outcome()
{
    const json texts = array_of({{"type", "string"}}, 0);
    const json state {{"type", "object"}};
    return {{"type", "object"},
        {"properties", {{"commands", texts}, {"done", texts}, {"notDone", texts}, {"notRolledBack", texts},
                           {"notSettable", texts}, {"losses", texts}, {"before", state}, {"after", state}}},
        {"additionalProperties", false}};
}

// Lists of records are written as texts.
json property(const Member& member)
{
    const bool is_list = member.form == Form::Records || member.length > 0;
    json found = member.form == Form::Records ? json {{"type", "string"}} : element(member);
    return is_list ? json {{"type", "array"}, {"items", found}} : found;
}

// The state is six levels deep.
// NOLINTNEXTLINE(misc-no-recursion)
json object_of(const Level& level, const Level* outer)
{
    json properties = json::object();
    for (const Field& field : level.fields)
        if (!is_in_key(level, field.name))
            properties[std::string(field.name)] = property(member_of(level, outer, field));
    for (const Level* const inner : level.levels) {
        json one = object_of(*inner, inner->embedded.empty() ? nullptr : &level);
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
    json document {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
        {"title", "The state of a host's router and bridge, as lumozephctl saves and applies it"}};
    const json whole = object_of(whole_state(), nullptr);
    document.update(whole);
    document["properties"]["format"] = {{"const", json::parse(document_format)}};
    document["properties"]["instance"] = {{"type", "string"}, {"description", "the only one that it speaks of"}};
    document["required"] = {"format"};
    return document.dump(1) + "\n";
}

std::string schema()
{
    json definitions = json::object();
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
    const json document {{"$schema", "https://json-schema.org/draft/2020-12/schema"},
        {"title", "What lumozephctl prints as JSON, by the operation that it carries out"}, {"$defs", definitions}};
    return document.dump(1) + "\n";
}

} // namespace tool
