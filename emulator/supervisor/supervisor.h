// The process that holds a world together.
#pragma once

#include "emulator/supervisor/device.h"
#include "emulator/supervisor/filter.h"
#include "emulator/supervisor/inhabitants.h"
#include "emulator/supervisor/lifetime.h"
#include "emulator/supervisor/link.h"
#include "emulator/supervisor/server.h"
#include "emulator/supervisor/terminal.h"

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
    Lifetime lifetime;
    Group group;
};

// Runs a program as its child, answers the calls of it and of all its descendants, and tells whoever started it by a link
// how the program fares.
class Supervisor
{
public:
    Supervisor(SharedModule& module, const Premises& premises, const Link& link)
        : module_(module), premises_(premises), link_(link)
    {}

    // Returns when the world has ended. program: what the child does, whose result is its exit status.
    void run(const std::function<int()>& program);

private:
    void start(const std::function<int()>& program);
    [[noreturn]] void become(const std::function<int()>& program, const Link& to_supervisor) const;
    void hear_link();
    void heed(const Message& message);
    void reap();
    void end_by(Word word, int number);
    void ask_to_end();
    void kill();
    void look_at_clock();
    int until_next_deadline() const;

    using Clock = std::chrono::steady_clock;

    SharedModule& module_;
    Premises premises_;
    const Link& link_;
    pid_t program_ = 0;
    std::optional<Clock::time_point> timeout_; // when everybody must end
    std::optional<Clock::time_point> killing_; // when those are killed who were asked to end
    std::optional<Message> end_;               // the program's
    bool deserted_ = false;                    // nobody is left
};

} // namespace emulator
