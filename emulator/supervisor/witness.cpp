#include "emulator/supervisor/witness.h"

#include "emulator/supervisor/output.h"
#include "emulator/trace/reply.h"

#include <unistd.h>
#include <utility>

namespace emulator {

Witness::Witness(const Telling& telling)
    : traced_(telling.traced),
      sees_commands_(telling.trace >= 0 || telling.recording >= 0 || telling.journal || telling.summary)
{
    if (telling.journal)
        journal_.emplace(*telling.journal);
    if (telling.recording >= 0)
        recorder_.emplace(telling.recording);
    if (telling.trace >= 0)
        trace_.emplace(telling.trace, telling.format);
    if (telling.summary)
        summary_.emplace();
}

void Witness::tell(Event event)
{
    if (recorder_)
        recorder_->add(event);
    if (Call* const call = std::get_if<Call>(&event.what))
        keep_reply(*call, std::move(call->reply));
    const auto told = std::make_shared<const Event>(std::move(event));
    if (summary_) {
        const std::lock_guard lock(mutex_);
        summary_->count(*told);
    }
    if (journal_)
        journal_->add(told);
    if (trace_)
        trace_->add(told);
}

void Witness::finish(std::chrono::milliseconds patience)
{
    if (recorder_)
        recorder_->finish();
    if (trace_)
        trace_->finish(patience);
    if (summary_) {
        const std::lock_guard lock(mutex_);
        write_all(STDERR_FILENO, summary_->table());
    }
}

} // namespace emulator
