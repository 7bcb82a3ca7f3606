// What the tool says of itself.
#pragma once

#include "tool/description.h"

#include <span>
#include <string>

namespace tool {

std::string help_of_objects();
// The functions that can be called, one a line.
std::string help_of_functions();
std::string help_of_function(const Operation& operation);
// The verbs that begin with these words. Throws Misuse if there are none.
std::string help_of_verbs(std::span<const std::string> words);

} // namespace tool
