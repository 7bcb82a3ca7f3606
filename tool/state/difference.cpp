#include "tool/state/difference.h"

#include "tool/members.h"
#include "tool/state/texts.h"

#include <algorithm>
#include <fmt/format.h>

namespace tool {
namespace {

// Documents are as deep as the state.
// NOLINTBEGIN(misc-no-recursion)
void compare(const Value& from, const Value& to, Path& path, std::vector<Difference>& found)
{
    if (from.kind != Value::Kind::Object || to.kind != Value::Kind::Object) {
        if (from != to)
            found.push_back({path, &from, &to});
        return;
    }
    auto left = from.members.begin();
    auto right = to.members.begin();
    while (left != from.members.end() || right != to.members.end()) {
        const bool is_left = right == to.members.end() || (left != from.members.end() && left->first < right->first);
        const bool is_right = left == from.members.end() || (right != to.members.end() && right->first < left->first);
        path.push_back(is_right ? right->first : left->first);
        if (is_left)
            found.push_back({path, &left->second, nullptr});
        else if (is_right)
            found.push_back({path, nullptr, &right->second});
        else
            compare(left->second, right->second, path, found);
        path.pop_back();
        left = is_right ? left : std::next(left);
        right = is_left ? right : std::next(right);
    }
}

Value part_of_object(const Level& level, const Value& state, const Value& document)
{
    Value part = Value::object();
    for (const auto& [name, said] : document.members) {
        const Value* const member = state.find(name);
        const auto inner = std::ranges::find(level.levels, name, [](const Level* one) { return one->name; });
        if (!member)
            continue;
        if (inner == level.levels.end()) {
            part.members.emplace(name, *member);
        } else if ((*inner)->key.empty()) {
            part.members.emplace(name, part_of_object(**inner, *member, said));
        } else {
            Value& collection = part.members.emplace(name, Value::object()).first->second;
            for (const auto& [key, one] : member->members) {
                const Value* const said_of_it = said.find(key);
                collection.members.emplace(key, said_of_it ? part_of_object(**inner, one, *said_of_it) : one);
            }
        }
    }
    return part;
}

void take_statistics(const Level& level, Value& object)
{
    for (const Field& field : level.fields)
        if (field.part == Part::Statistic)
            object.members.erase(std::string(field.name));
    for (const Level* const inner : level.levels) {
        const auto member = object.members.find(std::string(inner->name));
        if (member == object.members.end())
            continue;
        if (inner->part == Part::Statistic)
            object.members.erase(member);
        else if (inner->key.empty())
            take_statistics(*inner, member->second);
        else
            for (auto& [key, one] : member->second.members)
                take_statistics(*inner, one);
    }
}

bool has_any_statistics(const Level& level, const Value& object)
{
    const bool has_own = std::ranges::any_of(level.fields, [&](const Field& field) {
        return field.part == Part::Statistic && object.find(std::string(field.name)) != nullptr;
    });
    return has_own || std::ranges::any_of(level.levels, [&](const Level* inner) {
        const Value* const member = object.find(std::string(inner->name));
        if (!member || inner->part == Part::Statistic)
            return member != nullptr;
        if (inner->key.empty())
            return has_any_statistics(*inner, *member);
        return std::ranges::any_of(
            member->members, [&](const auto& one) { return has_any_statistics(*inner, one.second); });
    });
}

std::string shown(const Value& value)
{
    if (value.kind == Value::Kind::Text)
        return value.text.empty() ? "\"\"" : printable(value.text);
    std::string text = print_document(value, Spacing::OneLine);
    text.pop_back();
    return text;
}

// What is there or not: its values in one line, and what is in it below.
void tell(std::string& text, char mark, const Path& path, const Value& value)
{
    if (value.kind != Value::Kind::Object) {
        text += fmt::format("{} {} {}\n", mark, text_of(path), shown(value));
        return;
    }
    std::string values;
    for (const auto& [name, member] : value.members)
        if (member.kind != Value::Kind::Object && !is_zero(member))
            values += fmt::format("{} {} {}", values.empty() ? ":" : ",", name, shown(member));
    text += fmt::format("{} {}{}\n", mark, text_of(path), values);
    for (const auto& [name, member] : value.members)
        if (member.kind == Value::Kind::Object && !is_zero(member)) {
            Path inner = path;
            inner.push_back(name);
            const bool is_collection = std::ranges::all_of(
                member.members, [](const auto& one) { return one.second.kind == Value::Kind::Object; });
            if (!is_collection) {
                tell(text, mark, inner, member);
                continue;
            }
            for (const auto& [key, one] : member.members) {
                inner.push_back(key);
                tell(text, mark, inner, one);
                inner.pop_back();
            }
        }
}

void put(Value& document, const Path& path, const Value* value)
{
    if (!value)
        return;
    Value* place = &document;
    for (const std::string& step : path)
        place = &place->members.try_emplace(step, Value::object()).first->second;
    *place = *value;
}

bool all_are_values(const Value& value)
{
    return std::ranges::none_of(value.members, [](const auto& one) { return one.second.kind == Value::Kind::Object; });
}

} // namespace

bool is_zero(const Value& value)
{
    if (value.kind == Value::Kind::Object && all_are_values(value))
        return !value.members.empty() &&
               std::ranges::all_of(value.members, [](const auto& one) { return is_zero(one.second); });
    if (value.kind == Value::Kind::Object || value.kind == Value::Kind::List)
        return value.members.empty() && std::ranges::all_of(value.elements, is_zero);
    return value.text.find_first_not_of("0.:") == std::string::npos;
}
// NOLINTEND(misc-no-recursion)

std::vector<Difference> differences(const Value& from, const Value& to)
{
    std::vector<Difference> found;
    Path path;
    compare(from, to, path, found);
    return found;
}

Value part_spoken_of(const Value& state, const Value& document)
{
    return part_of_object(whole_state(), state, document);
}

Value without_statistics(const Value& document)
{
    Value settings = document;
    take_statistics(whole_state(), settings);
    return settings;
}

bool has_statistics(const Value& document)
{
    return has_any_statistics(whole_state(), document);
}

std::string text_of(const Path& path)
{
    std::string text;
    for (const std::string& step : path)
        text += fmt::format("{}{}", text.empty() ? "" : " ", printable(step));
    return text;
}

std::string text_of(const std::vector<Difference>& differences)
{
    std::string text;
    for (const Difference& one : differences) {
        if (!one.from)
            tell(text, '+', one.path, *one.to);
        else if (!one.to)
            tell(text, '-', one.path, *one.from);
        else
            text += fmt::format("~ {}: {} -> {}\n", text_of(one.path), shown(*one.from), shown(*one.to));
    }
    return text;
}

Value part_before(const std::vector<Difference>& differences)
{
    Value part = Value::object();
    for (const Difference& one : differences)
        put(part, one.path, one.from);
    return part;
}

Value part_after(const std::vector<Difference>& differences)
{
    Value part = Value::object();
    for (const Difference& one : differences)
        put(part, one.path, one.to);
    return part;
}

std::string pointer_to(const Path& path)
{
    std::string pointer;
    for (const std::string& step : path) {
        pointer += '/';
        for (const char c : step)
            pointer += c == '~' ? "~0" : c == '/' ? "~1" : std::string(1, c);
    }
    return pointer;
}

Value patch_of(const std::vector<Difference>& differences)
{
    Value patch = Value::list();
    for (const Difference& one : differences) {
        Value& step = patch.elements.emplace_back(Value::object());
        step.members["op"] = Value::string(!one.from ? "add" : !one.to ? "remove" : "replace");
        step.members["path"] = Value::string(pointer_to(one.path));
        if (one.to)
            step.members["value"] = *one.to;
    }
    return patch;
}

} // namespace tool
