// The process that holds a world together.
#pragma once

#include "emulator/supervisor/device.h"
#include "emulator/supervisor/filter.h"
#include "emulator/supervisor/inhabitants.h"
#include "emulator/supervisor/link.h"
#include "emulator/supervisor/server.h"

#include <functional>
#include <optional>
#include <sys/types.h>

namespace emulator {

// What a world is made of, in the way in which it is made.
struct Premises
{
    const Device& device;
    Handed handed;
    const Inhabitants& inhabitants;
};

// Runs a program as its child, answers the calls of it and of all its descendants, and tells whoever started it by a link
// how the program fares.
class Supervisor
{
public:
    Supervisor(SharedModule& module, const Premises& premises, const Link& link)
        : module_(module), premises_(premises), link_(link)
    {}

    // Returns when the program and all that it has left behind have ended. program: what the child does, whose result is
    // its exit status.
    void run(const std::function<int()>& program);

private:
    void start(const std::function<int()>& program);
    [[noreturn]] void become(const std::function<int()>& program, const Link& to_supervisor) const;
    void hear_link();
    void reap();

    SharedModule& module_;
    Premises premises_;
    const Link& link_;
    pid_t program_ = 0;
    std::optional<Message> end_; // the program's
    bool deserted_ = false;      // nobody is left
};

} // namespace emulator
