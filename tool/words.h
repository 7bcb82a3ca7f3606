// Texts of several words.
#pragma once

#include <string_view>
#include <vector>

namespace tool {

// What stands between the separators, without what is empty.
std::vector<std::string_view> split(std::string_view text, char separator);

} // namespace tool
