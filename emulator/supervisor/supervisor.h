// The process that holds a world together.
#pragma once

#include "emulator/supervisor/control.h"
#include "emulator/supervisor/device.h"
#include "emulator/supervisor/filter.h"
#include "emulator/supervisor/inhabitants.h"
#include "emulator/supervisor/lifetime.h"
#include "emulator/supervisor/link.h"
#include "emulator/supervisor/program.h"
#include "emulator/supervisor/server.h"
#include "emulator/supervisor/signals.h"

#include <chrono>
#include <functional>
#include <list>
#include <optional>
#include <string>

namespace emulator {

// What a world is made of, in the way in which it is made.
struct Premises
{
    const Device& device;
    Handed handed;
    const Inhabitants& inhabitants;
    int namespaces; // that it has of its own
    std::string description;
};

// Runs a program as its child, or none, answers the calls of it and all its descendants, lets other programs join them,
// and tells whoever started it by a link how the program fares.
class Supervisor
{
public:
    // control: where others speak to the world, or null.
    Supervisor(SharedModule& module, const Premises& premises, const Lifetime& lifetime, const Link& link,
        ControlSocket* control)
        : module_(module), premises_(premises), lifetime_(lifetime), link_(link), control_(control)
    {}

    // Both return when the world has ended.
    void run(Group group, const std::function<int()>& program);
    void serve();

private:
    // Somebody outside who speaks to the world.
    struct Visitor
    {
        Link link;
        bool has_joined = false; // and waits for a program in the world
        bool has_left = false;
    };

    using Clock = std::chrono::steady_clock;

    void loop(const Signals& signals);
    void hear_link();
    void admit();
    void hear(Visitor& visitor);
    void let_join(const Link& link) const;
    void look_around();
    void end_by(Message end);
    void ask_to_end();
    void kill();
    void look_at_clock();
    int until_next_deadline() const;

    SharedModule& module_;
    const Premises& premises_;
    Lifetime lifetime_;
    const Link& link_;
    ControlSocket* control_;
    std::optional<Program> program_;
    std::list<Visitor> visitors_;
    std::optional<Clock::time_point> timeout_; // when everybody must end
    std::optional<Clock::time_point> killing_; // when those are killed who were asked to end
    std::optional<Message> end_;               // the program's
    bool deserted_ = false;                    // nobody is there
    bool killed_ = false;                      // nobody can be there any more
};

} // namespace emulator
