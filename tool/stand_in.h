// Stands in for the device of the module: what the library would issue is kept, and goes nowhere.
#pragma once

#include "tool/arguments.h"
#include "tool/description.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tool {

// A command as the module would get it.
struct Issued
{
    std::int32_t number;
    std::string input;
    std::uint32_t room; // for its reply, in bytes
};

// What the operation would issue. Of several commands it is the first, since the others depend on what that answers.
// Nothing if the library refuses the arguments: errno says why.
std::optional<Issued> issued_by(const Operation& operation, const Arguments& arguments);

} // namespace tool
