#include "operations/reply.h"

#include <algorithm>

namespace operations {

namespace {

// A field of text: ends in NUL, zero after the first NUL.
void bound_text(Bytes& bytes, std::size_t offset, std::size_t width)
{
    const std::size_t end = std::min(bytes.find('\0', offset), offset + width - 1);
    for (std::size_t i = end; i < offset + width; ++i)
        bytes[i] = '\0';
}

void zero(Bytes& bytes, std::size_t offset, std::size_t width)
{
    for (std::size_t i = offset; i < offset + width; ++i)
        bytes[i] = '\0';
}

std::size_t counted_entries(const Table& table, const Bytes& reply)
{
    if (table.count.width == 0)
        return table.capacity;
    return std::min<std::size_t>(table.capacity, get(reply, table.count.offset, table.count.width));
}

bool lies_in(const Range& range, std::size_t offset)
{
    return offset - range.offset < range.width;
}

} // namespace

void put(Bytes& bytes, std::size_t offset, std::uint64_t value, std::size_t width)
{
    for (std::size_t i = 0; i < width; ++i)
        bytes.at(offset + i) = static_cast<char>(value >> (8 * i));
}

std::uint64_t get(const Bytes& bytes, std::size_t offset, std::size_t width)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < width; ++i)
        value |= static_cast<std::uint64_t>(static_cast<unsigned char>(bytes.at(offset + i))) << (8 * i);
    return value;
}

Bytes reply_record(const Layout& layout, std::size_t index)
{
    Bytes bytes(layout.size, '\0');
    for (std::size_t i = 0; i < layout.size; ++i)
        bytes[i] = static_cast<char>(1 + (i * 101 + index * 37 + i / 251) % 255);
    for (const Table& table : layout.tables)
        if (table.count.width != 0)
            put(bytes, table.count.offset, table.capacity, table.count.width);
    for (const Pinned& pinned : layout.pinned)
        put(bytes, pinned.offset, pinned.value, pinned.width);
    return bytes;
}

const Layout& layout_of(Few<Layout> layouts, const Bytes& reply)
{
    return *std::find_if(layouts.begin(), layouts.end(), [&](const Layout& layout) {
        return std::all_of(layout.pinned.begin(), layout.pinned.end(),
            [&](const Pinned& pinned) { return get(reply, pinned.offset, pinned.width) == pinned.value; });
    });
}

Bytes decoded(const Layout& layout, const Bytes& reply)
{
    Bytes bytes = reply;
    for (const Repeat& repeat : layout.repeated)
        bytes.replace(repeat.to, repeat.width, reply, repeat.from, repeat.width);
    for (const Text& text : layout.texts)
        bound_text(bytes, text.offset, text.width);
    for (const Range& range : layout.zeroed)
        zero(bytes, range.offset, range.width);
    for (const Table& table : layout.tables) {
        const std::size_t entries = counted_entries(table, reply);
        for (std::size_t i = 0; i < table.capacity; ++i) {
            const std::size_t at = table.offset + i * table.stride;
            if (i >= entries) {
                zero(bytes, at, table.stride);
                continue;
            }
            for (const Text& text : table.texts)
                bound_text(bytes, at + text.offset, text.width);
            for (const Range& range : table.zeroed)
                zero(bytes, at + range.offset, range.width);
        }
    }
    return bytes;
}

std::vector<Range> reached_from(const Layout& layout, const Bytes& reply, std::size_t offset)
{
    for (const Text& text : layout.texts)
        if (lies_in({text.offset, text.width}, offset))
            return {{text.offset, text.width}};
    for (const Range& range : layout.zeroed)
        if (lies_in(range, offset))
            return {};
    for (const Repeat& repeat : layout.repeated) {
        if (lies_in({repeat.to, repeat.width}, offset))
            return {};
        if (lies_in({repeat.from, repeat.width}, offset))
            return {{offset, 1}, {offset - repeat.from + repeat.to, 1}};
    }
    for (const Table& table : layout.tables) {
        const Range all {table.offset, table.stride * table.capacity};
        if (lies_in(table.count, offset))
            return {{offset, 1}, all};
        if (!lies_in(all, offset))
            continue;
        const std::size_t index = (offset - table.offset) / table.stride;
        if (index >= counted_entries(table, reply))
            return {};
        const std::size_t at = table.offset + index * table.stride;
        for (const Text& text : table.texts)
            if (lies_in({text.offset, text.width}, offset - at))
                return {{at + text.offset, text.width}};
        for (const Range& range : table.zeroed)
            if (lies_in(range, offset - at))
                return {};
    }
    return {{offset, 1}};
}

} // namespace operations
