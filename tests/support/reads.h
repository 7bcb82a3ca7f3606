// What every single read and every list read must do, for the rows of the tables in reads_test.cpp.
#pragma once

#include "support/wire.h"

#include <gtest/gtest.h>

namespace world {

struct SingleRead
{
    std::string name;
    int command;
    Layout layout;
    Bytes request;
    std::function<std::int32_t(void** out)> read;
    std::function<std::int32_t(void* record)> release;
};

enum class Holder
{
    Freed,
    LeftAllocated
};
enum class Fragment
{
    Rejected,
    DecodedAsRecord
};

struct ListRead
{
    std::string name;
    int command;
    Layout layout;
    std::size_t cap;
    std::size_t room;
    Bytes request;
    std::function<std::int32_t(void** out)> read;
    std::function<std::int32_t(void* list)> release;
    Holder on_device_error = Holder::Freed;
    Fragment fragment = Fragment::Rejected;
};

// The functions of the header, with their typed pointers put aside.
template <class Read>
auto reading(Read read)
{
    return [read](void** out) { return read(out); };
}

template <class Type>
Type** as(void** out)
{
    return reinterpret_cast<Type**>(out);
}

template <class Type>
std::function<std::int32_t(void*)> releasing(std::int32_t (*release)(Type*))
{
    return [release](void* pointer) { return release(static_cast<Type*>(pointer)); };
}

inline void PrintTo(const SingleRead& row, std::ostream* out)
{
    *out << row.name;
}
inline void PrintTo(const ListRead& row, std::ostream* out)
{
    *out << row.name;
}

struct NameOfRow
{
    template <class Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const
    {
        return row.param.name;
    }
};

} // namespace world
