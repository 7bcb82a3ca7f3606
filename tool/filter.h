// Conditions on the members of records, as people write them: routeMask==255.255.255.0
#pragma once

#include "tool/description.h"
#include "tool/values.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tool {

class Filter
{
public:
    // Throws Misuse if it is not a condition on a member of the record.
    Filter(std::string_view condition, const Record& record, AddressOrder order);

    bool matches(const std::byte* record) const;

private:
    // In the order in which their symbols are looked for.
    enum class Relation
    {
        Equal,
        Unequal,
        AtMost,
        AtLeast,
        Less,
        Greater,
        Containing
    };
    bool holds(std::strong_ordering found) const;

    const Record* _record;
    const Member* _member;
    Relation _relation;
    AddressOrder _order;
    std::string _text;
    std::uint64_t _number = 0;
};

} // namespace tool
