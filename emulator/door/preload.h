// Has libraries preloaded into programs.
#pragma once

#include <string>

namespace emulator {

// A library, and how it is said why it cannot be preloaded: cannot TASK 'program'WHERE: it is linked statically; INSTEAD.
// Both paths begin where the emulator's program is.
struct Preloaded
{
    const char* as_built;
    const char* as_installed;
    const char* task;
    const char* where;
    const char* instead;
};

// Has the library preloaded into what is executed from now on. Throws if the program is one that preloading does not
// reach.
void preload(const Preloaded& library, char** program);

void set_environment(const char* name, const std::string& value);

} // namespace emulator
