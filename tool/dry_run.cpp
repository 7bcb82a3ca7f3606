#include "tool/dry_run.h"

#include "tool/binding.h"
#include "tool/failures.h"
#include "tool/json_writer.h"
#include "tool/members.h"
#include "tool/mistakes.h"

#include <algorithm>
#include <cerrno>

namespace tool {
namespace {

// What of an argument lies in one field.
struct Piece
{
    std::string name;
    Form form;
    std::size_t position;
    std::size_t offset; // within the argument's bytes
    std::size_t size;
};

Form form_of(Input input)
{
    switch (input) {
    case Input::Text:
        return Form::Text;
    case Input::SignedNumber:
        return Form::SignedNumber;
    case Input::Ipv4:
        return Form::Ipv4;
    case Input::Ipv6Word:
        return Form::Ipv6;
    case Input::Mac:
        return Form::Mac;
    case Input::Bytes:
        return Form::Bytes;
    default:
        return Form::Number;
    }
}

// A count says how far the library reads: it stays as it is.
void add_members(std::vector<Piece>& pieces, const Parameter& parameter, std::size_t position, std::size_t records)
{
    for (std::size_t i = 0; i < records; ++i)
        for (const Member& member : parameter.record->members) {
            const std::string index = parameter.input == Input::Records ? fmt::format("[{}]", i) : "";
            if (member.kind != "count")
                pieces.push_back({fmt::format("{}{}.{}", parameter.name, index, member.name), member.form, position,
                    i * parameter.record->size + member.offset, member.width});
        }
}

std::vector<Piece> pieces_of(const Operation& operation, const Arguments& arguments)
{
    std::vector<Piece> pieces;
    for (std::size_t i = 0; i < operation.parameters.size(); ++i) {
        const Parameter& parameter = operation.parameters[i];
        const bool is_count = parameter.partner >= 0 &&
                              operation.parameters[static_cast<std::size_t>(parameter.partner)].input == Input::Records;
        const bool is_second_word = parameter.input == Input::Ipv6Word && parameter.partner < static_cast<int>(i);
        const bool is_null = parameter.input == Input::Text && !arguments.text(i);
        if (is_count || is_second_word || is_null)
            continue;
        if (parameter.record)
            add_members(pieces, parameter, i, arguments.size_of_bytes(i) / parameter.record->size);
        else
            pieces.push_back({std::string(parameter.address.empty() ? parameter.name : parameter.address),
                form_of(parameter.input), i, 0, parameter.size});
    }
    return pieces;
}

// Longer than any field, and different everywhere.
std::string other_text(std::string text)
{
    constexpr std::size_t more_than_any = 1024;
    text.resize(more_than_any);
    std::ranges::transform(text, text.begin(), [](char c) { return c == '~' ? '!' : '~'; });
    return text;
}

// The same arguments but for the piece. Of a switch, only whether it is 0 counts; of a text with a meaning of its own, only
// that there is none.
std::vector<Arguments> changed(const Operation& operation, const Arguments& arguments, const Piece& piece)
{
    std::vector<Arguments> all(2, arguments);
    const Parameter& parameter = operation.parameters[piece.position];
    if (parameter.input == Input::Text) {
        all[0].set_bytes(piece.position, other_text(arguments.text(piece.position)));
        all[1].set_bytes(piece.position, "");
    } else if (parameter.input <= Input::Ipv6Word) {
        const auto number = arguments.number<std::uint64_t>(piece.position);
        all[0].set_number(piece.position, ~number);
        all[1].set_number(piece.position, number == 0 ? 1 : 0);
        if (parameter.input == Input::Ipv6Word) {
            const auto partner = static_cast<std::size_t>(parameter.partner);
            all[0].set_number(partner, ~arguments.number<std::uint64_t>(partner));
        }
    } else if (char* const bytes = all[0].writable(piece.position)) {
        std::transform(bytes + piece.offset, bytes + piece.offset + piece.size, bytes + piece.offset,
            [](char c) { return static_cast<char>(~c); });
    }
    return all;
}

struct Run
{
    std::size_t offset;
    std::size_t size;
};

// Where the inputs differ.
std::vector<Run> differences(const std::string& one, const std::string& other)
{
    std::vector<Run> runs;
    if (one.size() != other.size())
        return runs;
    for (std::size_t i = 0; i < one.size(); ++i) {
        if (one[i] == other[i])
            continue;
        if (runs.empty() || runs.back().offset + runs.back().size != i)
            runs.push_back({i, 0});
        ++runs.back().size;
    }
    return runs;
}

std::string value_at(const std::string& input, const Run& run, Form form, AddressOrder order)
{
    const bool fits = (form != Form::Ipv4 || run.size == 4) && (form != Form::Ipv6 || run.size == 16) &&
                      (form != Form::Mac || run.size == 6) &&
                      ((form != Form::Number && form != Form::SignedNumber) || run.size <= 8);
    const Member member {"", "", fits ? form : Form::Bytes, static_cast<std::uint16_t>(run.offset),
        static_cast<std::uint16_t>(run.size), 0, -1, nullptr};
    const Record record {"", input.size(), {&member, 1}};
    return element_text(record, member, std::as_bytes(std::span(input)).data(), 0, order);
}

// What the library sends of itself.
void add_what_no_argument_changes(std::vector<RequestField>& fields, const std::string& input, AddressOrder order)
{
    std::string rest = input;
    for (const RequestField& field : fields)
        rest.replace(field.offset, field.size, field.size, '\0');
    for (const Run& run : differences(rest, std::string(rest.size(), '\0')))
        fields.push_back({run.offset, run.size, "", value_at(input, run, Form::Bytes, order)});
}

std::string words_of(const Step& step)
{
    return std::string(step.verb ? step.verb->words : step.operation->name);
}

void print_as_text(const Issued& issued, std::string_view name, std::span<const RequestField> fields, Output& output)
{
    output.format("command {}", static_cast<std::uint32_t>(issued.number));
    if (!name.empty())
        output.format(", {}", name);
    output.format(", {} bytes", issued.input.size());
    if (issued.room > 0)
        output.format(", room for {}", issued.room);
    output.write("\n");
    std::size_t width = 1;
    for (const RequestField& field : fields)
        width = std::max(width, field.name.size());
    for (const RequestField& field : fields)
        output.format("  {:>5}  {:{}}  {}\n", field.offset, field.name.empty() ? "-" : field.name, width, field.value);
}

void print_as_json(const Issued& issued, std::string_view name, std::span<const RequestField> fields,
    JsonWriter::Layout layout, Output& output)
{
    JsonWriter json(output, layout);
    json.begin_object();
    json.key("command");
    json.number(static_cast<std::uint32_t>(issued.number));
    if (!name.empty()) {
        json.key("operation");
        json.string(name);
    }
    json.key("fields");
    json.begin_array();
    for (const RequestField& field : fields) {
        json.begin_object();
        json.key("offset");
        json.number(field.offset);
        json.key("size");
        json.number(field.size);
        if (!field.name.empty()) {
            json.key("name");
            json.string(field.name);
        }
        json.key("value");
        json.string(field.value);
        json.end_object();
    }
    json.end_array();
    json.key("request");
    json.string(bytes_text(std::as_bytes(std::span(issued.input))));
    json.key("room");
    json.number(issued.room);
    json.end_object();
    output.write("\n");
}

void print_issued(const Issued& issued, std::string_view name, std::span<const RequestField> fields,
    const Manner& manner, Output& output)
{
    if (manner.raw)
        output.write(issued.input);
    else if (manner.style == Style::Text)
        print_as_text(issued, name, fields, output);
    else
        print_as_json(issued, name, fields,
            manner.style == Style::Json ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented, output);
}

} // namespace

std::vector<RequestField> fields_of(
    const Operation& operation, const Arguments& arguments, const Issued& issued, AddressOrder order)
{
    std::vector<RequestField> fields;
    for (const Piece& piece : pieces_of(operation, arguments))
        for (const Arguments& other : changed(operation, arguments, piece)) {
            const std::optional<Issued> differs = issued_by(operation, other);
            if (!differs || differs->number != issued.number)
                continue;
            const std::vector<Run> runs = differences(issued.input, differs->input);
            for (const Run& run : runs)
                fields.push_back({run.offset, run.size, piece.name, value_at(issued.input, run, piece.form, order)});
            if (!runs.empty())
                break;
        }
    add_what_no_argument_changes(fields, issued.input, order);
    std::ranges::sort(fields, {}, &RequestField::offset);
    return fields;
}

void show_requests(std::span<const Step> steps, const Manner& manner, Output& output)
{
    refuse_unknown_fields(*steps.back().operation, manner);
    for (const Step& step : steps) {
        const Operation& operation = *step.operation;
        const Arguments arguments = arguments_of(
            operation, step.given, step.verb ? Completeness::OrElseNothing : Completeness::Demanded, manner.order);
        const std::optional<Issued> issued = issued_by(operation, arguments);
        if (!issued)
            throw failure(words_of(step), operation.name, errno);
        print_issued(*issued, operation.name, fields_of(operation, arguments, *issued, manner.order), manner, output);
    }
    output.flush();
}

void show_command(const Issued& issued, const Manner& manner, Output& output)
{
    std::vector<RequestField> fields;
    add_what_no_argument_changes(fields, issued.input, manner.order);
    print_issued(issued, "", fields, manner, output);
    output.flush();
}

} // namespace tool
