#include "emulator/trace/line.h"

namespace emulator {

namespace {

void append_count(std::string& out, TraceFormat format, const char* what, std::uint64_t count)
{
    const bool is_json = format == TraceFormat::Json;
    out.append(is_json ? "{\"" : "+++ ").append(what).append(is_json ? "\":" : ": ");
    append_number(out, count);
    out.append(is_json ? "}\n" : " +++\n");
}

} // namespace

void append_line(std::string& out, TraceFormat format, const Event& event)
{
    if (format == TraceFormat::Json)
        append_json_line(out, event);
    else
        append_text_line(out, event);
}

void append_lost(std::string& out, TraceFormat format, std::uint64_t lines)
{
    append_count(out, format, "lost", lines);
}

void append_forgotten(std::string& out, TraceFormat format, std::uint64_t events)
{
    append_count(out, format, "forgotten", events);
}

} // namespace emulator
