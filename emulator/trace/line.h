// Events as lines.
#pragma once

#include "emulator/trace/event.h"
#include "emulator/trace/fields.h"

#include <string>

namespace emulator {

// In the manner of strace, or as a JSON object that trace.schema.json describes. Each ends in a newline.
void append_line(std::string& out, TraceFormat format, const Event& event);

// In the place of lines that were left out.
void append_lost(std::string& out, TraceFormat format, std::uint64_t lines);
// In front of what is remembered, if there was more.
void append_forgotten(std::string& out, TraceFormat format, std::uint64_t events);

// What these are made of.
void append_text_line(std::string& out, const Event& event);
void append_json_line(std::string& out, const Event& event);

} // namespace emulator
