// The terminal that the emulator was started on, if any.
#pragma once

#include "emulator/supervisor/descriptor.h"

namespace emulator {

// Whose process group the program is in.
enum class Group
{
    Shared, // that of whoever started the emulator, so that the terminal's signals reach both
    Own,    // one of its own, which has the terminal: a program in namespaces cannot see the other, as shells must
};

// Remembers that the caller's process group has the terminal, and gives it back in the end.
class Foreground
{
public:
    Foreground();
    ~Foreground() { take(); }
    Foreground(const Foreground&) = delete;
    Foreground& operator=(const Foreground&) = delete;

    // Whether nobody else reads from or writes to the terminal, as the other programs of a pipeline would.
    bool is_alone() const;

    void take() const;

private:
    bool was_here_;
};

// Whether the caller's process group has the terminal.
bool has_terminal();

// Gives the terminal to a process group of the caller's session.
void give_terminal_to(pid_t group);

} // namespace emulator
