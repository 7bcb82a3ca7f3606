#include "tool/state/checking.h"

#include "tool/files.h"
#include "tool/mistakes.h"
#include "tool/spelling.h"
#include "tool/state/reading.h"
#include "tool/state/shape.h"
#include "tool/state/texts.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace tool {
namespace {

// The state is six levels deep.
// NOLINTBEGIN(misc-no-recursion)
class Checker
{
public:
    explicit Checker(std::string_view file) : _file(file) {}

    Value document(const Value& found)
    {
        demand(found, Value::Kind::Object);
        Value rest = found;
        const auto format = rest.members.find("format");
        if (format == rest.members.end() || format->second != Value::number(std::string(document_format)))
            refuse(format == rest.members.end() ? found : format->second,
                fmt::format("expected \"format\": {}, which this program writes", document_format));
        rest.members.erase(format);
        Value whole = Value::object();
        whole.members["format"] = found.members.at("format");
        if (const auto instance = rest.members.find("instance"); instance != rest.members.end()) {
            demand(instance->second, Value::Kind::Text);
            whole.members["instance"] = instance->second;
            rest.members.erase(instance);
        }
        whole.members.merge(object(whole_state(), nullptr, rest).members);
        refuse_other_instances(whole);
        return whole;
    }

private:
    [[noreturn]] void refuse(const Value& where, std::string_view why) const
    {
        throw Misuse(fmt::format("{}:{}:{}: {}", _file, where.line, where.column, why));
    }

    void demand(const Value& value, Value::Kind kind) const
    {
        if (value.kind != kind)
            refuse(value, fmt::format("expected {}, found {}", name_of(kind), name_of(value.kind)));
    }

    // What of one instance is said does not go for others.
    void refuse_other_instances(const Value& whole) const
    {
        const Value* const instance = whole.find("instance");
        if (!instance)
            return;
        for (const auto& [name, level] : whole.members)
            if (name != "format" && name != "instance" && name != "instances")
                refuse(level, "expected nothing but instances in a document of one instance");
        if (const Value* const instances = whole.find("instances"))
            for (const auto& [name, one] : instances->members)
                if (name != instance->text)
                    refuse(one, fmt::format("expected the instance '{}', and no other", instance->text));
    }

    Value object(const Level& level, const Level* outer, const Value& found)
    {
        demand(found, Value::Kind::Object);
        Value normal_one = found;
        for (auto& [name, member] : normal_one.members) {
            const auto inner = std::ranges::find(level.levels, name, [](const Level* one) { return one->name; });
            const Field* const field = find_field(level, name);
            if (inner != level.levels.end())
                member = (*inner)->key.empty() ? object(**inner, &level, member) : collection(**inner, level, member);
            else if (field && !is_in_key(level, name))
                member = value(member_of(level, outer, *field), member);
            else
                refuse(member, unknown(level, name));
        }
        return normal_one;
    }

    Value collection(const Level& level, const Level& outer, const Value& found)
    {
        demand(found, Value::Kind::Object);
        Value whole = found;
        whole.members.clear();
        for (const auto& [key, one] : found.members) {
            const Level* const read_with = level.embedded.empty() ? nullptr : &outer;
            Value entry = object(level, read_with, one);
            if (!whole.members.emplace(normal_key(level, read_with, key, one), std::move(entry)).second)
                refuse(one, "expected each of its kind once, and it is there already");
        }
        return whole;
    }

    std::string normal_key(const Level& level, const Level* outer, const std::string& key, const Value& where) const
    {
        if (key.empty() && !level.may_have_no_name)
            refuse(where, fmt::format("expected a key of {}, found an empty one", level.name));
        try {
            return key_of(level, fields_of_key(level, outer, key));
        } catch (const Misuse& misuse) {
            refuse(where, misuse.what());
        }
    }

    Value value(const Member& member, const Value& found) const
    {
        try {
            return normal(member, found);
        } catch (const Misuse& misuse) {
            refuse(found, misuse.what());
        }
    }

    static std::string unknown(const Level& level, const std::string& name)
    {
        std::vector<std::string_view> known;
        for (const Field& field : level.fields)
            if (!is_in_key(level, field.name))
                known.push_back(field.name);
        for (const Level* const inner : level.levels)
            known.push_back(inner->name);
        return fmt::format("expected a member of {}, found '{}'{}", level.name.empty() ? "the document" : level.name,
            name, nearest(name, known));
    }

    std::string_view _file;
};
// NOLINTEND(misc-no-recursion)

} // namespace

Value checked(const Value& document, std::string_view file)
{
    return Checker(file).document(document);
}

Value read_document(const std::string& file)
{
    const std::string name = file == "-" ? "standard input" : file;
    std::string text;
    try {
        text = contents_of(file);
    } catch (const Failure& failure) {
        // As one that makes no sense: of diff, the other status is that of a difference.
        throw Misuse(failure.what());
    }
    return checked(parse_document(text, name), name);
}

} // namespace tool
