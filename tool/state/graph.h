// The state as a picture in which a person sees what is down.
#pragma once

#include "tool/state/document.h"

#include <string>

namespace tool {

// In the language of dot(1), of a state with its statistics.
std::string graph_of(const Value& state);

// As SVG, which dot draws. Throws Failure if there is none.
std::string drawn(const std::string& graph);

} // namespace tool
