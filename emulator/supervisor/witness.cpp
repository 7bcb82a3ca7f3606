#include "emulator/supervisor/witness.h"

#include "emulator/supervisor/output.h"
#include "emulator/trace/reply.h"

#include <thread>
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
    --expected_;
}

void Witness::finish(std::chrono::milliseconds patience)
{
    // Commands that are delayed notice within a tenth of a second that nobody waits for them any more.
    const auto latest = std::chrono::steady_clock::now() + std::chrono::milliseconds(500);
    while (expected_ > 0 && std::chrono::steady_clock::now() < latest)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
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
