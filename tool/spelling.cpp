#include "tool/spelling.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <numeric>
#include <vector>

namespace tool {
namespace {

bool is_same_letter(char a, char b)
{
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

// How many letters must be put in, taken out or replaced, whatever their case.
std::size_t distance(std::string_view from, std::string_view to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t {0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t replaced = diagonal + (is_same_letter(from[i], to[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearest(std::string_view word, std::span<const std::string_view> known)
{
    // Of those that are as near, the one that begins most alike.
    const auto rank = [word](std::string_view one) {
        const auto common = std::ranges::mismatch(word, one, is_same_letter).in1 - word.begin();
        return std::pair(distance(word, one), -common);
    };
    const auto found = std::ranges::min_element(known, {}, rank);
    if (found == known.end() || distance(word, *found) > std::max<std::size_t>(2, word.size() / 3))
        return {};
    return fmt::format("; did you mean '{}'?", *found);
}

} // namespace tool
