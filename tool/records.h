// The records that an operation answered with.
#pragma once

#include "tool/description.h"
#include "tool/reply.h"

#include <cstddef>
#include <optional>

namespace tool {

// Where they lie.
struct Records
{
    const Record* record;
    const std::byte* first;
    std::size_t count;
    bool are_a_list;

    const std::byte* operator[](std::size_t i) const { return first + i * record->size; }
};

// Nothing if nobody knows what the bytes are.
std::optional<Records> records_of(const Operation& operation, const Reply& reply);
// What they are; null if nobody knows.
const Record* record_of(const Operation& operation);

} // namespace tool
