#include "emulator/supervisor/trace.h"

#include <fmt/core.h>

namespace emulator {

void Trace::write(const Asked& asked, const Answer& answer) const
{
    if (file_ == nullptr)
        return;
    fmt::print(file_, "{{\"pid\":{},\"command\":{},\"inLen\":{},\"room\":{},\"errno\":{},\"replyLen\":{}}}\n",
        asked.pid, asked.number, asked.in_len, asked.room, answer.error, answer.error == 0 ? answer.reply.size() : 0);
    std::fflush(file_);
}

} // namespace emulator
