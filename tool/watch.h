// What changes in the module, as it changes.
#pragma once

#include "tool/output.h"
#include "tool/printer.h"

#include <chrono>
#include <functional>
#include <span>
#include <string>

namespace tool {

struct WatchTerms
{
    std::chrono::duration<double> interval {1};
    std::size_t count = 0;                     // of events after which it ends; 0: as many as come
    std::chrono::duration<double> duration {}; // after which it ends; 0: never
    bool timestamps = false;
};

// Reads the lists of the objects again and again. The words are names of objects, each alone or as OBJECT=NAME, which
// leaves only the lists of what has that name. Throws Misuse and Failure.
void watch(std::span<const std::string> words, const WatchTerms& terms, const Manner& manner, Output& output);

} // namespace tool
