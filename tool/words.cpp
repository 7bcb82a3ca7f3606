#include "tool/words.h"

#include <algorithm>

namespace tool {

std::vector<std::string_view> split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find(separator), text.size());
        if (length > 0)
            parts.push_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return parts;
}

} // namespace tool
