// Request fields of multicast routing.
#pragma once

#include "channel/fields.h"

namespace lumo {

inline constexpr Number<64, uint32_t> mcast_value;
inline constexpr Text<80, 64> receiver_text;
inline constexpr Number<80, uint32_t> remote_value1;
inline constexpr Number<84, uint32_t> remote_key;
inline constexpr Bytes<88, 6> remote_hw_addr;
inline constexpr Number<96, uint32_t> remote_value2;

} // namespace lumo
