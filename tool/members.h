// The members of records, where they lie.
#pragma once

#include "tool/description.h"
#include "tool/values.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// How many elements of an array are in use; 1 for what is no array.
std::size_t elements_in_use(const Record& record, const Member& member, const std::byte* data);

// Of one element, as a person writes it.
std::string element_text(
    const Record& record, const Member& member, const std::byte* data, std::size_t element, AddressOrder order);
// Of the whole member, in one line.
std::string member_text(const Record& record, const Member& member, const std::byte* data, AddressOrder order);

// Whether the record has them is tested: throws Misuse.
std::vector<const Member*> members_named(const Record& record, std::span<const std::string_view> names);

// Without what could move a terminal's cursor.
std::string printable(std::string_view text);

} // namespace tool
