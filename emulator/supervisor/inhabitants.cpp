#include "emulator/supervisor/inhabitants.h"

#include "emulator/supervisor/failure.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace emulator {

namespace {

std::string children_file(pid_t process)
{
    return fmt::format("/proc/{0}/task/{0}/children", process);
}

std::vector<pid_t> children_of(pid_t process)
{
    std::ifstream children(children_file(process));
    return {std::istream_iterator<pid_t>(children), {}};
}

} // namespace

void Inhabitants::kill() const
{
    // Again and again: some may be being born, and the children of whoever dies become the caller's.
    for (;;) {
        signal(SIGKILL);
        pid_t reaped = 0;
        while ((reaped = waitpid(-1, nullptr, WNOHANG)) > 0)
            continue;
        if (reaped < 0 && errno == ECHILD)
            return;
        poll(nullptr, 0, 1);
    }
}

void OfNamespace::signal(int number) const
{
    ::kill(-1, number);
}

Descendants::Descendants()
{
    if (prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0) != 0)
        fail("cannot adopt orphans");
}

void Descendants::check() const
{
    if (!std::filesystem::exists(children_file(getpid())))
        throw std::runtime_error(
            "cannot find what programs leave running: there is no /proc, or its kernel lists no children");
}

void Descendants::signal(int number) const
{
    std::vector<pid_t> found = children_of(getpid());
    for (std::size_t i = 0; i < found.size(); ++i)
        for (const pid_t child : children_of(found[i]))
            found.push_back(child);
    for (const pid_t process : found)
        ::kill(process, number);
}

} // namespace emulator
