// Copies of texts between NUL-terminated strings and fields of fixed width.
#pragma once

#include <cstddef>
#include <cstring>

namespace lumo {

// Keeps at most width - 1 bytes: the field always ends in NUL, and what follows the first NUL is zero.
inline void copy_bounded(char* field, const char* text, std::size_t width)
{
    std::strncpy(field, text, width);
    field[width - 1] = '\0';
}

// Keeps width bytes: a text that fills the field is not terminated.
inline void copy_unterminated(char* field, const char* text, std::size_t width)
{
    std::strncpy(field, text, width);
}

} // namespace lumo
