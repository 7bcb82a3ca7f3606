#include "tool/records.h"

#include "tool/layouts.h"

#include <algorithm>

namespace tool {
namespace {

std::size_t entries_in(const Reply& reply, const RawLayout& layout)
{
    const std::size_t size = layout.record.size;
    std::size_t count = 0;
    const auto is_zero = [](std::byte byte) { return byte == std::byte {0}; };
    while ((count + 1) * size <= reply.size() &&
           !std::all_of(reply.data() + count * size, reply.data() + (count + 1) * size, is_zero))
        ++count;
    return count;
}

} // namespace

std::optional<Records> records_of(const Operation& operation, const Reply& reply)
{
    const bool is_list = operation.answer == Answer::List;
    if (operation.answer == Answer::Record || is_list)
        return Records {operation.record, reply.data(), reply.count(), is_list};
    const RawLayout* const layout = find_layout(operation.name);
    if (!layout)
        return std::nullopt;
    if (operation.answer == Answer::Entries)
        return Records {&layout->record, reply.data(), reply.count(), true};
    if (layout->repeated == Repeated::Once)
        return Records {&layout->record, reply.data(), 1, false};
    return Records {&layout->record, reply.data(), entries_in(reply, *layout), true};
}

const Record* record_of(const Operation& operation)
{
    const RawLayout* const layout = find_layout(operation.name);
    return layout ? &layout->record : operation.record;
}

} // namespace tool
