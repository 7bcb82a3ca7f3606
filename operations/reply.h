// Replies made for a layout, and what must reach the caller of them.
#pragma once

#include "operations/layout.h"

#include <cstdint>
#include <string>
#include <vector>

namespace operations {

// Bytes of requests and replies. A std::string prints, compares and slices well.
using Bytes = std::string;

// Little-endian integers at literal offsets.
void put(Bytes& bytes, std::size_t offset, std::uint64_t value, std::size_t width);
std::uint64_t get(const Bytes& bytes, std::size_t offset, std::size_t width);

// A reply record in which no byte that is not pinned is zero and neighbouring records differ; tables are counted as
// full.
Bytes reply_record(const Layout& layout, std::size_t index);

// Of a record's layouts, the one that the reply has the pinned numbers of.
const Layout& layout_of(Few<Layout> layouts, const Bytes& reply);

// The caller's record for a reply record.
Bytes decoded(const Layout& layout, const Bytes& reply);

// Where in the caller's record a change of one byte of the reply may be seen. A range of one byte must change with it;
// of a longer range, any part may.
std::vector<Range> reached_from(const Layout& layout, const Bytes& reply, std::size_t offset);

} // namespace operations
