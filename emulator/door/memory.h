// The memory that callers point at, which may not be there.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace emulator {

// False if the memory is not there, or may not be read or written.
//
// Only the kernel can tell, and asking it takes longer than a command. A page of which it has said so once, in this
// thread, is taken to stay as it is.
bool read_memory(std::uint64_t address, std::span<std::byte> into);
bool write_memory(std::uint64_t address, std::span<const std::byte> bytes);

} // namespace emulator
