#include "emulator/recording/difference.h"

#include "emulator/protocol/access.h"
#include "emulator/state/notation.h"
#include "emulator/trace/fields.h"
#include "emulator/trace/reply.h"

#include <algorithm>
#include <cstring>

namespace emulator {

using namespace protocol;

namespace {

using Octets = std::span<const std::byte>;

// Goes through what two of something hold, and keeps lines about what is not the same.
class Comparison
{
public:
    explicit Comparison(Sides sides) : sides_(sides) {}

    std::vector<std::string> take() { return std::move(lines_); }

    void add(const std::string& name, const std::string& first, const std::string& second)
    {
        std::string line = name + ": ";
        line.append(sides_.first).append(" ").append(first).append(", ");
        line.append(sides_.second).append(" ").append(second);
        lines_.push_back(std::move(line));
    }

    void numbers(const std::string& name, std::uint64_t first, std::uint64_t second)
    {
        if (first != second)
            add(name, std::to_string(first), std::to_string(second));
    }

    void bytes(const std::string& name, Octets first, Octets second)
    {
        if (!std::equal(first.begin(), first.end(), second.begin(), second.end()))
            add(name, notation::of_bytes(first), notation::of_bytes(second));
    }

    // NOLINTBEGIN(misc-no-recursion): tables are in records, and no deeper than the description has them
    void records(const std::string& prefix, const Layout& layout, Octets first, Octets second)
    {
        for (const Field* field : layout.fields)
            fields(prefix, *field, first.subspan(field->offset, field->width),
                second.subspan(field->offset, field->width));
    }

private:
    void fields(const std::string& prefix, const Field& field, Octets first, Octets second)
    {
        std::string name = prefix;
        if (!field.name.empty())
            name.append(prefix.empty() ? "" : ".").append(field.name);
        if (field.kind == Kind::Table) {
            const std::size_t each = field.entry->size;
            for (std::size_t at = 0; at < field.width; at += each)
                records(name + "[" + std::to_string(at / each) + "]", *field.entry, first.subspan(at, each),
                    second.subspan(at, each));
            return;
        }
        std::string one;
        std::string other;
        append_value(one, TraceFormat::Text, field, first);
        append_value(other, TraceFormat::Text, field, second);
        if (one != other)
            add(name, one, other);
    }

    // NOLINTEND(misc-no-recursion)

    Sides sides_;
    std::vector<std::string> lines_;
};

std::string name_of_error(int error)
{
    const char* const name = error == 0 ? "0" : strerrorname_np(error);
    return name != nullptr ? name : std::to_string(error);
}

void compare_replies(Comparison& comparison, const Reply& described, Octets first, Octets second)
{
    const ReplyParts one = parts_of(described, first.size());
    const ReplyParts other = parts_of(described, second.size());
    if (one.head > 0 && other.head > 0)
        comparison.records("", described.head, first, second);
    comparison.numbers("records", one.records, other.records);
    const std::size_t each = described.record.size;
    for (std::size_t i = 0; i < std::min(one.records, other.records); ++i)
        comparison.records(described.is_list() ? "[" + std::to_string(i) + "]" : "", described.record,
            first.subspan(one.head + i * each, each), second.subspan(other.head + i * each, each));
    comparison.bytes("rest", first.last(one.rest), second.last(other.rest));
}

// The fields of a request; none if it is of another length.
const Layout* fields_of(const Call& call)
{
    const Command* const command = command_of(call.number);
    return command != nullptr && call.input.size() == command->input.size ? &command->input : nullptr;
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as the description
void append_values(std::string& out, const Layout& layout, Octets bytes)
{
    for (const Field* field : layout.fields) {
        const Octets own = bytes.subspan(field->offset, field->width);
        if (field->kind == Kind::Table) {
            for (std::size_t at = 0; at < own.size(); at += field->entry->size)
                append_values(out, *field->entry, own.subspan(at, field->entry->size));
            continue;
        }
        append_value(out, TraceFormat::Text, *field, own);
        out.push_back('\n');
    }
}

} // namespace

std::vector<std::string> differences_of_requests(const Call& first, const Call& second, Sides sides)
{
    Comparison comparison(sides);
    if (first.number != second.number) {
        comparison.add("command", name_of_command(first.number), name_of_command(second.number));
        return comparison.take();
    }
    comparison.numbers("input length", first.in_len, second.in_len);
    comparison.numbers("room", first.room, second.room);
    if (const Layout* const layout = fields_of(first); layout != nullptr && fields_of(second) != nullptr)
        comparison.records("", *layout, first.input, second.input);
    else
        comparison.bytes("input", first.input, second.input);
    return comparison.take();
}

std::string asked_by(const Call& call)
{
    std::string asked;
    for (const std::uint32_t number : {call.number, call.in_len, call.room}) {
        append_number(asked, number);
        asked.push_back(' ');
    }
    if (const Layout* const layout = fields_of(call); layout != nullptr)
        append_values(asked, *layout, call.input);
    else
        asked.append(notation::of_bytes(call.input));
    return asked;
}

std::vector<std::string> differences_of_answers(
    std::uint32_t number, const Answer& first, const Answer& second, Sides sides)
{
    Comparison comparison(sides);
    if (first.error != second.error) {
        comparison.add("errno", name_of_error(first.error), name_of_error(second.error));
        return comparison.take();
    }
    if (first.error != 0)
        return {};
    comparison.numbers("reply length", first.length(), second.length());
    if (const Command* const command = command_of(number); command != nullptr)
        compare_replies(comparison, command->reply, first.reply, second.reply);
    else
        comparison.bytes("reply", first.reply, second.reply);
    return comparison.take();
}

} // namespace emulator
