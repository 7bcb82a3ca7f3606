// Answers the system calls that the filter hands over.
#pragma once

#include "emulator/faults/faults.h"
#include "emulator/supervisor/client.h"
#include "emulator/supervisor/device.h"
#include "emulator/supervisor/trace.h"

#include <cstdint>
#include <functional>
#include <linux/seccomp.h>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace emulator {

// The module that all programs in a world share: one command at a time.
class SharedModule
{
public:
    SharedModule(Module& module, Faults& faults, Trace& trace) : module_(module), faults_(faults), trace_(trace) {}

    // What is to become of the next command, or open. Whoever asks waits as long as it says.
    Fate fate_of_command(std::uint32_t number);
    Fate fate_of_open();

    struct Applied
    {
        std::uint64_t order; // counts the commands
        Answer answer;
    };

    Applied apply(const Asked& asked, std::span<const std::byte> input, const Fate& fate);

    // Between two commands.
    void use(const std::function<void(Module&)>& user);
    void use_faults(const std::function<void(Faults&)>& user);

    void trace(const Asked& asked, const Applied& applied) { trace_.write(applied.order, asked, applied.answer); }
    // error: the errno with which it fails, or 0.
    void trace_open(std::uint32_t pid, std::string_view path, std::uint64_t flags, int error)
    {
        trace_.write_open(pid, path, flags, error);
    }

private:
    Module& module_;
    Faults& faults_;
    Trace& trace_;
    std::mutex one_at_a_time_;
    std::uint64_t applied_ = 0;
};

// Answers the calls of one listener, one after the other. Other servers may do the same beside it.
class Server
{
public:
    Server(SharedModule& module, const Device& device, int listener);

    // Waits for a call. False if none came: a signal did, or everybody has left.
    bool receive();

    // Answers the call that was received.
    void answer();

private:
    using Notification = seccomp_notif;

    void answer_open(std::uint64_t folder, std::uint64_t path, std::uint64_t flags);
    void answer_openat2(std::uint64_t folder, std::uint64_t path, std::uint64_t how);
    std::string_view device_named(std::uint64_t folder, const std::string& path, std::uint64_t flags);
    void open_device(std::string_view path, std::uint64_t flags);
    void give(std::uint64_t flags);
    void answer_ioctl();
    void answer_command();
    std::optional<int> command();
    bool wait(const Fate& fate) const;
    bool still_waiting() const;
    void let_continue();
    void respond(int error);

    SharedModule& module_;
    const Device& device_;
    int listener_;
    Copier copier_;
    std::vector<std::byte> received_; // the kernel says how large these are
    std::vector<std::byte> response_;
    Notification notification_ {};
};

// Prepares a listener for servers.
void prepare(int listener);

} // namespace emulator
