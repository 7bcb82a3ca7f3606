// The state of a world's module, and its faults, as somebody outside reads and changes them while the world is there.
#pragma once

#include "emulator/model/time.h"
#include "emulator/state/json.h"
#include "emulator/supervisor/link.h"
#include "emulator/supervisor/server.h"

#include <stdexcept>
#include <string>

namespace emulator {

// What the world does not do, because what it is asked makes no sense. Then nothing has changed.
class Refusal : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// The side of whoever asks. Everything throws if the world ends meanwhile.
class WorldState
{
public:
    // Throws if there is no such world.
    explicit WorldState(const std::string& world);

    std::string read() const;

    // These take JSON documents. A Refusal begins with the line and the column of what is wrong in them.
    void replace(const std::string& state) const { change(Word::Replace, state); }
    void patch(const std::string& operations) const { change(Word::Patch, operations); }
    void merge(const std::string& changes) const { change(Word::Merge, changes); }

    // The operations that make the world's state of another.
    std::string difference_from(const std::string& state) const;

    // Seconds, with up to nine decimals.
    void advance(const std::string& seconds) const;

    // A Refusal begins with the column of what is wrong.
    void add_fault(const std::string& fault) const { change(Word::Fault, fault); }
    void clear_faults() const;
    // A line for each.
    std::string faults() const;

    // What was asked of the module, and answered.
    std::string journal(TraceFormat format) const;

private:
    void change(Word how, const std::string& document) const;
    Message answer() const;

    Link link_;
};

// The world's side: answers what somebody asks by these words.
bool is_about_module(Word word);
void answer_about_module(SharedModule& module, const Message& asked, const Link& link);

} // namespace emulator
