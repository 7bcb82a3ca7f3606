#include "emulator/recording/replay.h"

#include "emulator/recording/difference.h"
#include "emulator/trace/reply.h"

#include <algorithm>
#include <cerrno>
#include <variant>

namespace emulator {

namespace {

constexpr Sides sides {"recorded", "now"};

} // namespace

Answer recorded_answer(const Event& event)
{
    const Call& call = std::get<Call>(event.what);
    Answer answer {*event.error, call.reply};
    if (call.reply_len != call.reply.size() && answer.error == 0)
        answer.reported = call.reply_len;
    return answer;
}

bool can_be_repeated(const Event& event)
{
    const Call* const call = std::get_if<Call>(&event.what);
    return call != nullptr && call->readable == Readable::Input && event.error.has_value();
}

Replay::Replay(const Recording& recording, ReplayOrder order) : order_(order)
{
    for (const Event& event : recording.events)
        if (can_be_repeated(event)) {
            const Call& call = std::get<Call>(event.what);
            entries_.push_back({call, asked_by(call), recorded_answer(event)});
        }
    for (std::size_t i = 0; order_ == ReplayOrder::Matching && i < entries_.size(); ++i)
        equals_[entries_[i].asked].entries.push_back(i);
}

Answer Replay::answer(const Call& call)
{
    ++made_;
    if (order_ == ReplayOrder::Strict && !difference_.empty())
        return {EIO, {}};
    Entry* const entry = next_for(call);
    if (entry == nullptr) {
        if (difference_.empty())
            tell(call);
        return {EIO, {}};
    }
    entry->was_made = true;
    return entry->answer;
}

Replay::Entry* Replay::next_for(const Call& call)
{
    const std::string asked = asked_by(call);
    if (order_ == ReplayOrder::Strict) {
        Entry* const next = made_ <= entries_.size() ? &entries_[made_ - 1] : nullptr;
        return next != nullptr && next->asked == asked ? next : nullptr;
    }
    const auto found = equals_.find(asked);
    if (found == equals_.end())
        return nullptr;
    Equals& equals = found->second;
    const std::size_t last = equals.entries.size() - 1;
    return &entries_[equals.entries[std::min(equals.next++, last)]];
}

// With what a call is compared that the recording has not.
const Replay::Entry* Replay::nearest(const Call& call) const
{
    if (order_ == ReplayOrder::Strict)
        return made_ <= entries_.size() ? &entries_[made_ - 1] : nullptr;
    const auto is_like = [&](const Entry& entry) { return entry.call.number == call.number; };
    const auto unmade = std::find_if(
        entries_.begin(), entries_.end(), [&](const Entry& entry) { return is_like(entry) && !entry.was_made; });
    const auto found = unmade != entries_.end() ? unmade : std::find_if(entries_.begin(), entries_.end(), is_like);
    return found != entries_.end() ? &*found : nullptr;
}

void Replay::tell(const Call& call)
{
    difference_ = "call " + std::to_string(made_) + ", " + name_of_command(call.number) + ", differs:\n";
    const Entry* const entry = nearest(call);
    if (entry == nullptr) {
        difference_ += "  it is not in the recording\n";
        return;
    }
    for (const std::string& line : differences_of_requests(entry->call, call, sides))
        difference_ += "  " + line + "\n";
}

std::string Replay::difference() const
{
    if (!difference_.empty() || order_ == ReplayOrder::Matching || made_ >= entries_.size())
        return difference_;
    return "call " + std::to_string(made_ + 1) + ", " + name_of_command(entries_[made_].call.number) +
           ", was not made\n";
}

} // namespace emulator
