#include "emulator/state/patch.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>

namespace emulator::json {

namespace {

using Path = std::vector<std::string>;

// Nothing if it is not a pointer.
std::optional<Path> path_of(std::string_view pointer)
{
    Path path;
    while (!pointer.empty()) {
        if (pointer[0] != '/')
            return std::nullopt;
        const std::size_t end = std::min(pointer.find('/', 1), pointer.size());
        std::string step;
        for (std::size_t i = 1; i < end; ++i) {
            if (pointer[i] != '~') {
                step += pointer[i];
                continue;
            }
            if (i + 1 == end || (pointer[i + 1] != '0' && pointer[i + 1] != '1'))
                return std::nullopt;
            step += pointer[++i] == '0' ? '~' : '/';
        }
        path.push_back(std::move(step));
        pointer.remove_prefix(end);
    }
    return path;
}

std::string escaped(const std::string& step)
{
    std::string escaped;
    for (const char character : step)
        escaped += character == '~' ? "~0" : character == '/' ? "~1" : std::string(1, character);
    return escaped;
}

std::optional<std::size_t> index_of(const std::string& step)
{
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(step.data(), step.data() + step.size(), index);
    const bool has_zeros = step.size() > 1 && step[0] == '0';
    if (step.empty() || has_zeros || error != std::errc() || end != step.data() + step.size())
        return std::nullopt;
    return index;
}

Value* child(Value& value, const std::string& step)
{
    if (Object* object = value.object())
        return find(*object, step);
    Array* const array = value.array();
    const auto index = index_of(step);
    return array != nullptr && index && *index < array->size() ? &(*array)[*index] : nullptr;
}

Value* walk(Value& document, std::span<const std::string> path)
{
    Value* value = &document;
    for (const std::string& step : path)
        if (value != nullptr)
            value = child(*value, step);
    return value;
}

// One operation of a patch.
class Operation
{
public:
    Operation(Value& document, const Value& operation) : document_(document), operation_(operation)
    {
        if (operation.object() == nullptr)
            throw Error(operation.position, "expected an operation, which is an object");
    }

    void apply()
    {
        const std::string& name = text("op");
        const Path path = this->path("path");
        if (name == "add") {
            add(path, value());
        } else if (name == "remove") {
            remove(path);
        } else if (name == "replace") {
            existing(path) = value();
        } else if (name == "move") {
            const Path from = this->path("from");
            if (path.size() > from.size() && std::equal(from.begin(), from.end(), path.begin()))
                fail("from", "expected no move into itself");
            const Value moved = existing(from);
            remove(from);
            add(path, moved);
        } else if (name == "copy") {
            const Value copied = existing(this->path("from"));
            add(path, copied);
        } else if (name == "test") {
            test(existing(path));
        } else {
            fail("op", "expected add, remove, replace, move, copy or test");
        }
    }

private:
    void test(const Value& there) const
    {
        if (equal(there, value()))
            return;
        std::string printed = print(there);
        printed.pop_back();
        const bool is_short = printed.size() <= 60 && printed.find('\n') == std::string::npos;
        fail("value", "expected this to be at '" + text("path") + "'" + (is_short ? ", not " + printed : ""));
    }

    [[noreturn]] void fail(const char* member, const std::string& message) const
    {
        const Value* const at = find(*operation_.object(), member);
        throw Error(at != nullptr ? at->position : operation_.position, message);
    }

    const Value& member(const char* name) const
    {
        const Value* const found = find(*operation_.object(), name);
        if (found == nullptr)
            throw Error(operation_.position, std::string("expected a member '") + name + "'");
        return *found;
    }

    const std::string& text(const char* name) const
    {
        if (member(name).text() == nullptr)
            fail(name, "expected a text");
        return *member(name).text();
    }

    const Value& value() const { return member("value"); }

    Path path(const char* name) const
    {
        auto path = path_of(text(name));
        if (!path)
            fail(name, "expected a JSON pointer, not '" + text(name) + "'");
        return *path;
    }

    Value& existing(const Path& path) const
    {
        Value* const value = walk(document_, path);
        if (value == nullptr)
            throw Error(operation_.position, "expected something to be at the place that this names");
        return *value;
    }

    Value& parent(const Path& path) const { return existing({path.begin(), path.end() - 1}); }

    void add(const Path& path, const Value& value) const
    {
        if (path.empty()) {
            document_ = Value(value);
            return;
        }
        Value& parent = this->parent(path);
        if (Object* object = parent.object()) {
            if (Value* there = find(*object, path.back()))
                *there = Value(value);
            else
                object->push_back({path.back(), value, operation_.position});
        } else if (Array* array = parent.array()) {
            const auto index = path.back() == "-" ? std::optional(array->size()) : index_of(path.back());
            if (!index || *index > array->size())
                throw Error(operation_.position, "expected a place in the array");
            array->insert(array->begin() + static_cast<std::ptrdiff_t>(*index), value);
        } else {
            throw Error(operation_.position, "expected an object or an array at the place that this names");
        }
    }

    void remove(const Path& path) const
    {
        existing(path);
        if (path.empty()) {
            document_ = Value {};
            return;
        }
        Value& parent = this->parent(path);
        if (Object* object = parent.object())
            std::erase_if(*object, [&](const Member& member) { return member.name == path.back(); });
        else
            parent.array()->erase(parent.array()->begin() + static_cast<std::ptrdiff_t>(*index_of(path.back())));
    }

    Value& document_;
    const Value& operation_;
};

Value operation(const char* name, const std::string& path, const Value* value)
{
    Object object {{"op", {std::string(name)}}, {"path", {path}}};
    if (value != nullptr)
        object.push_back({"value", *value});
    return {std::move(object)};
}

void compare(const Value& from, const Value& to, const std::string& path, Array& operations)
{
    const Object* const before = from.object();
    const Object* const after = to.object();
    if (before == nullptr || after == nullptr) {
        if (!equal(from, to))
            operations.push_back(operation("replace", path, &to));
        return;
    }
    for (const Member& member : *before)
        if (find(*after, member.name) == nullptr)
            operations.push_back(operation("remove", path + "/" + escaped(member.name), nullptr));
    for (const Member& member : *after)
        if (const Value* was = find(*before, member.name))
            compare(*was, member.value, path + "/" + escaped(member.name), operations);
        else
            operations.push_back(operation("add", path + "/" + escaped(member.name), &member.value));
}

} // namespace

const Value* at(const Value& document, const std::string& pointer)
{
    const auto path = path_of(pointer);
    return path ? walk(const_cast<Value&>(document), *path) : nullptr;
}

void patch(Value& document, const Value& operations)
{
    if (operations.array() == nullptr)
        throw Error(operations.position, "expected an array of operations");
    for (const Value& each : *operations.array())
        Operation(document, each).apply();
}

void merge(Value& document, const Value& changes)
{
    const Object* const members = changes.object();
    if (members == nullptr) {
        document = Value(changes);
        return;
    }
    if (document.object() == nullptr)
        document = {Object {}, changes.position};
    for (const Member& member : *members) {
        Object& object = *document.object();
        if (member.value.is_null()) {
            std::erase_if(object, [&](const Member& other) { return other.name == member.name; });
            continue;
        }
        if (find(object, member.name) == nullptr)
            object.push_back({member.name, Value {nullptr, member.value.position}, member.position});
        merge(*find(object, member.name), member.value);
    }
}

Value difference(const Value& from, const Value& to)
{
    Array operations;
    compare(from, to, "", operations);
    return {std::move(operations)};
}

} // namespace emulator::json
