#include "emulator/door/door.h"

#include "emulator/door/memory.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/envelope.h"
#include "emulator/state/replaced_file.h"
#include "emulator/state/state_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <pthread.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/sysmacros.h>
#include <utility>

namespace emulator {

using namespace protocol;

namespace {

// Of the numbers that Linux keeps for devices that have none.
constexpr unsigned device_major = 240;

// What F_SETFL changes, and what F_GETFL does not report.
constexpr int settable_flags = O_APPEND | O_NONBLOCK | O_NOATIME;
constexpr int flags_of_opening = O_CREAT | O_EXCL | O_NOCTTY | O_TRUNC;

bool spells(const char* path, std::string_view device)
{
    for (const char expected : device) {
        if (*path++ != expected)
            return false;
        while (expected == '/' && (path[0] == '/' || (path[0] == '.' && path[1] == '/')))
            path += path[0] == '/' ? 1 : 2;
    }
    return *path == '\0';
}

std::string_view environment(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): the program's threads read it, too
    return value != nullptr ? value : "";
}

} // namespace

std::optional<Node> device_at(const char* path)
{
    if (path == nullptr || *path != '/')
        return std::nullopt;
    for (const auto& [node, device] : {std::pair(Node::Normal, normal_path), std::pair(Node::Upgrade, upgrade_path)})
        // Nearly always as it is, which is quick to see.
        if (std::strcmp(path, device.data()) == 0 || spells(path, device))
            return node;
    return std::nullopt;
}

struct stat status_of(Node node)
{
    struct stat status = {};
    status.st_mode = S_IFCHR | 0666;
    status.st_nlink = 1;
    status.st_ino = node == Node::Normal ? 1 : 2;
    status.st_rdev = makedev(device_major, node == Node::Normal ? 0 : 1);
    status.st_blksize = 4096;
    return status;
}

Door::Door()
{
    pthread_atfork([] { of_this_process().gate_.close_for_fork(); }, [] { of_this_process().gate_.open_after_fork(); },
        [] { of_this_process().gate_.open_after_fork(); });
}

Door& Door::of_this_process()
{
    // Never destroyed: programs close descriptors until they have ended.
    static Door& door = *new Door;
    return door;
}

Settings Door::settings()
{
    Settings settings;
    if (!environment("LUMOZEPH_EMULATOR_LENIENT").empty())
        settings.strictness = Strictness::Lenient;
    if (environment("LUMOZEPH_EMULATOR_CLOCK") == "manual")
        settings.clock = Clock::Manual;
    return settings;
}

std::unique_ptr<Module> Door::new_module()
{
    auto module = std::make_unique<Module>(settings());
    if (const std::string state(environment("LUMOZEPH_EMULATOR_STATE")); !state.empty()) {
        try {
            load_state(*module, state);
        } catch (const std::runtime_error& error) {
            std::fprintf(stderr, "lumozeph-emulator: %s\n", error.what());
            std::abort();
        }
    }
    return module;
}

Faults Door::new_faults()
{
    const std::string_view seed = environment("LUMOZEPH_EMULATOR_SEED");
    std::uint64_t number = 0;
    std::from_chars(seed.data(), seed.data() + seed.size(), number);
    Faults faults(number);
    std::string_view rest = environment("LUMOZEPH_EMULATOR_FAULTS");
    while (!rest.empty()) {
        const std::string_view fault = rest.substr(0, rest.find(' '));
        rest.remove_prefix(std::min(fault.size() + 1, rest.size()));
        if (fault.empty())
            continue;
        try {
            faults.add(fault);
        } catch (const FaultError& error) {
            std::fprintf(stderr, "lumozeph-emulator: %s\n", error.what());
            std::abort();
        }
    }
    return faults;
}

int Door::open(Node node, int flags)
{
    if ((flags & O_DIRECTORY) != 0)
        return -ENOTDIR;
    if ((flags & O_PATH) != 0)
        flags &= O_PATH | O_NOFOLLOW | O_CLOEXEC;
    else if ((flags & O_CREAT) != 0 && (flags & O_EXCL) != 0)
        return -EEXIST;
    else if ((flags & O_DIRECT) != 0)
        return -EINVAL;
    else
        flags &= ~flags_of_opening;
    const Gate::Passage passage(gate_);
    return passage.refused() ? -EDEADLK : descriptors_.open(node, flags);
}

int Door::close(int number)
{
    const Gate::Passage passage(gate_);
    return passage.refused() ? -EDEADLK : descriptors_.close(number);
}

void Door::close_range(unsigned first_number, unsigned last_number)
{
    const Gate::Passage passage(gate_);
    if (!passage.refused())
        descriptors_.close_all(first_number, last_number);
}

void Door::close_range_on_exec(unsigned first_number, unsigned last_number)
{
    const Gate::Passage passage(gate_);
    if (!passage.refused())
        descriptors_.close_all_on_exec(first_number, last_number);
}

int Door::duplicate(int number, int at_least, int flags)
{
    const Gate::Passage passage(gate_);
    return passage.refused() ? -EDEADLK : descriptors_.duplicate(number, at_least, flags);
}

int Door::duplicate_to(int number, int replaced, int flags)
{
    const Gate::Passage passage(gate_);
    return passage.refused() ? -EDEADLK : descriptors_.duplicate_to(number, replaced, flags);
}

int Door::descriptor_flags(int number)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    return descriptors_.file(number) == nullptr ? -EBADF : descriptors_.flags(number);
}

int Door::set_descriptor_flags(int number, int flags)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    if (descriptors_.file(number) == nullptr)
        return -EBADF;
    descriptors_.set_flags(number, flags);
    return 0;
}

int Door::status_flags(int number)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    const OpenFile* const file = descriptors_.file(number);
    return file == nullptr ? -EBADF : file->flags;
}

int Door::set_status_flags(int number, int flags)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    OpenFile* const file = descriptors_.file(number);
    if (file == nullptr || (file->flags & O_PATH) != 0)
        return -EBADF;
    if ((flags & O_DIRECT) != 0)
        return -EINVAL;
    file->flags = (file->flags & ~settable_flags) | (flags & settable_flags);
    return 0;
}

int Door::status(int number, struct stat& status)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    const OpenFile* const file = descriptors_.file(number);
    if (file == nullptr)
        return -EBADF;
    status = status_of(file->node);
    return 0;
}

// Some requests Linux answers for every kind of file.
int Door::control(int number, std::uint32_t request, std::uint64_t argument)
{
    const int flags = status_flags(number);
    if (flags < 0)
        return flags;
    if ((flags & O_PATH) != 0)
        return -EBADF;
    switch (request) {
    case FIOCLEX:
        return set_descriptor_flags(number, FD_CLOEXEC);
    case FIONCLEX:
        return set_descriptor_flags(number, 0);
    case FIONBIO:
        return set_non_blocking(number, argument);
    default:
        return command(request, argument);
    }
}

int Door::set_non_blocking(int number, std::uint64_t value_at)
{
    int value = 0;
    if (!read_memory(value_at, std::as_writable_bytes(std::span(&value, 1))))
        return -EFAULT;
    const int flags = status_flags(number);
    if (flags < 0)
        return flags;
    return set_status_flags(number, value != 0 ? flags | O_NONBLOCK : flags & ~O_NONBLOCK);
}

int Door::command(std::uint32_t number, std::uint64_t envelope_at)
{
    std::array<std::byte, envelope::layout.size> bytes;
    if (!read_memory(envelope_at, bytes))
        return -EFAULT;
    const Input sent(bytes);
    const std::uint32_t in_len = sent[envelope::in_len];
    const std::uint32_t room = sent[envelope::out_len];

    std::array<std::byte, longest_input> buffer;
    const auto input = std::span(buffer).first(std::min(in_len, longest_input));
    if (!read_memory(sent[envelope::in_ptr], input))
        return -EFAULT;
    if (in_len > longest_input)
        return -EINVAL;

    Answer given;
    if (const int result = answer(number, input, room, given); result < 0)
        return result;
    const std::uint32_t length = given.length();
    if (!write_memory(sent[envelope::out_ptr], given.reply) ||
        !write_memory(envelope_at + envelope::out_len.offset, std::as_bytes(std::span(&length, 1))))
        return -EFAULT;
    return 0;
}

int Door::answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room, Answer& answer)
try {
    std::optional<Gate::Passage> passage(gate_);
    if (passage->refused())
        return -EDEADLK;
    const Fate fate = faults_.of_command(number);
    if (fate.waits()) {
        // Others pass meanwhile.
        passage.reset();
        wait(fate);
        passage.emplace(gate_);
    }
    answer = emulator::answer(*module_, fate, number, input, room);
    if (watcher_ != nullptr) {
        const LumoEmulatorCommand seen {.number = number,
            .error = answer.error,
            .input = input.data(),
            .inputLength = static_cast<std::uint32_t>(input.size()),
            .room = room,
            .reply = answer.reply.data(),
            .replyLength = static_cast<std::uint32_t>(answer.reply.size())};
        watcher_(&seen, context_);
    }
    return -answer.error;
} catch (const std::bad_alloc&) {
    return -ENOMEM;
}

int Door::reset()
try {
    auto fresh = new_module();
    Faults faults = new_faults();
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    module_.swap(fresh);
    std::swap(faults_, faults);
    return 0;
} catch (const std::bad_alloc&) {
    return -ENOMEM;
}

int Door::load(const char* path)
try {
    // Whether it can be loaded is found out before the gate is passed: reading a file goes through the door.
    auto fresh = std::make_unique<Module>(settings());
    load_state(*fresh, path);
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    module_.swap(fresh);
    return 0;
} catch (const std::bad_alloc&) {
    return -ENOMEM;
} catch (const std::runtime_error& error) {
    std::fprintf(stderr, "lumozeph-emulator: %s\n", error.what());
    return -EINVAL;
}

int Door::save(const char* path)
try {
    std::string text;
    {
        const Gate::Passage passage(gate_);
        if (passage.refused())
            return -EDEADLK;
        text = json::print(state_of(*module_));
    }
    ReplacedFile(path).replace(text);
    return 0;
} catch (const std::bad_alloc&) {
    return -ENOMEM;
} catch (const std::runtime_error& error) {
    std::fprintf(stderr, "lumozeph-emulator: %s\n", error.what());
    return -EIO;
}

int Door::advance(Time by)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    return module_->advance(by) ? 0 : -EINVAL;
}

int Door::watch(LumoEmulatorWatcher watcher, void* context)
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    watcher_ = watcher;
    context_ = context;
    return 0;
}

int Door::add_fault(const char* fault)
try {
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    faults_.add(fault);
    return 0;
} catch (const std::bad_alloc&) {
    return -ENOMEM;
} catch (const FaultError& error) {
    std::fprintf(stderr, "lumozeph-emulator: %s\n", error.what());
    return -EINVAL;
}

int Door::clear_faults()
{
    const Gate::Passage passage(gate_);
    if (passage.refused())
        return -EDEADLK;
    faults_.clear();
    return 0;
}

} // namespace emulator
