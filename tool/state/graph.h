// The state as a picture in which a person sees what is down.
#pragma once

#include "tool/state/document.h"

#include <string>

namespace tool {

// In the language of dot(1), of a state with its statistics.
std::string graph_of(const Value& state);

// Has dot draw it as SVG on standard output. Throws Failure if there is none.
void draw(const std::string& graph);

} // namespace tool
