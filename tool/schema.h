// The JSON Schema of what the tool prints as JSON.
#pragma once

#include <string>

namespace tool {

// Definitions of all records, and of the answer of each operation under its name.
std::string schema();
// That of documents of the whole state.
std::string state_schema();

} // namespace tool
