// What is to be called, and in which order, so that the state becomes another one.
#pragma once

#include "tool/binding.h"
#include "tool/state/difference.h"
#include "tool/state/document.h"

#include <string>
#include <vector>

namespace tool {

struct Call
{
    const Operation* operation;
    std::vector<Given> given;
    unsigned phase; // those of lower ones come first
};

struct Plan
{
    std::vector<Call> calls;
    std::vector<Path> not_settable; // what differs, and nothing sets it
    std::vector<std::string> losses;
};

// What is needed is there before what needs it, and goes after it. What the document does not speak of stays.
Plan plan_of(const Value& state, const Value& document, AddressOrder order);

// As it can be typed into a shell: behind the name of the program, and with it.
std::string words_of(const Call& call);
std::string command_of(const Call& call);

} // namespace tool
