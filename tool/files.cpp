#include "tool/files.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace tool {
namespace {

void close_stream(std::FILE* file)
{
    if (file != stdin)
        static_cast<void>(std::fclose(file));
}

Failure unwritable(const std::string& file)
{
    const int error = errno;
    return {"cannot write " + file + ": " + strerrordesc_np(error), "", error, ""};
}

} // namespace

File open_to_read(const std::string& file)
{
    File stream(file == "-" ? stdin : std::fopen(file.c_str(), "re"), close_stream);
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

void replace_contents(const std::string& file, const std::string& contents)
{
    // Beside it, under a name that nobody looks for.
    std::string written = file + ".XXXXXX";
    const int descriptor = mkostemp(written.data(), O_CLOEXEC);
    if (descriptor < 0)
        throw unwritable(file);
    constexpr mode_t readable = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
    bool is_done = fchmod(descriptor, readable) == 0;
    for (std::string_view rest = contents; is_done && !rest.empty();) {
        const ssize_t size = write(descriptor, rest.data(), rest.size());
        if (size > 0)
            rest.remove_prefix(static_cast<std::size_t>(size));
        else
            is_done = size < 0 && errno == EINTR;
    }
    is_done = is_done && fsync(descriptor) == 0;
    is_done = close(descriptor) == 0 && is_done;
    if (is_done && rename(written.c_str(), file.c_str()) == 0)
        return;
    const Failure failure = unwritable(file);
    unlink(written.c_str());
    throw Failure(failure);
}

} // namespace tool
