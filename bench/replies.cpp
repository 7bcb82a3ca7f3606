#include "replies.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>

namespace bench {

namespace {

using namespace operations;

void put_number(char* at, std::uint64_t value, std::size_t width)
{
    std::memcpy(at, &value, width);
}

using Random = std::mt19937_64;

void put_field(char* field, std::size_t width, Usually what, std::size_t index, Texts texts, Random& random)
{
    put_text(field, width, what, index);
    if (texts == Texts::Tidy || (texts == Texts::Mixed && random() % 2 == 0))
        return;
    const std::size_t length = texts == Texts::AnyLength ? random() % (width + 1) : std::strlen(field);
    std::memset(field, 'n', length);
    std::memset(field + length, 0, width - length);
    for (std::size_t i = length + 1; i < width; ++i)
        field[i] = static_cast<char>(random());
}

void complete(char* record, const Layout& layout, std::size_t index, Texts texts, Random& random)
{
    for (const Text& text : layout.texts)
        put_field(record + text.offset, text.width, text.holds, index, texts, random);
    for (const Table& table : layout.tables) {
        if (table.count.width == 0)
            continue;
        const std::size_t entries = 1 + index % 2;
        put_number(record + table.count.offset, entries, table.count.width);
        for (std::size_t i = 0; i < table.capacity; ++i) {
            char* const entry = record + table.offset + i * table.stride;
            if (i >= entries)
                std::memset(entry, 0, table.stride);
            else
                for (const Text& text : table.texts)
                    put_field(entry + text.offset, text.width, text.holds, index + i, texts, random);
        }
    }
    for (const Pinned& pinned : layout.pinned)
        put_number(record + pinned.offset, pinned.value, pinned.width);
}

} // namespace

void put_text(char* field, std::size_t width, Usually what, std::size_t index)
{
    std::memset(field, 0, width);
    if (what == Usually::AUuid)
        std::snprintf(field, width, "%08zx-51b3-4f0e-9c1d-00005e0053%02zx", index, index % 256);
    else
        std::snprintf(field, width, index % 3 == 0 ? "uplink-%zu" : "lif-0000-%zu", index % 10000);
}

std::vector<char> reply_of(const Operation& operation, std::size_t records, Texts texts)
{
    // Of a record that has several layouts, the second is the fullest.
    const Layout& layout = operation.layouts.begin()[operation.layouts.size() > 1 ? 1 : 0];
    Random random(1);
    std::vector<char> reply(records * layout.size);
    for (std::size_t at = 0; at < reply.size(); at += sizeof(std::uint64_t)) {
        const std::uint64_t word = random();
        std::memcpy(reply.data() + at, &word, std::min(sizeof word, reply.size() - at));
    }
    for (std::size_t i = 0; i < records; ++i)
        complete(reply.data() + i * layout.size, layout, i, texts, random);
    return reply;
}

} // namespace bench
