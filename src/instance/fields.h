// Request fields of router instances.
#pragma once

#include "channel/fields.h"

namespace lumo {

inline constexpr Number<64, uint32_t> instance_value1;
inline constexpr RawText<140, 18> instance_text; // Kept: not terminated when it fills the field.
inline constexpr Number<160, uint32_t> instance_value2;

inline constexpr Text<68, 64> tunables;
inline constexpr Number<132, uint32_t> tunables_value;

// Statistics of a LIF, which is named by lif_name.
inline constexpr Fixed<360, uint32_t {1}> cached;

// Control plane.
inline constexpr Number<136, uint32_t> cp_ip;
inline constexpr Number<64, uint32_t> cp_sync_state;

// Port connections.
inline constexpr Text<64, 64> connection_name;
inline constexpr Text<128, 16> connection_text1;
inline constexpr Text<144, 18> connection_text2;
inline constexpr Text<162, 32> connection_text3;
inline constexpr Text<194, 256> connection_text4;

// Housekeeping.
inline constexpr Number<64, uint32_t> flush_value1;
inline constexpr Number<68, uint8_t> flush_value4;
inline constexpr Number<69, uint8_t> flush_value2;
inline constexpr Number<70, uint8_t> flush_value3;
inline constexpr Text<71, 64> flush_text;
inline constexpr Number<136, uint32_t> flush_value5;
inline constexpr Number<64, uint8_t> sync_save_arg;

} // namespace lumo
