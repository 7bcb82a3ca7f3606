// What was asked and answered, a line of JSON for each command.
#pragma once

#include "emulator/model/module.h"

#include <cstdint>
#include <cstdio>

namespace emulator {

struct Asked
{
    std::uint32_t pid;
    std::uint32_t number;
    std::uint32_t in_len;
    std::uint32_t room;
};

// file: where the lines go, or null for nowhere.
class Trace
{
public:
    explicit Trace(std::FILE* file) : file_(file) {}

    void write(const Asked& asked, const Answer& answer) const;

private:
    std::FILE* file_;
};

} // namespace emulator
