// A recording as a test of the model.
#pragma once

#include "emulator/recording/recording.h"

#include "emulator/model/module.h"

#include <cstddef>
#include <string>

namespace emulator {

struct Compared
{
    std::size_t calls = 0;
    std::size_t differ = 0;
    std::string lines; // which, and in what
};

// Asks the module what was asked in the recording, in the same intervals if its clock is a manual one.
Compared compare(const Recording& recording, Module& module);

} // namespace emulator
