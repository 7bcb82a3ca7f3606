// Recordings of what was asked and answered, whole.
#pragma once

#include "emulator/trace/event.h"

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace emulator {

class RecordingError : public std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct Recording
{
    std::vector<Event> events; // calls, in order
    std::string damage;        // why there are no more, if it does not end behind an entry
};

// Throws a RecordingError if these bytes are no recording, or one of another version.
Recording parse_recording(std::span<const std::byte> bytes);
// The same with a file; what is thrown names it.
Recording read_recording(const std::string& path);

std::vector<std::byte> header_of_recording();
// An event that is no call has none.
std::vector<std::byte> entry_of(const Event& event);

} // namespace emulator
