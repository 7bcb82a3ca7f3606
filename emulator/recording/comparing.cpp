#include "emulator/recording/comparing.h"

#include "emulator/recording/difference.h"
#include "emulator/recording/replay.h"
#include "emulator/trace/line.h"

#include <algorithm>
#include <cerrno>
#include <optional>

namespace emulator {

namespace {

constexpr std::size_t most_lines = 20; // of one call

Answer ask(Module& module, const Call& call)
{
    if (call.in_len != call.input.size())
        return {EINVAL, {}};
    return module.answer(call.number, call.input, call.room);
}

} // namespace

Compared compare(const Recording& recording, Module& module)
{
    Compared made;
    std::optional<std::chrono::system_clock::time_point> last;
    for (const Event& event : recording.events) {
        if (!can_be_repeated(event))
            continue;
        if (last && event.begun > *last)
            module.advance(std::chrono::duration_cast<Time>(event.begun - *last));
        last = std::max(last.value_or(event.begun), event.begun);
        const Call& call = std::get<Call>(event.what);
        const Answer answer = ask(module, call);
        // It took place, but the caller's memory did not take the reply.
        if (event.error == EFAULT)
            continue;
        ++made.calls;
        const auto lines =
            differences_of_answers(call.number, recorded_answer(event), answer, {"recorded", "the model"});
        if (lines.empty())
            continue;
        ++made.differ;
        append_number(made.lines, call.order);
        made.lines += ": ";
        append_line(made.lines, TraceFormat::Text, event);
        for (std::size_t i = 0; i < std::min(lines.size(), most_lines); ++i)
            made.lines += "  " + lines[i] + "\n";
        if (lines.size() > most_lines)
            made.lines += "  and " + std::to_string(lines.size() - most_lines) + " more\n";
    }
    return made;
}

} // namespace emulator
