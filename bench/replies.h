// Replies as a module in use gives them.
#pragma once

#include "operations/operation.h"

#include <cstddef>
#include <vector>

namespace bench {

// A text of 8 to 14 bytes, or of 36, in a field of zeros.
void put_text(char* field, std::size_t width, operations::Usually what, std::size_t index);

// What the records hold beside counts and texts is arbitrary. One or two entries of each table are in use.
std::vector<char> reply_of(const operations::Operation& operation, std::size_t records);

} // namespace bench
