// Worlds that are larger than what says them.
#pragma once

#include <algorithm>
#include <cctype>
#include <string_view>

namespace fuzz {

// Whether some key of a world stands for more than a handful of entries: such keys within each other, for any number.
inline bool is_vast(std::string_view text)
{
    for (const std::string_view sign : {"..", "*"})
        for (std::size_t at = text.find(sign); at != std::string_view::npos; at = text.find(sign, at + 1)) {
            const std::string_view number = text.substr(at + sign.size());
            const auto* const end =
                std::find_if_not(number.begin(), number.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
            if (end - number.begin() > 1)
                return true;
        }
    return false;
}

} // namespace fuzz
