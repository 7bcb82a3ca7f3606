// What may stand where somebody asks their shell to complete a command line.
#pragma once

#include "tool/values.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

struct OptionWords
{
    std::vector<std::string> names; // with their dashes
    std::string brief;
    bool takes_value = false;
    std::string value; // what it is, in capitals
};

struct Candidate
{
    std::string word;
    std::string_view brief;
};

// Of the words behind the name of the tool, the last one is to be completed, and may be empty. The names that the module
// has are read; if it does not answer, there are none.
std::vector<Candidate> candidates(std::span<const std::string> words, std::span<const OptionWords> options);

} // namespace tool
