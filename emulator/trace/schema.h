// Says, as JSON schema, what the lines of a trace can be.
#pragma once

#include "emulator/state/json.h"

namespace emulator {

json::Value schema_of_traces();

} // namespace emulator
