// The module's device as programs see it.
#pragma once

#include <cstddef>
#include <string_view>

namespace emulator {

inline constexpr std::string_view normal_path = "/pelt/devices/char/zephdriver/kola_lumo";
inline constexpr std::string_view upgrade_path = "/pelt/devices/char/zephdriver/kola_lumo_ugrade";

inline constexpr bool is_device_path(std::string_view path)
{
    return path == normal_path || path == upgrade_path;
}

// The packed envelope that an ioctl of the device points at.
inline constexpr std::size_t envelope_size = 24;
inline constexpr std::size_t in_len_at = 0;   // 4 bytes
inline constexpr std::size_t in_ptr_at = 4;   // 8 bytes
inline constexpr std::size_t out_len_at = 12; // 4 bytes
inline constexpr std::size_t out_ptr_at = 16; // 8 bytes

// The module's commands are the ioctl requests from 0 to this.
inline constexpr unsigned last_command = 160;

} // namespace emulator
