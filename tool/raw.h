// Commands by their number, for which there is no operation.
#pragma once

#include "tool/output.h"
#include "tool/printer.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tool {

struct RawCommand
{
    std::string number;
    std::string request_file; // empty: the command has no input; -: standard input
    std::uint32_t reply_size = 0;
};

enum class Sending
{
    Done,
    OnlyShown
};

// Issues it and prints its reply. Throws Misuse and Failure.
void issue(const RawCommand& command, Sending sending, const Manner& manner, Output& output);

} // namespace tool
