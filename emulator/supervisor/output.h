// What a world writes.
#pragma once

#include "emulator/state/write_all.h"

#include <string_view>

namespace emulator {

// Writes to the standard output. Throws if not all of it can be written.
void print(std::string_view text);

} // namespace emulator
