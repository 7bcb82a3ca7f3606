// The faults that commands and opens meet with.
#pragma once

#include "emulator/faults/fate.h"

#include <string>
#include <string_view>
#include <vector>

namespace emulator {

// Whether whoever asks for fates asks for those of opens, too.
enum class Opens
{
    Unseen,
    Seen
};

class Faults
{
public:
    // seed: of what is at random in them.
    explicit Faults(std::uint64_t seed = 0, Opens opens = Opens::Unseen) : seed_(seed), opens_(opens) {}

    // Throws a FaultError, and then nothing has changed.
    void add(std::string_view text);
    // Those that are added then strike as if they were the first.
    void clear() { all_.clear(); }

    // A line for each, as it was written.
    std::string list() const;

    // What is to become of the next command of this number, or the next open. All delays of it add up; of the other
    // faults that strike it, the one that was added first counts.
    Fate of_command(std::uint32_t number);
    Fate of_open();

private:
    struct Entry
    {
        Fault fault;
        std::uint64_t seed;
        std::uint64_t met = 0; // how many commands, or opens, that it is about there have been
    };

    template <class IsMeant>
    Fate next(IsMeant is_meant);

    std::uint64_t seed_;
    Opens opens_;
    std::vector<Entry> all_;
};

} // namespace emulator
