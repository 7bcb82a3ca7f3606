// Plumbed connections, of ports and for BFD.
#pragma once

#include "emulator/model/state.h"

namespace emulator {

// A connection of the same name is replaced.
int plumb(const Connection& connection, std::vector<Connection>& all);
int unplumb(const std::string& name, std::vector<Connection>& all);

// Null if there is none.
const Connection* find_connection(const std::string& name, const std::vector<Connection>& all);

} // namespace emulator
