// What the tool says of itself.
#pragma once

#include "tool/completion.h"
#include "tool/description.h"
#include "tool/own_verbs.h"

#include <span>
#include <string>

namespace tool {

std::string help_of_objects();
// The functions that can be called, one a line.
std::string help_of_functions();
std::string help_of_function(const Operation& operation);
// One of the tool's own, of the options that there are.
std::string help_of_own_verb(const OwnVerb& verb, std::span<const OptionWords> options);
// The verbs that these words name. Throws Misuse if there are none.
std::string help_of_verbs(std::span<const std::string> words);

} // namespace tool
