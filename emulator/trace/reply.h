// Replies, as their parts are told of.
#pragma once

#include "emulator/protocol/command.h"
#include "emulator/trace/event.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace emulator {

// Of a list, the first records are shown, and of what is no record, the first bytes.
constexpr std::size_t records_shown = 4;
constexpr std::size_t bytes_shown = 64;

struct ReplyParts
{
    std::size_t head = 0; // its bytes
    std::size_t records = 0;
    std::size_t shown = 0; // of the records
    std::size_t rest = 0;  // bytes behind the last record
};

// What is shown of the bytes behind the last record: nothing if not all records are shown.
std::span<const std::byte> rest_of(const Call& call, const protocol::Reply& described, const ReplyParts& parts);

ReplyParts parts_of(const protocol::Reply& described, std::size_t size);

// The command of this number; null if there is none.
const protocol::Command* command_of(std::uint32_t number);

// Its name; the number if there is none.
std::string name_of_command(std::uint32_t number);

// Keeps what is shown of a reply.
void keep_reply(Call& call, std::vector<std::byte> reply);

} // namespace emulator
