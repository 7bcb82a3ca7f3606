// A file that is replaced as a whole.
#pragma once

#include <string>
#include <string_view>

namespace emulator {

// Whoever reads it has what was there or what comes, which is written beside it first; if that fails, what was there stays.
// Links stay, too, and what they lead to is replaced. What is no regular file, such as a pipe, is written to; so is a file
// in a folder that takes no others.
class ReplacedFile
{
public:
    // Makes the file if there is none. Throws if it cannot be written.
    explicit ReplacedFile(const std::string& path);
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    // The file as it is when this is made, whatever is mounted since, and wherever the process is. Throws if it cannot be
    // written.
    void replace(std::string_view text) const;

    // The file as it was found, for who wants to look at it.
    int found() const { return found_; }

private:
    [[noreturn]] void fail(int error) const;
    void write_in_place(std::string_view text) const;

    std::string path_; // as it was said
    std::string name_; // in the folder
    int found_ = -1;
    int folder_ = -1; // none where it is no regular file
};

} // namespace emulator
