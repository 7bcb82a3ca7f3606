#include "tool/batch.h"

#include "tool/mistakes.h"

#include <cstdlib>

namespace tool {
namespace {

constexpr std::string_view blanks = " \t\r\n";

} // namespace

std::vector<std::string> words_of(std::string_view line)
{
    if (line.find('\0') != std::string_view::npos)
        throw Misuse("U+0000 stands in it, which no word can have");
    std::vector<std::string> words;
    bool is_within_word = false;
    char quote = '\0';
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool is_blank = blanks.find(c) != std::string_view::npos;
        if (quote == '\0' && is_blank) {
            is_within_word = false;
            continue;
        }
        if (!is_within_word && c == '#')
            break;
        if (!is_within_word)
            words.emplace_back();
        is_within_word = true;
        const char next = i + 1 < line.size() ? line[i + 1] : '\0';
        if (c == '\\' && quote == '\0' && line.find_first_not_of("\r\n", i + 1) == std::string_view::npos)
            throw Misuse("the backslash at its end stands before nothing: a command is one line");
        const bool escapes =
            c == '\\' && next != '\0' && (quote == '\0' || (quote == '"' && (next == '"' || next == '\\')));
        if (escapes)
            words.back() += line[++i];
        else if (quote == '\0' && (c == '"' || c == '\''))
            quote = c;
        else if (c == quote)
            quote = '\0';
        else
            words.back() += c;
    }
    if (quote != '\0')
        throw Misuse(std::string("the quote ") + quote + " is not closed");
    return words;
}

Batch::Batch(const std::string& file) : _file(file), _stream(open_to_read(file)) {}

bool Batch::advance()
{
    char* line = nullptr;
    std::size_t room = 0;
    const ssize_t length = getline(&line, &room, _stream.get());
    const std::unique_ptr<char, void (*)(void*)> owned(line, std::free);
    if (length < 0 && std::ferror(_stream.get()) != 0)
        throw unreadable(_file);
    if (length < 0)
        return false;
    ++_number;
    _line.assign(line, static_cast<std::size_t>(length));
    return true;
}

std::string Batch::place() const
{
    return (_file == "-" ? "standard input" : _file) + ":" + std::to_string(_number);
}

} // namespace tool
