// Every command in order: what sends it, how much input it takes and how much room its reply has.
#pragma once

#include "lumozeph.h"
#include "support/device.h"

#include <ostream>
#include <set>

namespace world {

// What the calls of the table read from and write to.
struct Caller
{
    void* out = nullptr;
    std::uint32_t number = 0;
    std::uint8_t bytes[128] {};
    Bytes room = Bytes(7471104, '\0');
    LumoCmdResult result {};
    LumoRssTunables tunables {};
    LumoRssIndTable table {};
    LumoPolicyTableRefEntry entry {};
};

extern Caller caller;

struct CommandRow
{
    int command;
    std::string function;
    std::uint32_t in_len;
    std::uint32_t out_len;
    std::int32_t (*call)();
};

inline void PrintTo(const CommandRow& row, std::ostream* stream)
{
    *stream << row.function << " with " << row.command;
}

extern const std::vector<CommandRow> command_rows;

// The functions that send nothing.
extern const std::set<std::string> silent_functions;

} // namespace world
