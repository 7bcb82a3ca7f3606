// The device inside the process: its descriptors, and the module that answers the commands issued on them.
#pragma once

#include "emulator/door/descriptors.h"
#include "emulator/door/gate.h"
#include "emulator/door/lumozeph_emulator.h"
#include "emulator/faults/faults.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <sys/stat.h>

namespace emulator {

// The device that a path names: an absolute one, in which slashes may be repeated and "." may stand between them. It is
// read to its first character that names no device.
std::optional<Node> device_at(const char* path);

// As fstat(2) reports it.
struct stat status_of(Node node);

// Where functions return an int, it is what the kernel would return: an errno value below 0 is a failure. All take only
// numbers that are in range.
class Door
{
public:
    static Door& of_this_process();

    int open(Node node, int flags);
    int close(int number);
    void close_range(unsigned first_number, unsigned last_number);
    void close_range_on_exec(unsigned first_number, unsigned last_number);
    int duplicate(int number, int at_least, int flags);
    int duplicate_to(int number, int replaced, int flags);
    int descriptor_flags(int number);
    int set_descriptor_flags(int number, int flags);
    int status_flags(int number);
    int set_status_flags(int number, int flags);
    int status(int number, struct stat& status);
    int control(int number, std::uint32_t request, std::uint64_t argument);

    int reset();
    int advance(Time by);
    int load(const char* path);
    int save(const char* path);
    int watch(LumoEmulatorWatcher watcher, void* context);
    int add_fault(const char* fault);
    int clear_faults();

private:
    Door();

    int command(std::uint32_t number, std::uint64_t envelope_at);
    int answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room, Answer& answer);
    int set_non_blocking(int number, std::uint64_t value_at);

    // As the environment asks for.
    static Settings settings();
    static std::unique_ptr<Module> new_module();
    static Faults new_faults();

    Gate gate_;
    Descriptors descriptors_;
    std::unique_ptr<Module> module_ = new_module();
    Faults faults_ = new_faults();
    LumoEmulatorWatcher watcher_ = nullptr;
    void* context_ = nullptr;
};

} // namespace emulator
