// What to say of an operation that failed.
#pragma once

#include "tool/mistakes.h"

#include <string>
#include <string_view>

namespace tool {

// The error is errno, 0 if the library gave none. Asks the module whether it is there at all.
Failure failure(const std::string& attempt, std::string_view operation, int error);

// EINVAL for 22.
std::string name_of(int error);

} // namespace tool
