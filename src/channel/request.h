// The request record: the input of nearly every command, and the typed fields that operations put into it.
#pragma once

#include "channel/text.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace lumo {

inline constexpr std::size_t request_size = 776;

// The bytes of the record that belong to one field.
template <std::size_t Offset, std::size_t Width>
struct Extent
{
    static_assert(Width > 0 && Offset + Width <= request_size, "a field lies inside the request record");
    static constexpr std::size_t begin = Offset;
    static constexpr std::size_t end = Offset + Width;
};

// A field that is copied from where the caller's pointer points, in the way that Copy says.
template <std::size_t Offset, std::size_t Width, class Pointer, auto Copy>
struct CopiedField
{
    struct Value : Extent<Offset, Width>
    {
        Pointer from;
        void store(char* record) const { Copy(record + Offset, from, Width); }
    };
    struct OptionalValue : Extent<Offset, Width>
    {
        Pointer from;
        void store(char* record) const
        {
            if (from != nullptr)
                Copy(record + Offset, from, Width);
        }
    };

    constexpr Value operator()(Pointer from) const { return {{}, from}; }
    // Leaves the field zero when the pointer is null.
    constexpr OptionalValue if_given(Pointer from) const { return {{}, from}; }
};

template <std::size_t Offset, std::size_t Width>
using Text = CopiedField<Offset, Width, const char*, copy_bounded>;

template <std::size_t Offset, std::size_t Width>
using RawText = CopiedField<Offset, Width, const char*, copy_unterminated>;

inline void copy_bytes(char* field, const void* bytes, std::size_t width)
{
    std::memcpy(field, bytes, width);
}

template <std::size_t Offset, std::size_t Width>
using Bytes = CopiedField<Offset, Width, const void*, copy_bytes>;

// An integer in host byte order. The argument has the field's own type: what is to be cut or extended is cast by the
// operation, where it can be seen.
template <std::size_t Offset, std::integral Type>
struct Number
{
    struct Value : Extent<Offset, sizeof(Type)>
    {
        Type value;
        void store(char* record) const { std::memcpy(record + Offset, &value, sizeof value); }
    };

    template <std::same_as<Type> Argument>
    constexpr Value operator()(Argument value) const
    {
        return {{}, value};
    }
};

// An integer that is the same in every request that has it. Stands among the fields of a request as it is.
template <std::size_t Offset, std::integral auto Constant>
struct Fixed : Extent<Offset, sizeof(decltype(Constant))>
{
    void store(char* record) const { std::memcpy(record + Offset, &value, sizeof value); }

private:
    static constexpr auto value = Constant;
};

// An IPv6 address: sixteen bytes that the caller holds in two words.
template <std::size_t Offset>
struct Words
{
    struct Value : Extent<Offset, 16>
    {
        uint64_t words[2];
        void store(char* record) const { std::memcpy(record + Offset, words, sizeof words); }
    };

    constexpr Value operator()(uint64_t first, uint64_t second) const { return {{}, {first, second}}; }
};

// As many bytes as a count of the caller's says, of which the record holds those that lie before its end. Width is the
// room that the module gives the field.
template <std::size_t Offset, std::size_t Width>
struct CountedBytes
{
    struct Value : Extent<Offset, Width>
    {
        const void* from;
        std::size_t length;
        void store(char* record) const
        {
            if (length > 0)
                std::memcpy(record + Offset, from, std::min(length, request_size - Offset));
        }
    };

    constexpr Value operator()(const void* from, std::size_t length) const { return {{}, from, length}; }
};

template <class... Fields>
consteval bool no_two_overlap()
{
    constexpr std::size_t count = sizeof...(Fields);
    constexpr std::array<std::size_t, count + 1> begin {Fields::begin..., 0};
    constexpr std::array<std::size_t, count + 1> end {Fields::end..., 0};
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (begin[i] < end[j] && begin[j] < end[i])
                return false;
    return true;
}

class Request
{
public:
    enum class Remainder
    {
        Uncleared
    };

    // Every byte that no field covers is zero.
    template <class... Fields>
    explicit Request(Fields... fields)
    {
        static_assert(no_two_overlap<Fields...>(), "two fields of one request overlap");
        std::memset(bytes_, 0, unknown(sizeof bytes_));
        (fields.store(bytes_), ...);
    }

    // Every byte that no field covers is what the stack held. The fields are zeroed: texts count on it.
    template <class... Fields>
    explicit Request(Remainder, Fields... fields)
    {
        static_assert(no_two_overlap<Fields...>(), "two fields of one request overlap");
        (std::memset(bytes_ + Fields::begin, 0, Fields::end - Fields::begin), ...);
        (fields.store(bytes_), ...);
    }

    const void* data() const { return bytes_; }

private:
    char bytes_[request_size];
};

} // namespace lumo
