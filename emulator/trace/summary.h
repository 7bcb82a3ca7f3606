// How many calls there were of each command, and what became of them.
#pragma once

#include "emulator/protocol/commands.h"
#include "emulator/trace/event.h"

#include <array>
#include <cstdint>
#include <string>

namespace emulator {

class Summary
{
public:
    void count(const Event& event);

    // A table with a line for each command that there was, what took longest first.
    std::string table() const;

private:
    struct Row
    {
        std::uint64_t calls = 0;
        std::uint64_t errors = 0;
        std::uint64_t sent = 0;
        std::uint64_t received = 0;
        std::chrono::nanoseconds time {};

        void add(const Row& other);
    };

    static void append_row(std::string& out, const Row& row, std::string_view name);

    // By the commands' numbers, and then all numbers that are no command's, and opens.
    static constexpr std::size_t unknown = protocol::last_command + 1;
    static constexpr std::size_t opens = unknown + 1;
    std::array<Row, opens + 1> rows_;
};

} // namespace emulator
