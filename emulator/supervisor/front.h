// The process that was started by a user's command, while another one does the work.
#pragma once

#include "emulator/supervisor/inhabitants.h"
#include "emulator/supervisor/link.h"
#include "emulator/supervisor/signals.h"
#include "emulator/supervisor/terminal.h"

#include <functional>
#include <optional>
#include <sys/types.h>

namespace emulator {

// How a program in a world ended.
struct Ending
{
    int status = 0; // its exit status, if no signal ended it
    int signal = 0; // the signal that ended it, or 0
};

// The signals that a front passes on, for the time from before it starts others until it has ended.
Signals heard_by_front();

// What the worker does that a front waits for. Tells on the link why it cannot go on, if it cannot.
[[noreturn]] void work_until_end(const Link& link, const std::function<void(const Link&)>& work);

// Passes signals and the terminal on to a program and stops when it stops.
class Front
{
public:
    // Waits until the worker, a child that speaks on the link, is ready. Throws what it says if it is not.
    Front(pid_t worker, Link link, Group group, const Foreground& foreground);

    // Returns when the worker has ended.
    Ending wait(const Signals& signals);

private:
    void pass_on(const signalfd_siginfo& signal);
    void stop_by(int signal);
    bool hear(std::optional<Ending>& ending);
    void end();

    Descendants descendants_;
    pid_t worker_;
    Link link_;
    Group group_;
    const Foreground& foreground_;
    bool stopped_ = false; // because the program was, alone
};

} // namespace emulator
