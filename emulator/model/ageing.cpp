#include "emulator/model/ageing.h"

#include "emulator/model/lif_users.h"

#include <algorithm>

namespace emulator {

namespace {

// Keeps track of what is to be forgotten next, while looking for what is to be forgotten now.
class Sweep
{
public:
    explicit Sweep(Time now) : now_(now) {}

    template <class Entry>
    bool is_over(const Entry& entry, std::chrono::seconds kept)
    {
        if (!entry.learned)
            return false;
        const Time end = *entry.learned + kept;
        if (end <= now_)
            return true;
        next_ = std::min(next_, end);
        return false;
    }

    Time next() const { return next_; }

private:
    Time now_;
    Time next_ = Time::max();
};

} // namespace

void forget_what_has_aged(State& state)
{
    if (state.next_ageing == Time::max())
        return;
    const Time now = state.stopwatch.now();
    if (now < state.next_ageing)
        return;
    Sweep sweep(now);
    for (Bridge& bridge : state.bridges)
        bridge.fdb.remove_all([&](const FdbEntry& entry) { return sweep.is_over(entry, bridge.fdb_ageing); });
    for (Instance& instance : state.instances)
        instance.neighbours.remove_all([&](const Neighbour& neighbour) {
            const bool is_over = sweep.is_over(neighbour, instance.neighbour_ageing);
            if (is_over)
                leave_lif<&Lif::neighbours>(instance, neighbour.lif, neighbour);
            return is_over;
        });
    // Time that passes by itself would have them looked through for each of them.
    const bool passes_by_itself = state.settings.clock == Clock::Real && sweep.next() != Time::max();
    state.next_ageing =
        passes_by_itself ? in_whole_seconds(sweep.next() - Time(1)) + std::chrono::seconds(1) : sweep.next();
}

} // namespace emulator
