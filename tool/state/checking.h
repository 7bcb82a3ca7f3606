// Whether a document describes a state.
#pragma once

#include "tool/state/document.h"

#include <string_view>

namespace tool {

// The document with all keys and values in the text that the module's own have. Throws Misuse, which names the file, line
// and column, and says what was expected.
Value checked(const Value& document, std::string_view file);

} // namespace tool
