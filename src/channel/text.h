// Texts in fields of fixed width: a caller's strings on their way in, the module's on their way out.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#if defined __SSE2__
#include <emmintrin.h>
#elif defined __ARM_NEON
#include <arm_neon.h>
#else
#error "neither SSE2 nor Advanced SIMD"
#endif

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

inline void store(char* to, Block block)
{
    std::memcpy(to, &block, sizeof block);
}

// Which of the bytes are NUL: a bit for each, the first in the lowest. At most four blocks.
template <std::size_t Count>
[[gnu::always_inline]] inline uint64_t nuls_of(const Block (&blocks)[Count])
{
    constexpr Block nul {};
#ifdef __SSE2__
    uint64_t nuls = 0;
#pragma GCC unroll 4
    for (std::size_t i = 0; i < Count; ++i)
        nuls |= uint64_t {static_cast<uint32_t>(_mm_movemask_epi8(reinterpret_cast<__m128i>(blocks[i] == nul)))}
                << (16 * i);
    return nuls;
#else
    // Each byte keeps the bit of its place among eight; three rounds of adding neighbours make a byte of eight.
    constexpr uint8x16_t places {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
    uint8x16_t bits[4] {};
#pragma GCC unroll 4
    for (std::size_t i = 0; i < Count; ++i)
        bits[i] = reinterpret_cast<uint8x16_t>(blocks[i] == nul) & places;
    const uint8x16_t pairs = vpaddq_u8(vpaddq_u8(bits[0], bits[1]), vpaddq_u8(bits[2], bits[3]));
    return vgetq_lane_u64(vreinterpretq_u64_u8(vpaddq_u8(pairs, pairs)), 0);
#endif
}

// Masks for what a text keeps of its field: that of a text of n bytes begins n bytes before the middle.
constexpr std::size_t longest_part = 64;
using Masks = std::array<char, 2 * longest_part>;

consteval Masks kept_then_cleared()
{
    Masks filled {};
    std::fill_n(filled.begin(), longest_part, '\xff');
    return filled;
}

inline constexpr Masks masks = kept_then_cleared();

// Moves a text from a field of a reply to one that must hold what copy_bounded would leave there: a NUL after the text,
// and zeros behind it, whatever the module has left there. Takes the same path for every content: a branch on what the
// module sent would be mispredicted as often as its records differ. Parts of 64 bytes; the text may have ended in an
// earlier one.
template <std::size_t Width, std::size_t Begin = 0>
[[gnu::always_inline]] inline void move_text(char* to, const char* from, bool ended = false)
{
    constexpr std::size_t rest = Width - Begin;
    constexpr std::size_t count = std::min(rest, longest_part) / sizeof(Block);
    constexpr std::size_t part = count * sizeof(Block);
    static_assert(rest - part <= 1 || part == longest_part);

    Block blocks[count];
#pragma GCC unroll 4
    for (std::size_t i = 0; i < count; ++i)
        blocks[i] = load(from + Begin + i * sizeof(Block));
    // Where the text ends at the latest. Of 64 bytes without a NUL, it is what counting zeros gives.
    constexpr std::size_t last = part == rest ? part - 1 : part;
    const uint64_t nuls = nuls_of(blocks) | (last < 64 ? uint64_t {1} << last : 0) | uint64_t {ended};
    const auto length = static_cast<uint32_t>(std::countr_zero(nuls));
    const char* mask = masks.data() + longest_part - length;
    asm("" : "+r"(mask)); // One address for all four: the compiler would compute each.
#pragma GCC unroll 4
    for (std::size_t i = 0; i < count; ++i)
        store(to + Begin + i * sizeof(Block), blocks[i] & load(mask + i * sizeof(Block)));
    if constexpr (rest == part + 1)
        to[Width - 1] = '\0';
    else if constexpr (rest > part)
        move_text<Width, Begin + part>(to, from, nuls != 0);
}

// A size that the compiler does not know, so that it calls memcpy or memset: beyond 64 bytes that is faster than what it
// puts in their place.
inline std::size_t unknown(std::size_t size)
{
    asm("" : "+r"(size));
    return size;
}

} // namespace lumo
