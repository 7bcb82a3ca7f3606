// The signals that a process of the emulator hears of.
#pragma once

#include "emulator/supervisor/descriptor.h"

#include <csignal>
#include <initializer_list>
#include <optional>
#include <sys/signalfd.h>

namespace emulator {

// Signals that are heard of by a descriptor while this lives, and how they were set before.
class Signals
{
public:
    // Those that were ignored before stay so.
    explicit Signals(std::initializer_list<int> heard);
    ~Signals() { restore(); }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    void restore() const;
    int descriptor() const { return descriptor_.number(); }
    std::optional<signalfd_siginfo> next() const;

private:
    sigset_t mask_before_ {};
    struct sigaction child_before_
    {};
    Descriptor descriptor_;
};

} // namespace emulator
