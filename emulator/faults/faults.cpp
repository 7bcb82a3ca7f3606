#include "emulator/faults/faults.h"

#include "emulator/faults/chance.h"

#include <algorithm>

namespace emulator {

void Faults::add(std::string_view text)
{
    Fault fault = parse_fault(text);
    if (fault.is_of_opens && opens_ == Opens::Unseen)
        throw FaultError(text, 1, "opens can be at fault in a world with --opens only: elsewhere they are not seen");
    all_.push_back({std::move(fault), chance(seed_, all_.size())});
}

std::string Faults::list() const
{
    std::string lines;
    for (const Entry& entry : all_)
        lines.append(entry.fault.text).append("\n");
    return lines;
}

Fate Faults::of_command(std::uint32_t number)
{
    return next([number](const Fault& fault) {
        return std::binary_search(fault.commands.begin(), fault.commands.end(), number);
    });
}

Fate Faults::of_open()
{
    return next([](const Fault& fault) { return fault.is_of_opens; });
}

template <class IsMeant>
Fate Faults::next(IsMeant is_meant)
{
    Fate fate;
    for (Entry& entry : all_) {
        const Fault& fault = entry.fault;
        if (!is_meant(fault))
            continue;
        const std::uint64_t place = ++entry.met;
        const std::uint64_t drawn = chance(entry.seed, place);
        if (place < fault.first || place > fault.last || drawn % certain >= fault.probability)
            continue;
        if (fault.effect.kind == Effect::Kind::Delay) {
            fate.delay += Time(fault.effect.number);
        } else if (fate.hangs || fate.effect) {
            continue;
        } else {
            fate.hangs = fault.effect.kind == Effect::Kind::Hang;
            if (!fate.hangs)
                fate.effect = fault.effect;
            fate.seed = drawn;
        }
        fate.faults.append(fate.faults.empty() ? "" : " ").append(fault.text);
    }
    return fate;
}

} // namespace emulator
