// Layouts of reply records. A layout is a list of rules, one per row of the record's wire table; it is checked when it
// is compiled and becomes straight-line moves.
#pragma once

#include "channel/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace lumo {

// A member of a public record. AT spells both of a member's facts by naming it once.
struct Member
{
    std::size_t offset;
    std::size_t width;
};

#define AT(type, member) (::lumo::Member {offsetof(type, member), sizeof(type::member)})

enum class Move
{
    Copy,
    Text,
    Skip,
    Table
};

using DecodeEntry = void (*)(char* to, const char* from);

struct Rule
{
    Move move;
    std::size_t to;   // offset in the caller's record
    std::size_t from; // offset in the reply
    std::size_t width;
    // Only for a table:
    std::size_t stride = 0;
    std::size_t count_at = 0;
    std::size_t count_width = 0; // 0: every entry counts
    DecodeEntry decode_entry = nullptr;
};

// Called only while a layout is compiled, where it stops the compiler: neither has a body.
void wire_offset_is_not_that_of_the_member();
void rules_do_not_tile_the_record();

constexpr Rule rule_at(Move move, std::size_t offset, Member member)
{
    if (offset != member.offset)
        wire_offset_is_not_that_of_the_member();
    return {move, offset, offset, member.width};
}

// The member's bytes as they stand.
consteval Rule copy(std::size_t offset, Member member)
{
    return rule_at(Move::Copy, offset, member);
}

// The same, from bytes that lie elsewhere in the reply.
consteval Rule copy_from(std::size_t source, std::size_t offset, Member member)
{
    Rule rule = rule_at(Move::Copy, offset, member);
    rule.from = source;
    return rule;
}

// A text: ends in NUL, with zero bytes after it, whatever the module sent.
consteval Rule text(std::size_t offset, Member member)
{
    return rule_at(Move::Text, offset, member);
}

// Bytes that never reach the caller.
consteval Rule skip(std::size_t offset, Member member)
{
    return rule_at(Move::Skip, offset, member);
}

template <std::size_t Count>
struct Layout
{
    std::array<Rule, Count> rules;
};

template <class Record>
consteval Layout<0> without_rules()
{
    static_assert(!std::is_same_v<Record, Record>, "the record has no layout: its family's records.h is not included");
    return {};
}

// The layout of a record, or of an entry of a table in one. Specialised beside each record's rules; without them a
// record must not be decoded.
template <class Record>
inline constexpr auto layout = without_rules<Record>();

template <class Record, class... Rules>
consteval Layout<sizeof...(Rules)> describe(Rules... rules)
{
    std::size_t end = 0;
    for (const Rule& rule : {rules...}) {
        if (rule.to != end)
            rules_do_not_tile_the_record();
        end += rule.width;
    }
    if (end != sizeof(Record))
        rules_do_not_tile_the_record();
    return {{rules...}};
}

// A gap so narrow is cheaper to copy along and to clear afterwards than to copy around.
inline constexpr std::size_t narrow_gap = 16;

constexpr bool is_wide_gap(const Rule& rule)
{
    return rule.move == Move::Skip && rule.width > narrow_gap;
}

// What is moved before the record is completed: texts and tables as such, everything else but wide gaps as copies, of
// which neighbours become one.
template <std::size_t Count>
consteval std::pair<std::array<Rule, Count>, std::size_t> merge(const Layout<Count>& layout)
{
    std::array<Rule, Count> moves {};
    std::size_t size = 0;
    for (Rule rule : layout.rules) {
        if (is_wide_gap(rule))
            continue;
        if (rule.move == Move::Skip)
            rule.move = Move::Copy;
        if (rule.move == Move::Copy && size > 0) {
            Rule& last = moves[size - 1];
            if (last.move == Move::Copy && last.to + last.width == rule.to && last.from + last.width == rule.from) {
                last.width += rule.width;
                continue;
            }
        }
        moves[size++] = rule;
    }
    return {moves, size};
}

template <class Record>
inline constexpr auto moves = merge(layout<Record>);

// A record that reaches the caller byte for byte.
template <class Record>
inline constexpr bool is_plain = std::ranges::all_of(layout<Record>.rules, [](const Rule& rule) {
    return rule.move == Move::Copy;
}) && moves<Record>.second == 1;

template <std::size_t Width>
std::size_t load_count(const char* from)
{
    static_assert(Width == 1 || Width == 2 || Width == 4);
    uint32_t count = 0;
    std::memcpy(&count, from, Width);
    return count;
}

template <class Record, std::size_t Index>
inline void apply(char* to, const char* from)
{
    constexpr Rule rule = moves<Record>.first[Index];
    if constexpr (rule.move == Move::Copy) {
        constexpr std::size_t longest_inline = 256;
        std::memcpy(to + rule.to, from + rule.from, rule.width > longest_inline ? unknown(rule.width) : rule.width);
    } else if constexpr (rule.move == Move::Text) {
        move_text<rule.width>(to + rule.to, from + rule.from);
    } else {
        // A count larger than the table is passed on as it stands, but moves nothing beyond the table.
        std::size_t entries = rule.width / rule.stride;
        if constexpr (rule.count_width != 0)
            entries = std::min(entries, load_count<rule.count_width>(from + rule.count_at));
        for (std::size_t at = 0; at < entries * rule.stride; at += rule.stride)
            rule.decode_entry(to + rule.to + at, from + rule.from + at);
    }
}

// Clears the narrow gaps that were copied along.
template <class Record, std::size_t Index>
inline void clear_gap(char* to)
{
    constexpr Rule rule = layout<Record>.rules[Index];
    if constexpr (rule.move == Move::Skip && !is_wide_gap(rule))
        std::memset(to + rule.to, 0, rule.width);
}

// Decodes one record of the reply into zeroed memory.
template <class Record>
[[gnu::always_inline]] inline void decode(char* to, const char* from)
{
    [=]<std::size_t... Index>(std::index_sequence<Index...>) __attribute__((always_inline))
    {
        (apply<Record, Index>(to, from), ...);
    }
    (std::make_index_sequence<moves<Record>.second> {});
    [=]<std::size_t... Index>(std::index_sequence<Index...>) __attribute__((always_inline))
    {
        (clear_gap<Record, Index>(to), ...);
    }
    (std::make_index_sequence<layout<Record>.rules.size()> {});
}

// A table of entries that have a layout of their own. Only the first count of them are decoded, where count is a member
// of the record, read from the reply; without it, all are.
template <class Entry>
consteval Rule table(std::size_t offset, Member member, Member count = {0, 0})
{
    Rule rule = rule_at(Move::Table, offset, member);
    if (rule.width % sizeof(Entry) != 0)
        rules_do_not_tile_the_record();
    rule.stride = sizeof(Entry);
    rule.count_at = count.offset;
    rule.count_width = count.width;
    rule.decode_entry = decode<Entry>;
    return rule;
}

} // namespace lumo
