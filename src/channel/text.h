// Texts in fields of fixed width: a caller's strings on their way in, the module's on their way out.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

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

// Sixteen bytes at a time, by whatever the machine has for that.
using Block [[gnu::vector_size(16)]] = char;

inline Block load(const char* from)
{
    Block block;
    std::memcpy(&block, from, sizeof block);
    return block;
}

inline bool is_zero(Block block)
{
    uint64_t halves[2];
    std::memcpy(halves, &block, sizeof halves);
    return (halves[0] | halves[1]) == 0;
}

// What stands directly behind a NUL: zero if nothing does. Looks at seventeen bytes.
inline Block behind_nul(const char* from)
{
    constexpr Block nul {};
    return (load(from) == nul) & load(from + 1);
}

// The union of what Look sees in the blocks that make up so many bytes. The last one overlaps the one before it if the
// bytes are no multiple.
template <std::size_t Width, Block Look(const char*)>
[[gnu::always_inline]] inline Block over(const char* from)
{
    static_assert(Width >= sizeof(Block));
    return [from]<std::size_t... Index>(std::index_sequence<Index...>)
    {
        return (Look(from + std::min(Index * sizeof(Block), Width - sizeof(Block))) | ...);
    }
    (std::make_index_sequence<(Width + sizeof(Block) - 1) / sizeof(Block)> {});
}

// Whether a field of a reply is a text as it must reach the caller: there is a NUL, and nothing behind the first one.
template <std::size_t Width>
[[gnu::always_inline]] inline bool is_bounded(const char* field)
{
    // In a wide field, a text that fills more than half of it is rare.
    constexpr std::size_t half = (Width / 2 + sizeof(Block) - 1) / sizeof(Block) * sizeof(Block);
    if constexpr (Width > 64) {
        if (field[half - 1] == '\0')
            return is_zero(over<half - 1, behind_nul>(field) | over<Width - half, load>(field + half));
    }
    return is_zero(over<Width - 1, behind_nul>(field)) && field[Width - 1] == '\0';
}

// Makes it one if it is not, like copy_bounded.
[[gnu::cold, gnu::noinline]] inline void bound(char* field, std::size_t width)
{
    const std::size_t length = strnlen(field, width - 1);
    std::memset(field + length, 0, width - length);
}

// A size that the compiler does not know, so that it calls memcpy or memset: for hundreds of bytes that is faster than
// what it puts in their place.
inline std::size_t unknown(std::size_t size)
{
    asm("" : "+r"(size));
    return size;
}

} // namespace lumo
