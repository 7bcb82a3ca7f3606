// Replies as a module in use gives them.
#pragma once

#include "operations/operation.h"

#include <cstddef>
#include <vector>

namespace bench {

// What the module leaves in a text's field.
enum class Texts
{
    Tidy,     // zeros behind the text
    Untidy,   // anything behind its NUL
    Mixed,    // either, in no order
    AnyLength // a text of any length from none to the whole field, which has no NUL then, and anything behind it
};

// A text of 8 to 14 bytes, or of 36, in a field of zeros.
void put_text(char* field, std::size_t width, operations::Usually what, std::size_t index);

// What the records hold beside counts and texts is arbitrary. One or two entries of each table are in use.
std::vector<char> reply_of(const operations::Operation& operation, std::size_t records, Texts texts = Texts::Tidy);

} // namespace bench
