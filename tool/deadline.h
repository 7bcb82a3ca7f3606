// Ends the tool when a call hangs.
#pragma once

#include <chrono>
#include <string>

namespace tool {

// After this time, writes the message to standard error and exits as after a failure.
void end_after(std::chrono::duration<double> time, std::string message);
// Takes that back.
void end_no_more();

} // namespace tool
