// The module's device as programs see it: its paths, and the packed envelope that an ioctl of it points at.
#pragma once

#include "emulator/protocol/layout.h"

namespace emulator::protocol {

inline constexpr std::string_view normal_path = "/pelt/devices/char/zephdriver/kola_lumo";
inline constexpr std::string_view upgrade_path = "/pelt/devices/char/zephdriver/kola_lumo_ugrade";

constexpr bool is_device_path(std::string_view path)
{
    return path == normal_path || path == upgrade_path;
}

namespace envelope {
inline constexpr U32 in_len {"inLen", 0};
inline constexpr U64 in_ptr {"inPtr", 4};
inline constexpr U32 out_len {"outLen", 12}; // the room for the reply; the module puts the reply's length in its place
inline constexpr U64 out_ptr {"outPtr", 16};
inline constexpr Layout layout = fields_in<24, in_len, in_ptr, out_len, out_ptr>;
} // namespace envelope

// No command takes more input: of what is longer, no more is read.
inline constexpr std::uint32_t longest_input = 4096;

} // namespace emulator::protocol
