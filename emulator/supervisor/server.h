// Answers the system calls that the filter hands over.
#pragma once

#include "emulator/faults/faults.h"
#include "emulator/recording/replay.h"
#include "emulator/supervisor/client.h"
#include "emulator/supervisor/device.h"
#include "emulator/supervisor/witness.h"

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
    SharedModule(Module& module, Faults& faults, Witness& witness) : module_(module), faults_(faults), witness_(witness)
    {}

    // What is to become of the next command, or open. Whoever asks waits as long as it says.
    Fate fate_of_command(std::uint32_t number);
    Fate fate_of_open();

    // Counts the commands. What makes no command is counted, but does not reach the module.
    Answer apply(Call& call, const Fate& fate);
    void pass_by(Call& call);

    // Between two commands.
    void use(const std::function<void(Module&)>& user);
    void use_faults(const std::function<void(Faults&)>& user);

    // From now on commands are answered by a recording.
    void replay(Replay& replay) { replay_ = &replay; }

    // Between two commands: in what they differ from those of the recording.
    std::string difference();

    Witness& witness() const { return witness_; }

private:
    Module& module_;
    Faults& faults_;
    Witness& witness_;
    Replay* replay_ = nullptr;
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
    std::optional<int> command(Call& call, std::string& faults);
    int carry_out(Call& call, std::uint64_t envelope_at, const Fate& fate);
    Event beginning();
    void tell(Event event);
    bool wait(const Fate& fate) const;
    bool still_waiting() const;
    void let_continue();
    void respond(int error);

    SharedModule& module_;
    const Device& device_;
    int listener_;
    Copier copier_;
    Callers callers_;
    std::vector<std::byte> received_; // the kernel says how large these are
    std::vector<std::byte> response_;
    Notification notification_ {};
};

// Prepares a listener for servers.
void prepare(int listener);

} // namespace emulator
