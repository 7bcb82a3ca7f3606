// What becomes of one command, or of one open.
#pragma once

#include "emulator/faults/fault.h"
#include "emulator/model/module.h"

#include <optional>
#include <string>

namespace emulator {

struct Fate
{
    Time delay {};                   // how long it waits before anything else becomes of it
    bool hangs = false;              // it waits forever
    std::optional<Effect> effect {}; // neither of these
    std::uint64_t seed = 0;          // of what is at random in it
    std::string faults {};           // that strike it, as they were written, with spaces between

    bool waits() const { return hangs || delay > Time {}; }
    // The errno with which it fails, or 0.
    int error() const;
};

// Returns when it has waited long enough, or never.
void wait(const Fate& fate);

// What the module answers to a command of this fate: by itself, or not at all, or something else than it would.
Answer answer(
    Module& module, const Fate& fate, std::uint32_t number, std::span<const std::byte> input, std::uint32_t room);

} // namespace emulator
