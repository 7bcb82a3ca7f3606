#include "emulator/state/replaced_file.h"

#include "emulator/state/write_all.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <pthread.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace emulator {

namespace {

// While this lives, a write that fails sends its thread no signal that ends the process before it can say why.
class Unsignalled
{
public:
    Unsignalled()
    {
        sigemptyset(&signals_);
        sigaddset(&signals_, SIGPIPE);
        sigaddset(&signals_, SIGXFSZ);
        sigpending(&pending_);
        pthread_sigmask(SIG_BLOCK, &signals_, &before_);
    }
    ~Unsignalled()
    {
        const int error = errno;
        for (const int signal : {SIGPIPE, SIGXFSZ})
            if (sigismember(&pending_, signal) == 0)
                take(signal);
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        errno = error;
    }
    Unsignalled(const Unsignalled&) = delete;
    Unsignalled& operator=(const Unsignalled&) = delete;

private:
    static void take(int signal)
    {
        sigset_t only;
        sigemptyset(&only);
        sigaddset(&only, signal);
        const timespec at_once {};
        while (sigtimedwait(&only, nullptr, &at_once) < 0 && errno == EINTR)
            continue;
    }

    sigset_t signals_;
    sigset_t pending_;
    sigset_t before_;
};

// Returns an errno, or 0.
int written(int file, std::string_view text)
{
    const Unsignalled unsignalled;
    return write_all(file, text) ? 0 : errno;
}

int close_after(int error, int file)
{
    return close(file) != 0 && error == 0 ? errno : error;
}

bool is_regular(int file)
{
    struct stat status
    {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

// Under a name that no file has. Returns a negative number with errno where none can be.
int open_beside(int folder, const std::string& name, std::string& made)
{
    for (unsigned attempt = 0; attempt < 1000; ++attempt) {
        made = "." + name.substr(0, 200) + "." + std::to_string(getpid()) + "." + std::to_string(attempt);
        const int file = openat(folder, made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

} // namespace

ReplacedFile::ReplacedFile(const std::string& path)
    : path_(path), found_(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666))
{
    if (found_ < 0)
        fail(errno);
    if (!is_regular(found_))
        return;
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    if (real) {
        const std::string whole = real.get();
        const std::size_t slash = whole.rfind('/');
        name_ = whole.substr(slash + 1);
        folder_ = open(whole.substr(0, slash + 1).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    }
    if (folder_ < 0) {
        const int error = errno;
        close(found_);
        fail(error);
    }
}

ReplacedFile::~ReplacedFile()
{
    close(found_);
    if (folder_ >= 0)
        close(folder_);
}

void ReplacedFile::replace(std::string_view text) const
{
    if (folder_ < 0) {
        if (const int error = written(found_, text); error != 0)
            fail(error);
        return;
    }
    std::string made;
    const int beside = open_beside(folder_, name_, made);
    if (beside < 0 && (errno == EACCES || errno == EPERM || errno == EROFS))
        return write_in_place(text);
    if (beside < 0)
        fail(errno);
    // Whoever might read the one that is there may read what comes.
    struct stat status
    {};
    const bool is_there = fstatat(folder_, name_.c_str(), &status, 0) == 0;
    int error = is_there || fstat(found_, &status) == 0 ? 0 : errno;
    // Not everybody may give files away; who may not has made this one.
    if (error == 0 && status.st_uid != geteuid() && fchown(beside, status.st_uid, status.st_gid) != 0)
        error = errno == EPERM || errno == EINVAL ? 0 : errno;
    if (error == 0 && fchmod(beside, status.st_mode & ALLPERMS) != 0)
        error = errno;
    if (error == 0)
        error = written(beside, text);
    error = close_after(error, beside);
    if (error == 0 && renameat(folder_, made.c_str(), folder_, name_.c_str()) != 0)
        error = errno;
    if (error != 0) {
        unlinkat(folder_, made.c_str(), 0);
        fail(error);
    }
}

void ReplacedFile::write_in_place(std::string_view text) const
{
    const int file = openat(folder_, name_.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
    if (file < 0)
        fail(errno);
    if (const int error = close_after(written(file, text), file); error != 0)
        fail(error);
}

void ReplacedFile::fail(int error) const
{
    throw std::runtime_error("cannot write '" + path_ + "': " + std::strerror(error));
}

} // namespace emulator
