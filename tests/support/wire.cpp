#include "support/wire.h"

namespace world {

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

} // namespace

Record& Record::text(std::size_t offset, std::string_view text)
{
    bytes_.replace(offset, text.size(), text);
    return *this;
}

Record& Record::number(std::size_t offset, std::uint64_t value, std::size_t width)
{
    put(bytes_, offset, value, width);
    return *this;
}

Bytes reply_record(const Layout& layout, std::size_t index)
{
    Bytes bytes(layout.size, '\0');
    for (std::size_t i = 0; i < layout.size; ++i)
        bytes[i] = static_cast<char>(1 + (i * 101 + index * 37 + i / 251) % 255);
    for (const Table& table : layout.tables)
        if (table.count.width != 0)
            put(bytes, table.count.offset, table.capacity, table.count.width);
    return bytes;
}

Bytes decoded(const Layout& layout, Bytes bytes)
{
    for (const Range& text : layout.texts)
        bound_text(bytes, text.offset, text.width);
    for (const Range& range : layout.zeroed)
        zero(bytes, range.offset, range.width);
    for (const Table& table : layout.tables) {
        std::size_t entries = table.capacity;
        if (table.count.width != 0)
            entries = std::min<std::size_t>(entries, get(bytes, table.count.offset, table.count.width));
        for (std::size_t i = 0; i < table.capacity; ++i) {
            const std::size_t at = table.offset + i * table.stride;
            if (i >= entries) {
                zero(bytes, at, table.stride);
                continue;
            }
            for (const Range& text : table.texts)
                bound_text(bytes, at + text.offset, text.width);
            for (const Range& range : table.zeroed)
                zero(bytes, at + range.offset, range.width);
        }
    }
    return bytes;
}

} // namespace world
