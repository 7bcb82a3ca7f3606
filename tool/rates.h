// How fast counters count.
#pragma once

#include "tool/grammar.h"
#include "tool/output.h"
#include "tool/printer.h"

#include <chrono>
#include <cstddef>
#include <string_view>
#include <vector>

namespace tool {

struct Rates
{
    std::string_view name;
    bool is_array;
    std::vector<double> values; // a second
};

// Of the counters of a record; a counter that is smaller than before began anew.
std::vector<Rates> rates_between(const Record& record, const std::byte* before, const std::byte* after, double seconds);

// Whether it reads counters.
bool has_rates(const Operation& operation);

// Reads twice, as far apart as that. Throws Misuse and Failure.
void show_rates(
    std::span<const Step> steps, std::chrono::duration<double> interval, const Manner& manner, Output& output);

} // namespace tool
