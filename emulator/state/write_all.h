// Writes, however many pieces it takes.
#pragma once

#include <string_view>

namespace emulator {

// False, with errno, if not all of it can be written.
bool write_all(int file, std::string_view text);

} // namespace emulator
