// Copies of texts between NUL-terminated strings and fields of fixed width.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace lumo {

// A caller's string into a zeroed field. Keeps at most width - 1 bytes: the field always ends in NUL, and what follows
// the first NUL is zero.
inline void copy_bounded(char* field, const char* text, std::size_t width)
{
    std::memcpy(field, text, strnlen(text, width - 1));
}

// Keeps width bytes: a text that fills the field is not terminated.
inline void copy_unterminated(char* field, const char* text, std::size_t width)
{
    std::memcpy(field, text, strnlen(text, width));
}

// A field of a reply, all of which can be read, into a zeroed field of the same width, as copy_bounded. Most texts end
// early, and eight bytes at a time are faster than a call.
template <std::size_t Width>
inline void copy_field(char* to, const char* from)
{
    static_assert(std::endian::native == std::endian::little, "the first of eight bytes is the lowest");
    constexpr uint64_t lowest_bits = 0x0101010101010101;
    for (std::size_t at = 0; at < Width - 1; at += sizeof(uint64_t)) {
        const std::size_t length = std::min(sizeof(uint64_t), Width - 1 - at);
        uint64_t bytes = 0;
        std::memcpy(&bytes, from + at, length);
        // The lowest of these bits belongs to the first NUL.
        const uint64_t nuls = (bytes - lowest_bits) & ~bytes & (lowest_bits << 7);
        if (nuls != 0) {
            bytes &= (nuls & (~nuls + 1)) - 1;
            std::memcpy(to + at, &bytes, length);
            return;
        }
        std::memcpy(to + at, &bytes, length);
    }
}

} // namespace lumo
