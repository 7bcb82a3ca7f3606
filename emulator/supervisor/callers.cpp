#include "emulator/supervisor/callers.h"

#include "emulator/supervisor/client.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>
#include <utility>

namespace emulator {

namespace {

constexpr std::size_t most_known = 16;
// No thread executes another program and asks something in less.
constexpr std::chrono::microseconds shortest_exec {50};

std::string name_in(const Descriptor& file)
{
    std::array<char, 64> name;
    const ssize_t length = pread(file.number(), name.data(), name.size(), 0);
    // It ends in a newline.
    return length > 0 ? std::string(name.data(), static_cast<std::size_t>(length) - 1) : std::string();
}

} // namespace

Caller Callers::find(std::uint32_t thread)
{
    const auto now = std::chrono::steady_clock::now();
    const auto found =
        std::find_if(known_.begin(), known_.end(), [thread](const Known& known) { return known.thread == thread; });
    if (found != known_.end()) {
        if (now - found->read > shortest_exec) {
            found->name = name_in(found->file);
            found->read = now;
        }
        if (!found->name.empty())
            return {found->process, thread, found->name};
        known_.erase(found);
    }
    if (known_.size() == most_known)
        known_.pop_front();
    Known& added = known_.emplace_back(Known {thread, process_of(thread),
        Descriptor(open(fmt::format("/proc/{}/comm", thread).c_str(), O_RDONLY | O_CLOEXEC))});
    added.name = name_in(added.file);
    added.read = now;
    return {added.process, thread, added.name};
}

} // namespace emulator
