// A program that joins a world from outside.
#pragma once

#include "emulator/supervisor/link.h"
#include "emulator/supervisor/program.h"

#include <functional>

namespace emulator {

// Enters a world for a program, waits for it, and tells whoever asked for it by a link how it fares.
class Guest
{
public:
    // world: a connection to the world's supervisor.
    Guest(const Link& world, const Link& link) : world_(world), link_(link) {}

    // Returns when the program has ended. What it has left behind belongs to the world.
    void run(Group group, Handed handed, const std::function<int()>& program);

private:
    bool hear(const Program& program);
    bool look_at(const Program& program) const;

    const Link& world_;
    const Link& link_;
};

// Throws if the calling process may not put a program under a filter that speaks to a world, as it cannot in another.
void require_filter();

// Takes the calling process, and those that it starts, into the namespaces of a world's supervisor.
void enter_namespaces(const Descriptor& supervisor, int namespaces);

} // namespace emulator
