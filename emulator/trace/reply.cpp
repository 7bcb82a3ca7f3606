#include "emulator/trace/reply.h"

#include "emulator/protocol/commands.h"

#include <algorithm>
#include <utility>

namespace emulator {

using namespace protocol;

const Command* command_of(std::uint32_t number)
{
    return number <= last_command ? commands_by_number[number] : nullptr;
}

std::string name_of_command(std::uint32_t number)
{
    const Command* const command = command_of(number);
    return command != nullptr ? std::string(command->name) : std::to_string(number);
}

ReplyParts parts_of(const Reply& described, std::size_t size)
{
    const std::size_t each = described.record.size;
    if (each == 0 || size < described.head.size)
        return {.rest = size};
    ReplyParts parts {.head = described.head.size};
    parts.records = (size - parts.head) / each;
    if (!described.is_list())
        parts.records = std::min<std::size_t>(parts.records, 1);
    parts.shown = std::min(parts.records, records_shown);
    parts.rest = size - parts.head - parts.records * each;
    return parts;
}

std::span<const std::byte> rest_of(const Call& call, const Reply& described, const ReplyParts& parts)
{
    if (parts.shown < parts.records)
        return {};
    const std::size_t from = parts.head + parts.records * described.record.size;
    return std::span(call.reply).subspan(from, std::min(parts.rest, bytes_shown));
}

void keep_reply(Call& call, std::vector<std::byte> reply)
{
    call.reply_size = reply.size();
    const Command* const command = command_of(call.number);
    std::size_t kept = std::min(reply.size(), bytes_shown);
    if (command != nullptr) {
        const ReplyParts parts = parts_of(command->reply, reply.size());
        kept = parts.head + parts.shown * command->reply.record.size;
        if (parts.shown == parts.records)
            kept += std::min(parts.rest, bytes_shown);
    }
    if (kept < reply.size())
        call.reply.assign(reply.begin(), reply.begin() + static_cast<std::ptrdiff_t>(kept));
    else
        call.reply = std::move(reply);
}

} // namespace emulator
