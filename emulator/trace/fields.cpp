#include "emulator/trace/fields.h"

#include "emulator/state/json.h"
#include "emulator/state/notation.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

using Octets = std::span<const std::byte>;

constexpr std::byte zero {0};

bool is_zero(Octets bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](std::byte byte) { return byte == zero; });
}

template <class Value>
Value load(Octets bytes)
{
    Value value {};
    std::memcpy(&value, bytes.data(), std::min(sizeof value, bytes.size()));
    return value;
}

// Appends what JSON has in quotes.
void append_word(std::string& out, TraceFormat format, std::string_view word)
{
    const std::string_view quote = format == TraceFormat::Json ? "\"" : "";
    out.append(quote).append(word).append(quote);
}

std::int64_t signed_number(Octets bytes)
{
    const auto unused = static_cast<unsigned>(8 * (sizeof(std::int64_t) - bytes.size()));
    return static_cast<std::int64_t>(load<std::uint64_t>(bytes) << unused) >> unused;
}

// To people, many zeros in the end are shown as how many there are.
void append_bytes(std::string& out, TraceFormat format, Octets bytes)
{
    constexpr std::size_t many = 8;
    const auto last = std::find_if(bytes.rbegin(), bytes.rend(), [](std::byte byte) { return byte != zero; });
    const auto zeros = static_cast<std::size_t>(last - bytes.rbegin());
    if (format == TraceFormat::Json || zeros < many) {
        append_word(out, format, notation::of_bytes(bytes));
        return;
    }
    out.append(notation::of_bytes(bytes.first(bytes.size() - zeros))).append("(00*");
    append_number(out, zeros);
    out.push_back(')');
}

// Entries of zeros in the end are left out.
void append_table(std::string& out, TraceFormat format, const Layout& entry, Octets bytes)
{
    std::size_t used = bytes.size() / entry.size;
    while (used > 0 && is_zero(bytes.subspan((used - 1) * entry.size, entry.size)))
        --used;
    out.push_back('[');
    for (std::size_t i = 0; i < used; ++i) {
        if (i > 0)
            out.append(format == TraceFormat::Json ? "," : ", ");
        append_record(out, format, entry, bytes.subspan(i * entry.size, entry.size));
    }
    out.push_back(']');
}

} // namespace

void append_value(std::string& out, TraceFormat format, const Field& field, Octets bytes)
{
    switch (field.kind) {
    case Kind::Text: {
        const auto* const begin = reinterpret_cast<const char*>(bytes.data());
        json::append_text(out, {begin, std::find(begin, begin + bytes.size(), '\0')});
        break;
    }
    case Kind::Number:
        append_number(out, load<std::uint64_t>(bytes));
        break;
    case Kind::SignedNumber:
        append_number(out, signed_number(bytes));
        break;
    case Kind::Ipv4:
        append_word(out, format, notation::of_ipv4(load<std::uint32_t>(bytes)));
        break;
    case Kind::Ipv6:
        append_word(out, format, notation::of_ipv6(load<Ipv6Address>(bytes)));
        break;
    case Kind::Mac:
        append_word(out, format, notation::of_mac(load<MacAddress>(bytes)));
        break;
    case Kind::Flag:
        out.append(is_zero(bytes) ? "false" : "true");
        break;
    case Kind::Bytes:
        append_bytes(out, format, bytes);
        break;
    case Kind::Table:
        append_table(out, format, *field.entry, bytes);
        break;
    }
}

void append_fields(std::string& out, TraceFormat format, const Layout& layout, Octets bytes)
{
    const bool is_json = format == TraceFormat::Json;
    const char* separator = "";
    for (const Field* field : layout.fields) {
        out.append(separator);
        append_word(out, format, field->name);
        out.push_back(is_json ? ':' : '=');
        append_value(out, format, *field, bytes.subspan(field->offset, field->width));
        separator = is_json ? "," : ", ";
    }
}

void append_record(std::string& out, TraceFormat format, const Layout& layout, Octets bytes)
{
    if (layout.fields.size() == 1 && layout.fields[0]->name.empty()) {
        append_value(out, format, *layout.fields[0], bytes);
        return;
    }
    out.push_back('{');
    append_fields(out, format, layout, bytes);
    out.push_back('}');
}

void append_digits(std::string& out, std::uint64_t number, std::size_t digits)
{
    const std::size_t begin = out.size();
    out.append(digits, '0');
    for (std::size_t at = begin + digits; at > begin; number /= 10)
        out[--at] = static_cast<char>('0' + number % 10);
}

} // namespace emulator
