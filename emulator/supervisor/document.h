// Texts of any length, as they pass between processes.
#pragma once

#include "emulator/supervisor/descriptor.h"

#include <string>
#include <string_view>

namespace emulator {

// A file in memory that holds the text. Throws if there can be none.
Descriptor document_of(std::string_view text);

// What such a file holds, whatever it is that another process has passed. Throws if that is no file that has an end.
std::string text_of(const Descriptor& document);

} // namespace emulator
