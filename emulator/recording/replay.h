// Answers calls as a recording has them answered.
#pragma once

#include "emulator/recording/recording.h"

#include "emulator/model/module.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace emulator {

enum class ReplayOrder
{
    Strict,  // each call must be the recording's next one
    Matching // of the recording's equal calls, the next one that has not been made, or else the last one
};

// Whether a recorded event is a call that was received and answered.
bool can_be_repeated(const Event& event);
Answer recorded_answer(const Event& event);

class Replay
{
public:
    Replay(const Recording& recording, ReplayOrder order);
    Replay(const Replay&) = delete;
    Replay& operator=(const Replay&) = delete;

    // Fails with EIO if the recording has no such call, and if order is strict, from then on.
    Answer answer(const Call& call);

    // What differed first, field by field: lines, or nothing. Calls that were not made differ if the order is strict.
    std::string difference() const;

private:
    struct Entry
    {
        Call call;
        std::string asked;
        Answer answer;
        bool was_made = false;
    };
    // Those that ask the same, in their order.
    struct Equals
    {
        std::vector<std::size_t> entries;
        std::size_t next = 0;
    };

    Entry* next_for(const Call& call);
    const Entry* nearest(const Call& call) const;
    void tell(const Call& call);

    ReplayOrder order_;
    std::vector<Entry> entries_;
    std::unordered_map<std::string_view, Equals> equals_; // by what they ask; if order is matching
    std::size_t made_ = 0;                                // calls
    std::string difference_;
};

} // namespace emulator
