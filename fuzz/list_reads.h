// Reads of counted lists.
#pragma once

#include "reads.h"

namespace fuzz {

void read_list(const Read& read, Input& input);

} // namespace fuzz
