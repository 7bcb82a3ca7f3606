// How the processes of the emulator speak to each other.
#pragma once

#include "emulator/supervisor/descriptor.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace emulator {

enum class Word : char
{
    Failed,   // text: why
    Apart,    // the process has left its user namespace for one without users
    Go,       // go on
    Ready,    // the device is there
    Listener, // passes the descriptor on which the filter speaks
    Signal,   // number: a signal for the program
    Terminal, // the program's process group is to have the terminal
    Stopped,  // number: the signal that has stopped the program
    Exited,   // number: the program's exit status
    Killed,   // number: the signal that ended the program
    Join,     // asks for what a program needs to enter the world
    Handed,   // number: what its filter is to hand to the supervisor
    Describe, // asks for a text about the world
    Stop,     // asks the world to end
    Read,     // asks for the state of the world's module; what Ready passes is the document
    Replace,  // passes a document that is to be the state
    Patch,    // passes operations that are to change it
    Merge,    // passes changes that are to be merged into it
    Compare,  // passes a document; what Ready passes are the operations that make the state of it
    Advance,  // text: the seconds that are to pass for the module
    Fault,    // passes a text that is a fault for the world
    Faults,   // asks for its faults; what Ready passes has a line for each
    Unfault,  // takes them away
    Journal,  // number: the format in which what was asked is told; what Ready passes has a line for each
    Refused,  // text: why what was asked makes no sense
};

struct Message
{
    Word word {};
    int number = 0;
    std::string text;
    Descriptor passed;
};

// One end of a connection.
class Link
{
public:
    explicit Link(Descriptor socket) : socket_(std::move(socket)) {}

    // Both ends of a new one.
    static std::pair<Link, Link> pair();

    int descriptor() const { return socket_.number(); }
    void close() { socket_ = Descriptor(); }

    // Says nothing if nobody is left to hear it.
    void send(Word word, int number = 0, std::string_view text = {}) const;
    void pass(Word word, int descriptor, int number = 0) const;

    // Waits for the next message. Nothing when the other end has gone.
    std::optional<Message> receive() const;

private:
    Descriptor socket_;
};

} // namespace emulator
