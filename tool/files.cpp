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

bool write_all(int descriptor, std::string_view rest)
{
    while (!rest.empty()) {
        const ssize_t size = write(descriptor, rest.data(), rest.size());
        if (size > 0)
            rest.remove_prefix(static_cast<std::size_t>(size));
        else if (size == 0 || errno != EINTR)
            return false;
    }
    return true;
}

void write_to(const std::string& device, const std::string& contents)
{
    const int descriptor = open(device.c_str(), O_WRONLY | O_CLOEXEC);
    if (descriptor < 0)
        throw unwritable(device);
    if (write_all(descriptor, contents)) {
        close(descriptor);
        return;
    }
    const Failure failure = unwritable(device);
    close(descriptor);
    throw Failure(failure);
}

// A link stays: what it leads to is replaced. One that leads nowhere is not followed.
std::string target_of(const std::string& file)
{
    const std::unique_ptr<char, void (*)(void*)> path(realpath(file.c_str(), nullptr), std::free);
    if (path)
        return path.get();
    const Failure failure = unwritable(file);
    struct stat link
    {};
    if (lstat(file.c_str(), &link) == 0)
        throw Failure(failure);
    return file;
}

// Of a file that is not there: the mode of a new one.
mode_t mode_for(Access access, const struct stat* there)
{
    constexpr mode_t read_by_all = S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH;
    if (access == Access::ReadByAll)
        return read_by_all;
    if (there)
        return there->st_mode & ALLPERMS;
    const mode_t mask = umask(0);
    umask(mask);
    return DEFFILEMODE & ~mask;
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

void replace_contents(const std::string& file, const std::string& contents, Access access)
{
    struct stat status
    {};
    const bool is_there = stat(file.c_str(), &status) == 0;
    if (is_there && !S_ISREG(status.st_mode))
        return write_to(file, contents);
    const std::string target = target_of(file);
    // Beside it, under a name that nobody looks for.
    std::string written = target + ".XXXXXX";
    const int descriptor = mkostemp(written.data(), O_CLOEXEC);
    if (descriptor < 0)
        throw unwritable(file);
    bool is_done = fchmod(descriptor, mode_for(access, is_there ? &status : nullptr)) == 0 &&
                   write_all(descriptor, contents) && fsync(descriptor) == 0;
    is_done = close(descriptor) == 0 && is_done;
    if (is_done && rename(written.c_str(), target.c_str()) == 0)
        return;
    const Failure failure = unwritable(file);
    unlink(written.c_str());
    throw Failure(failure);
}

} // namespace tool
