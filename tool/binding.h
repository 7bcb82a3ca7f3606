// Arguments as they were typed, made into those of an operation.
#pragma once

#include "tool/arguments.h"
#include "tool/description.h"
#include "tool/values.h"

#include <span>
#include <string>

namespace tool {

// The value of a parameter, by its name in the header.
struct Given
{
    std::string name;
    std::string value;
};

enum class Completeness
{
    Demanded,     // of everything but what may be null
    OrElseNothing // numbers are 0 and texts empty if they were not given
};

// Throws Misuse.
Arguments arguments_of(
    const Operation& operation, std::span<const Given> given, Completeness completeness, AddressOrder order);

} // namespace tool
