// Files that are named on the command line.
#pragma once

#include "tool/mistakes.h"

#include <cstdio>
#include <memory>
#include <string>

namespace tool {

using File = std::unique_ptr<std::FILE, void (*)(std::FILE*)>;

// - is standard input. Throws Failure.
File open_to_read(const std::string& file);
// Why, as errno has it.
Failure unreadable(const std::string& file);
// All of it; - is standard input. Throws Failure.
std::string contents_of(const std::string& file);

// Who may read and write a file that is replaced.
enum class Access
{
    AsBefore, // who may the one that is there, or a new one
    ReadByAll
};

// All at once: whoever reads the file meanwhile has what was there or what comes. What is no regular file is written to.
// Throws Failure.
void replace_contents(const std::string& file, const std::string& contents, Access access);

} // namespace tool
