// Every command in order: what sends it, how much input it takes and how much room its reply has. Nothing here needs
// the C++ run-time library, so that a program without it can use the table, too.
#pragma once

#include "lumozeph.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <span>

namespace world {

// What the calls of the table read from and write to.
struct Caller
{
    void* out = nullptr;
    void* held = nullptr; // a holder that the caller has allocated
    std::uint32_t number = 0;
    std::uint8_t bytes[128] {};
    char room[7471104] {};
    LumoCmdResult result {};
    LumoRssTunables tunables {};
    LumoRssIndTable table {};
    LumoPolicyTableRefEntry entry {};
};

extern thread_local Caller caller;

struct CommandRow
{
    int command;
    const char* function;
    std::uint32_t in_len;
    std::uint32_t out_len;
    std::int32_t (*call)();
};

// Only for test programs, which have it from command_table_test.cpp.
void PrintTo(const CommandRow& row, std::ostream* stream);

extern const std::span<const CommandRow> command_rows;

// The functions that send nothing.
extern const std::span<const char* const> silent_functions;

} // namespace world
