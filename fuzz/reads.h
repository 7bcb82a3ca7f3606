// What the reads of all shapes have in common: rows, and the records that they decode.
#pragma once

#include "system.h"

#include "support/layouts.h"

#include <functional>
#include <type_traits>

namespace fuzz {

template <class Row>
const Row& choose(const std::vector<Row>& rows, Input& input)
{
    const Row& row = rows[input.byte() % rows.size()];
    now_reading(row.name);
    return row;
}

// A function of the header that stores a pointer, with the pointer's type put aside.
template <class Type, class Read>
std::function<std::int32_t(void**)> storing(Read read)
{
    return [read](void** out) {
        Type* typed = static_cast<Type*>(*out);
        const std::int32_t result = read(&typed);
        *out = typed;
        return result;
    };
}

template <class Type>
std::function<std::int32_t(void*)> releasing(std::int32_t (*release)(Type*))
{
    return [release](void* pointer) { return release(static_cast<Type*>(pointer)); };
}

// Compares the record that lies there with what must arrive of the reply's record. Of a record that has kinds, the
// layout is the first whose numbers the reply has.
void expect_record(const std::vector<world::Layout>& layouts, const void* record, const std::string& reply);

inline std::vector<world::Layout> one_of(const world::Layout& layout)
{
    return {layout};
}

} // namespace fuzz
