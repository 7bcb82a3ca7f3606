#include "tool/printer.h"

#include "tool/filter.h"
#include "tool/hex_dump.h"
#include "tool/json_writer.h"
#include "tool/members.h"
#include "tool/mistakes.h"
#include "tool/record_json.h"
#include "tool/records.h"
#include "tool/words.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tool {
namespace {

// How many columns of a terminal a text takes: one for each character.
std::size_t width_of(std::string_view text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }));
}

// At most so wide.
std::string shortened(const std::string& text, std::size_t width)
{
    if (width_of(text) <= width)
        return text;
    std::size_t end = 0;
    for (std::size_t characters = 0; end < text.size(); ++end) {
        const bool begins = (static_cast<unsigned char>(text[end]) & 0xc0) != 0x80;
        if (begins && ++characters == width)
            break;
    }
    return text.substr(0, end) + "…";
}

class Table
{
public:
    Table(
        const Records& records, std::vector<const Member*> members, std::vector<std::size_t> rows, const Manner& manner)
        : _records(records), _members(std::move(members)), _rows(std::move(rows)), _manner(manner)
    {
        for (const Member* const member : _members)
            _widths.push_back(width_of(member->name));
        for (const std::size_t row : _rows)
            for (std::size_t i = 0; i < _members.size(); ++i)
                _widths[i] = std::max(_widths[i], width_of(cell(row, i)));
        if (_manner.columns != 0 && !_manner.wide)
            fit();
    }

    void print(Output& output) const
    {
        if (_rows.empty())
            return;
        std::string head;
        for (std::size_t i = 0; i < _members.size(); ++i)
            head += padded(std::string(_members[i]->name), i);
        output.format("{}{}{}\n", _manner.bold ? "\x1b[1m" : "", head, _manner.bold ? "\x1b[0m" : "");
        for (const std::size_t row : _rows) {
            for (std::size_t i = 0; i < _members.size(); ++i)
                output.write(padded(cell(row, i), i));
            output.write("\n");
        }
    }

private:
    static constexpr std::size_t gap = 2;
    static constexpr std::size_t narrowest = 8;

    std::string cell(std::size_t row, std::size_t column) const
    {
        return member_text(*_records.record, *_members[column], _records[row], _manner.order);
    }

    std::string padded(const std::string& text, std::size_t column) const
    {
        std::string shown = shortened(text, _widths[column]);
        if (column + 1 < _members.size())
            shown.append(_widths[column] - width_of(shown) + gap, ' ');
        return shown;
    }

    std::size_t total() const
    {
        std::size_t sum = gap * (_widths.size() - 1);
        for (const std::size_t width : _widths)
            sum += width;
        return sum;
    }

    // First the widest become narrower, then the last are left out.
    void fit()
    {
        while (total() > _manner.columns) {
            const auto widest = std::ranges::max_element(_widths);
            const std::size_t excess = total() - _manner.columns;
            if (*widest > narrowest && (*widest - narrowest >= excess || _widths.size() == 1)) {
                *widest -= std::min(excess, *widest - narrowest);
            } else if (_widths.size() > 1) {
                _widths.pop_back();
                _members.pop_back();
            } else {
                return;
            }
        }
    }

    const Records& _records;
    std::vector<const Member*> _members;
    std::vector<std::size_t> _rows;
    const Manner& _manner;
    std::vector<std::size_t> _widths;
};

struct NamedText
{
    std::string name;
    std::string text;
};

// A member, or each of several records, or of many counters those that have counted.
void add_texts(std::vector<NamedText>& texts, const Records& records, const Member& member, AddressOrder order)
{
    constexpr std::size_t many = 16;
    const Record& record = *records.record;
    const std::byte* const data = records[0];
    const bool are_records = member.form == Form::Records && member.length > 0;
    if (member.length <= many && !are_records) {
        texts.push_back({std::string(member.name), member_text(record, member, data, order)});
        return;
    }
    const std::size_t count = elements_in_use(record, member, data);
    for (std::size_t i = 0; i < count; ++i)
        if (std::string text = element_text(record, member, data, i, order); are_records || text != "0")
            texts.push_back({fmt::format("{}[{}]", member.name, i), std::move(text)});
}

void print_members(Output& output, const Records& records, std::span<const Member* const> members, const Manner& manner)
{
    std::vector<NamedText> texts;
    for (const Member* const member : members)
        add_texts(texts, records, *member, manner.order);
    std::size_t width = 0;
    for (const NamedText& shown : texts)
        width = std::max(width, shown.name.size());
    for (const NamedText& shown : texts)
        output.format("{:{}}  {}\n", shown.name, width, shown.text);
}

JsonWriter::Layout layout_of(const Manner& manner)
{
    return manner.style == Style::IndentedJson ? JsonWriter::Layout::Indented : JsonWriter::Layout::OneLine;
}

std::string value_text(const Operation& operation, const Reply& reply, AddressOrder order)
{
    return operation.form == Form::Ipv4 ? ipv4_text(reply.value(), order) : fmt::format("{}", reply.value());
}

// What is no record: one thing under its name.
void print_result_as_json(Output& output, const Operation& operation, const Reply& reply, const Manner& manner)
{
    JsonWriter json(output, layout_of(manner));
    json.begin_object();
    if (operation.answer != Answer::Nothing)
        json.key(operation.result);
    if (operation.answer == Answer::Value && operation.form != Form::Ipv4)
        json.number(reply.value());
    else if (operation.answer == Answer::Value)
        json.string(value_text(operation, reply, manner.order));
    else if (operation.answer != Answer::Nothing)
        json.string(operation.form == Form::Mac ? mac_text(reply.data()) : bytes_text(reply.bytes()));
    json.end_object();
    output.write("\n");
}

void print_result(Output& output, const Operation& operation, const Reply& reply, const Manner& manner)
{
    if (manner.raw)
        return output.write({reinterpret_cast<const char*>(reply.data()), reply.size()});
    if (manner.style != Style::Text)
        return print_result_as_json(output, operation, reply, manner);
    if (operation.answer == Answer::Value)
        output.format("{}\n", value_text(operation, reply, manner.order));
    else if (operation.form == Form::Mac)
        output.format("{}\n", mac_text(reply.data()));
    else if (operation.answer != Answer::Nothing)
        print_bytes(output, reply.bytes());
}

std::vector<Filter> filters_of(const Record& record, const Manner& manner)
{
    std::vector<Filter> filters;
    for (const std::string& condition : manner.filters)
        filters.emplace_back(condition, record, manner.order);
    return filters;
}

std::vector<std::size_t> rows_to_show(const Records& records, const Manner& manner)
{
    const std::vector<Filter> filters = filters_of(*records.record, manner);
    std::vector<std::size_t> rows;
    for (std::size_t i = 0; i < records.count; ++i)
        if (std::ranges::all_of(filters, [&](const Filter& filter) { return filter.matches(records[i]); }))
            rows.push_back(i);
    return rows;
}

void print_records(Output& output, const Records& records, const Manner& manner, std::string_view usual_fields)
{
    const Record& record = *records.record;
    const bool is_json = manner.style != Style::Text;
    const bool are_all = manner.fields.empty() && (is_json || manner.wide || usual_fields.empty());
    const auto members = are_all
                             ? all_members(record)
                             : members_named(record, split(manner.fields.empty() ? usual_fields : manner.fields, ','));
    const std::vector<std::size_t> rows = rows_to_show(records, manner);
    if (!is_json && records.are_a_list)
        return Table(records, members, rows, manner).print(output);
    // One that does not fulfil the conditions is none.
    if (!records.are_a_list && rows.empty())
        return;
    if (!is_json)
        return print_members(output, records, members, manner);

    JsonWriter json(output, layout_of(manner));
    if (records.are_a_list)
        json.begin_array();
    for (const std::size_t row : rows)
        write_record(json, record, members, records[row], manner.order);
    if (records.are_a_list)
        json.end_array();
    output.write("\n");
}

} // namespace

void refuse_unknown_fields(const Operation& operation, const Manner& manner)
{
    if (const Record* const record = record_of(operation)) {
        members_named(*record, split(manner.fields, ','));
        filters_of(*record, manner);
    } else if (!manner.fields.empty() || !manner.filters.empty()) {
        throw Misuse(fmt::format("the answer of {} has no fields", operation.name));
    }
}

void refuse_bytes_of_others(const Operation& operation, const Manner& manner)
{
    if (manner.raw && operation.answer != Answer::Bytes)
        throw Misuse(fmt::format("the answer of {} is not mere bytes", operation.name));
}

void print(
    Output& output, const Operation& operation, const Reply& reply, const Manner& manner, std::string_view usual_fields)
{
    const std::optional<Records> records = manner.raw ? std::nullopt : records_of(operation, reply);
    if (records)
        print_records(output, *records, manner, usual_fields);
    else
        print_result(output, operation, reply, manner);
}

} // namespace tool
