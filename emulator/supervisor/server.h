// Answers the system calls that the filter hands over.
#pragma once

#include "emulator/model/module.h"
#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/trace.h"

#include <cstdint>
#include <cstdio>
#include <linux/seccomp.h>
#include <vector>

namespace emulator {

class Server
{
public:
    Server(Module& module, std::FILE* trace);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // From now on, listener is where the filter's notifications come from. Takes it over.
    void listen(int listener);
    int listener() const { return listener_; }

    // Answers one notification, if one is there.
    void serve_one();

private:
    using Notification = seccomp_notif;

    void answer_open(const Notification& notification, std::uint64_t path, std::uint64_t flags);
    void answer_ioctl(const Notification& notification);
    int command(const Notification& notification);
    bool opens_device(const Notification& notification, std::uint64_t path) const;
    bool still_waiting(const Notification& notification) const;
    void let_continue(const Notification& notification);
    void respond(const Notification& notification, int error);

    Module& module_;
    Trace trace_;
    DeviceDescriptor device_;
    int listener_ = -1;
    std::vector<std::byte> notification_; // the kernel says how large these are
    std::vector<std::byte> response_;
};

} // namespace emulator
