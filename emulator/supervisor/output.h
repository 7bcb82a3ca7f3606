// What a world writes.
#pragma once

#include <string_view>

namespace emulator {

// False, with errno, if not all of it can be written.
bool write_all(int file, std::string_view text);

// Writes to the standard output. Throws if not all of it can be written.
void print(std::string_view text);

// Puts a text in the place of all that a file holds. Throws if it cannot be written.
void replace_content(int file, std::string_view text);

} // namespace emulator
