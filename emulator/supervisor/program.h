// A program in a world, as a child of whoever starts it.
#pragma once

#include "emulator/supervisor/descriptor.h"
#include "emulator/supervisor/filter.h"
#include "emulator/supervisor/link.h"
#include "emulator/supervisor/terminal.h"

#include <functional>
#include <sys/types.h>

namespace emulator {

class Program
{
public:
    // run: what the child does when it may, whose result is its exit status.
    Program(Group group, Handed handed, const std::function<int()>& run);

    // Its calls are heard from here on.
    void start() { link_.send(Word::Go); }

    pid_t number() const { return number_; }

    // Where its calls are heard; none if it has failed to start, and said so.
    Descriptor take_listener() { return std::move(listener_); }

    // Does what whoever waits for the program asks.
    void heed(const Message& message) const;

private:
    [[noreturn]] void become(Handed handed, const Link& parent, const std::function<int()>& run) const;

    Group group_;
    Link link_;
    pid_t number_;
    Descriptor listener_;
};

// What has become of a program, in the words for whoever waits for it.
Message tell(int status);

} // namespace emulator
