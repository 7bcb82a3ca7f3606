// Bytes as hexdump -C shows them.
#pragma once

#include "tool/output.h"

#include <cstddef>
#include <span>

namespace tool {

void print_bytes(Output& output, std::span<const std::byte> bytes);

} // namespace tool
