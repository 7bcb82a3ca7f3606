// Whether a document describes a state.
#pragma once

#include "tool/state/document.h"

#include <string>
#include <string_view>

namespace tool {

// The document with all keys and values in the text that the module's own have. Throws Misuse, which names the file, line
// and column, and says what was expected.
Value checked(const Value& document, std::string_view file);

// That of a file; - is standard input. Throws Misuse where it cannot be read, too.
Value read_document(const std::string& file);

} // namespace tool
