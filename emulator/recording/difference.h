// How two calls differ, field by field.
#pragma once

#include "emulator/model/module.h"
#include "emulator/trace/event.h"

#include <string>
#include <string_view>
#include <vector>

namespace emulator {

// Whose the second values are, as lines say it.
struct Sides
{
    std::string_view first;
    std::string_view second;
};

// What the second asks that the first does not: a line each. Bytes of a request that no field has are not looked at.
std::vector<std::string> differences_of_requests(const Call& first, const Call& second, Sides sides);

// What a call asks: the same for two whose requests do not differ, and for no others.
std::string asked_by(const Call& call);

// What is answered to the same call.
std::vector<std::string> differences_of_answers(
    std::uint32_t number, const Answer& first, const Answer& second, Sides sides);

} // namespace emulator
