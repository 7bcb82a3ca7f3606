#include "reads.h"

namespace fuzz {

namespace {

bool has_numbers_of(const world::Layout& layout, const std::string& reply)
{
    return std::all_of(layout.pinned.begin(), layout.pinned.end(),
        [&](const world::Pinned& pinned) { return world::get(reply, pinned.offset, pinned.width) == pinned.value; });
}

} // namespace

void expect_record(const std::vector<world::Layout>& layouts, const void* record, const std::string& reply)
{
    const auto layout = std::find_if(layouts.begin(), layouts.end(),
        [&](const world::Layout& candidate) { return has_numbers_of(candidate, reply); });
    expect_bytes("record", {static_cast<const char*>(record), reply.size()}, world::decoded(*layout, reply));
}

} // namespace fuzz
