#include "shapes/replies.h"

#include <gtest/gtest.h>

namespace shapes {

using operations::decoded;
using operations::Pinned;
using operations::put;
using operations::Range;
using operations::reply_record;
using operations::Table;
using operations::Text;

namespace {

// A reply record whose texts end half-way and whose tables are not full.
Bytes sparse_record(const Layout& layout, std::size_t index)
{
    Bytes bytes = reply_record(layout, index);
    for (const Text& text : layout.texts)
        bytes[text.offset + text.width / 2] = '\0';
    for (const Table& table : layout.tables) {
        for (std::size_t i = 0; i < table.capacity; ++i)
            for (const Text& text : table.texts)
                bytes[table.offset + i * table.stride + text.offset + text.width / 2] = '\0';
        if (table.count.width != 0)
            put(bytes, table.count.offset, table.capacity / 2, table.count.width);
    }
    return bytes;
}

std::vector<Range> texts_of(const Layout& layout)
{
    std::vector<Range> texts;
    for (const Text& text : layout.texts)
        texts.push_back({text.offset, text.width});
    for (const Table& table : layout.tables)
        for (const std::size_t entry : {std::size_t {0}, table.capacity - 1})
            for (const Text& text : table.texts)
                texts.push_back({table.offset + entry * table.stride + text.offset, text.width});
    return texts;
}

bool is_pinned(const Layout& layout, std::size_t offset)
{
    for (const Pinned& pinned : layout.pinned)
        if (offset >= pinned.offset && offset < pinned.offset + pinned.width)
            return true;
    return false;
}

} // namespace

std::vector<std::uint64_t> counts_for(const Table& table)
{
    const unsigned bits = 8 * static_cast<unsigned>(table.count.width);
    const std::uint64_t largest = (std::uint64_t {1} << bits) - 1;
    std::vector<std::uint64_t> counts;
    for (std::uint64_t count = 0; count <= (bits == 8 ? largest : table.capacity + 2); ++count)
        counts.push_back(count);
    for (unsigned bit = 7; bit < bits; ++bit)
        for (const std::uint64_t count : {(std::uint64_t {1} << bit) - 1, std::uint64_t {1} << bit})
            if (count > counts.back())
                counts.push_back(count);
    if (counts.back() != largest)
        counts.push_back(largest);
    return counts;
}

std::vector<Bytes> records_with_strays(const Layout& layout)
{
    Bytes clean = reply_record(layout, 1);
    for (const Range& text : texts_of(layout))
        clean.replace(text.offset, text.width, text.width, '\0');
    std::vector<Bytes> records;
    for (const Range& text : texts_of(layout)) {
        Bytes record = clean;
        for (std::size_t end = 0; end < text.width; ++end) {
            records.push_back(record);
            for (std::size_t stray = end + 1; stray < text.width; ++stray) {
                records.push_back(record);
                records.back()[text.offset + stray] = 'x';
            }
            record[text.offset + end] = 't';
        }
        records.push_back(record);
    }
    return records;
}

std::vector<Change> changes_of(const Layout& layout)
{
    std::vector<Change> changes;
    for (const Bytes& before : {reply_record(layout, 0), sparse_record(layout, 1)})
        for (std::size_t offset = 0; offset < layout.size; ++offset)
            for (const char byte : {static_cast<char>(before[offset] ^ 0x80), '\0'}) {
                if (byte == before[offset] || is_pinned(layout, offset))
                    continue;
                Bytes after = before;
                after[offset] = byte;
                changes.push_back({before, after, offset});
            }
    return changes;
}

void expect_reached(const Layout& layout, const Change& change, const Bytes& arrived)
{
    ASSERT_EQ(arrived, decoded(layout, change.after)) << "byte " << change.offset << " changed";
    Bytes expected = decoded(layout, change.before);
    for (const Range& range : operations::reached_from(layout, change.before, change.offset)) {
        if (range.width == 1) {
            ASSERT_NE(arrived[range.offset], expected[range.offset]) << "byte " << change.offset << " changed";
        }
        expected.replace(range.offset, range.width, arrived, range.offset, range.width);
    }
    ASSERT_EQ(arrived, expected) << "byte " << change.offset << " changed";
}

} // namespace shapes
