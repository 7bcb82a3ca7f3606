// Command lines in a file.
#pragma once

#include "tool/files.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

// The words of a line: separated by blanks, which quotes keep within a word, as in a shell. What follows a # at the
// beginning of a word is a comment. Throws Misuse.
std::vector<std::string> words_of(std::string_view line);

// Lines are read as they come, so that a program that writes them sees what each does.
class Batch
{
public:
    // - is standard input. Throws Failure.
    explicit Batch(const std::string& file);

    // The next line; false: there is none. Throws Failure.
    bool advance();
    const std::string& line() const { return _line; }
    // file:number
    std::string place() const;

private:
    std::string _file;
    File _stream;
    std::string _line;
    std::size_t _number = 0;
};

} // namespace tool
