// Replies of every kind that a module could send: every count, every end of a text, every byte changed.
#pragma once

#include "fake/system.h"

namespace shapes {

using operations::Bytes;
using operations::Layout;

// Thousands of calls to a test: of a room of megabytes, the records at its beginning are enough.
inline const fake::System guarded {.guarded_blocks = true, .kept_content = 4096};
inline const fake::System unguarded {.kept_content = 4096};

// All that a field of one byte can say. Of a wider one, the counts around the table's room and around what one, two and
// four bytes and their signs can say.
std::vector<std::uint64_t> counts_for(const operations::Table& table);

// Reply records of which one text ends early, at every place, and has at most one byte behind its end, at every place.
// All other texts are empty.
std::vector<Bytes> records_with_strays(const Layout& layout);

// A reply record of which one byte has been changed.
struct Change
{
    Bytes before;
    Bytes after;
    std::size_t offset;
};

// Every byte becomes another one and NUL, in a record without NULs and in one whose texts end early.
std::vector<Change> changes_of(const Layout& layout);

// The record that arrived of a changed reply differs from that of the unchanged one where the change reaches, and
// nowhere else.
void expect_reached(const Layout& layout, const Change& change, const Bytes& arrived);

} // namespace shapes
