// Whether the machine can run the emulator.
#pragma once

namespace emulator {

// Tries, and says it. Returns an exit status.
int check();

} // namespace emulator
