// The records of replies, by literal offsets: what of each reaches the caller.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace operations {

// In a constant, what it lists lives as long as the constant.
template <class Type>
using Few = std::initializer_list<Type>;

struct Range
{
    std::size_t offset;
    std::size_t width;
};

// What modules in use write into a text.
enum class Usually
{
    AName,
    AUuid
};

// A field of text: ends in NUL, zero after the first NUL.
struct Text
{
    std::size_t offset;
    std::size_t width;
    Usually holds;
};

struct Table
{
    std::size_t offset;
    std::size_t stride;
    std::size_t capacity;
    Range count; // width 0: every entry counts
    Few<Text> texts {};
    Few<Range> zeroed {};
};

// Bytes that arrive a second time, in the place of others.
struct Repeat
{
    std::size_t from;
    std::size_t to;
    std::size_t width;
};

// A number that makes the record one of this layout.
struct Pinned
{
    std::size_t offset;
    std::size_t width;
    std::uint64_t value;
};

// Every byte that is not named here reaches the caller as it stands.
struct Layout
{
    std::size_t size;
    Few<Text> texts {};
    Few<Range> zeroed {};
    Few<Table> tables {};
    Few<Repeat> repeated {};
    Few<Pinned> pinned {};
    const char* name = ""; // where a record has several
};

} // namespace operations
