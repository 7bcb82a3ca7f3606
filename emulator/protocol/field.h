// The kinds of fields that requests and records are made of. A field is an object that says where its bytes lie and
// what it is called, and that reads and writes them. What it says can also be looked at without its type, as a Field.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace emulator::protocol {

// All integers are in the byte order of the host, and the host's is this.
static_assert(std::endian::native == std::endian::little);

enum class Kind
{
    Text,
    Number,
    SignedNumber,
    Ipv4, // an address or a mask, as the caller holds it
    Ipv6,
    Mac,
    Flag,
    Bytes,
    Table
};

struct Layout;

struct Field
{
    std::string_view name; // that of the parameter or member in the public header, where it has one
    std::size_t offset;    // from the beginning of the input, record or entry in which the field lies
    std::size_t width;
    Kind kind;
    const Layout* entry = nullptr; // only of a table: what each of its entries is
};

// A value whose bytes lie in the field as they do in memory.
template <class Type, Kind Of>
struct Plain : Field
{
    using Value = Type;
    using Written = const Type&;

    constexpr Plain(std::string_view called, std::size_t at) : Field {called, at, sizeof(Type), Of} {}

    static Value load(const std::byte* from)
    {
        Value value;
        std::memcpy(&value, from, sizeof value);
        return value;
    }

    static void store(std::byte* to, Written value) { std::memcpy(to, &value, sizeof value); }
};

using U8 = Plain<std::uint8_t, Kind::Number>;
using U16 = Plain<std::uint16_t, Kind::Number>;
using U32 = Plain<std::uint32_t, Kind::Number>;
using U64 = Plain<std::uint64_t, Kind::Number>;
using I32 = Plain<std::int32_t, Kind::SignedNumber>;
using Ipv4 = Plain<std::uint32_t, Kind::Ipv4>;
using Ipv6 = Plain<std::array<std::byte, 16>, Kind::Ipv6>;
using Mac = Plain<std::array<std::byte, 6>, Kind::Mac>;
template <std::size_t Width>
using Bytes = Plain<std::array<std::byte, Width>, Kind::Bytes>;

// The low 24 bits of a number.
struct U24 : Field
{
    using Value = std::uint32_t;
    using Written = std::uint32_t;

    constexpr U24(std::string_view called, std::size_t at) : Field {called, at, 3, Kind::Number} {}

    Value load(const std::byte* from) const
    {
        Value value = 0;
        std::memcpy(&value, from, width);
        return value;
    }

    void store(std::byte* to, Written value) const { std::memcpy(to, &value, width); }
};

// A number of which only zero or not matters.
struct Flag : Field
{
    using Value = bool;
    using Written = bool;

    constexpr Flag(std::string_view called, std::size_t at, std::size_t wide = 1) : Field {called, at, wide, Kind::Flag}
    {}

    Value load(const std::byte* from) const
    {
        return std::any_of(from, from + width, [](std::byte byte) { return byte != std::byte {0}; });
    }

    static void store(std::byte* to, Written value) { *to = std::byte {value}; }
};

// Read up to the first NUL or the field's end; written so that it ends in NUL.
struct Text : Field
{
    using Value = std::string;
    using Written = std::string_view;

    constexpr Text(std::string_view called, std::size_t at, std::size_t wide) : Field {called, at, wide, Kind::Text} {}

    Value load(const std::byte* from) const
    {
        const char* begin = reinterpret_cast<const char*>(from);
        return {begin, std::find(begin, begin + width, '\0')};
    }

    void store(std::byte* to, Written text) const { copy(to, text.substr(0, width - 1)); }

protected:
    static void copy(std::byte* to, std::string_view text)
    {
        std::copy(text.begin(), text.end(), reinterpret_cast<char*>(to));
    }
};

// Written into all of the field, without a NUL if need be.
struct UnterminatedText : Text
{
    using Text::Text;

    void store(std::byte* to, Written text) const { copy(to, text.substr(0, width)); }
};

// The type of what a field holds.
template <const auto& Named>
using ValueOf = typename std::remove_cvref_t<decltype(Named)>::Value;

} // namespace emulator::protocol
