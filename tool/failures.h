// What to say of an operation that failed.
#pragma once

#include "tool/mistakes.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

// The error is errno, 0 if the library gave none. Asks the module whether it is there at all.
Failure failure(const std::string& attempt, std::string_view operation, int error);

// Makes a call of the library, which owns what it uses: make_call(). Throws if it fails, NoAnswer if it is given up, with
// words for what was attempted.
void call(const std::function<std::string()>& attempt, std::string_view operation, std::function<int()> function);

// The same, but that the errno of a failure is returned.
std::optional<int> error_of_call(
    const std::function<std::string()>& attempt, std::string_view operation, std::function<int()> function);

// EINVAL for 22.
std::string name_of(int error);

} // namespace tool
