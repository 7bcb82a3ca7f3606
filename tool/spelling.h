// What somebody who mistyped a word may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tool {

// "; did you mean 'that'?", or nothing if no word is near.
std::string nearest(std::string_view word, std::span<const std::string_view> known);

} // namespace tool
