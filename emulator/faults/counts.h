// The fields of replies that say how many there are of something.
#pragma once

#include "emulator/protocol/command.h"

#include <algorithm>

namespace emulator {

// Those that hold the number, by their names.
inline bool is_count(const protocol::Field& field, std::uint64_t number)
{
    return (field.name == "count" || field.name.ends_with("Count")) && field.kind == protocol::Kind::Number &&
           (field.width >= sizeof number || number >> (8 * field.width) == 0);
}

inline bool has_count(const protocol::Reply& reply, std::uint64_t number)
{
    const auto in = [number](const protocol::Layout& layout) {
        return std::any_of(layout.fields.begin(), layout.fields.end(),
            [number](const protocol::Field* field) { return is_count(*field, number); });
    };
    return in(reply.head) || in(reply.record);
}

} // namespace emulator
