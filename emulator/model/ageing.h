// What was learned and not set is forgotten when it has not been seen for as long as its table keeps such entries.
#pragma once

#include "emulator/model/state.h"

namespace emulator {

// Forwarding entries and neighbours whose time has come; they are looked through at most once a second, and
// under a manual clock when it is time.
void forget_what_has_aged(State& state);

} // namespace emulator
