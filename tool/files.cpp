#include "tool/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace tool {
namespace {

void close(std::FILE* file)
{
    if (file != stdin)
        static_cast<void>(std::fclose(file));
}

} // namespace

File open_to_read(const std::string& file)
{
    File stream(file == "-" ? stdin : std::fopen(file.c_str(), "re"), close);
    if (!stream)
        throw unreadable(file);
    return stream;
}

Failure unreadable(const std::string& file)
{
    const int error = errno;
    return {"cannot read " + file + ": " + strerrordesc_np(error), "", error, ""};
}

std::string contents_of(const std::string& file)
{
    const File stream = open_to_read(file);
    std::string contents;
    char part[65536];
    while (const std::size_t size = std::fread(part, 1, sizeof part, stream.get()))
        contents.append(part, size);
    if (std::ferror(stream.get()) != 0)
        throw unreadable(file);
    return contents;
}

} // namespace tool
