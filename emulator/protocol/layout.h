// Layouts: which fields lie in an input, in a record or in the entry of a table. They are checked when they are
// compiled.
#pragma once

#include "emulator/protocol/field.h"

#include <span>

namespace emulator::protocol {

// Called only while a layout is compiled, where it stops the compiler: none has a body.
void a_field_lies_outside();
void fields_overlap_or_are_out_of_order();
void two_fields_have_one_name();

// No two fields of a layout share bytes.
struct Layout
{
    std::size_t size = 0;
    std::span<const Field* const> fields {};

    constexpr Layout() = default;
    consteval Layout(std::size_t bytes, std::span<const Field* const> in_order) : size(bytes), fields(in_order)
    {
        std::size_t end = 0;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            if (fields[i]->offset < end)
                fields_overlap_or_are_out_of_order();
            end = fields[i]->offset + fields[i]->width;
            if (fields[i]->width == 0 || end > size)
                a_field_lies_outside();
            for (std::size_t j = 0; j < i; ++j)
                if (fields[i]->name == fields[j]->name)
                    two_fields_have_one_name();
        }
    }
};

template <const auto&... Named>
inline constexpr std::array<const Field*, sizeof...(Named)> pointers {&Named...};

// The fields, in the order in which they lie, in so many bytes.
template <std::size_t Size, const auto&... Named>
inline constexpr Layout fields_in {Size, pointers<Named...>};

// An input or a record that is one field.
template <const auto& Named>
inline constexpr Layout bare = fields_in<Named.width, Named>;

// Entries of one layout, one after the other.
struct Table : Field
{
    constexpr Table(std::string_view called, std::size_t at, const Layout& each, std::size_t entries)
        : Field {called, at, each.size * entries, Kind::Table, &each}
    {}
};

// The layout of entries that are bare values.
template <class Typed>
inline constexpr Typed element {"", 0};
template <class Typed>
inline constexpr Layout elements = bare<element<Typed>>;

} // namespace emulator::protocol
