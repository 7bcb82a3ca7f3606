// Records as JSON.
#pragma once

#include "tool/description.h"
#include "tool/json_writer.h"
#include "tool/values.h"

#include <cstddef>
#include <span>
#include <vector>

namespace tool {

std::vector<const Member*> all_members(const Record& record);

// An object with these members.
void write_record(JsonWriter& json, const Record& record, std::span<const Member* const> members, const std::byte* data,
    AddressOrder order);
// The value of one.
void write_member(
    JsonWriter& json, const Record& record, const Member& member, const std::byte* data, AddressOrder order);

} // namespace tool
