// Plumbed connections, of ports and for BFD.
#pragma once

#include "emulator/model/state.h"

namespace emulator {

// A connection of the same name is replaced.
int plumb(const Connection& connection, Collection<Connection>& all);
int unplumb(const std::string& name, Collection<Connection>& all);

} // namespace emulator
