// What follows the words of a verb, as its form says.
#pragma once

#include "tool/binding.h"
#include "tool/grammar.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

class Pattern
{
public:
    explicit Pattern(std::string_view form);

    // What the words say, and how many of them say it.
    struct Match
    {
        std::vector<Given> given;
        std::size_t words = 0;
    };

    // The values that stand in a fixed place. Throws Misuse if one is missing.
    Match match_places(std::span<const std::string> words) const;
    // The keywords behind them, up to the first word that is none. Throws Misuse if one is missing.
    Match match_keywords(std::span<const std::string> words) const;

    // What may follow these words, and what they give. Words that are not of this pattern are passed over.
    struct Expected
    {
        std::string_view value; // a parameter, or two with a slash between them; empty: no value is due
        std::vector<std::string_view> keywords;
        std::vector<Given> given;
    };
    Expected expected_after(std::span<const std::string> words) const;

    // The names of all parameters that it can give, and of those that must be given.
    std::vector<std::string> parameters() const;
    std::vector<std::string> demanded() const;
    std::vector<std::string_view> keywords() const;
    // The one that a word means, which may be shortened; empty: none.
    std::string_view keyword_meant(std::string_view word) const;

private:
    struct Part
    {
        std::string_view keyword; // empty: in a place of its own
        std::string_view value;   // the parameter, or two with a slash between them; empty: the keyword is all
        bool is_optional;
    };

    std::vector<Part>::const_iterator find_keyword(std::string_view word) const;
    static void name_parameters(std::vector<std::string>& names, const Part& part);
    static void give(std::vector<Given>& given, std::string_view parameter, const std::string& value);

    std::vector<Part> _places;
    std::vector<Part> _keywords;
};

} // namespace tool
