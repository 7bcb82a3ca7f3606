// Request fields of router instances.
#pragma once

#include "channel/request.h"

namespace lumo {

inline constexpr Number<64, uint32_t> instance_value1;
inline constexpr RawText<140, 18> instance_text;
inline constexpr Number<160, uint32_t> instance_value2;

inline constexpr Text<68, 64> tunables;
inline constexpr Number<132, uint32_t> tunables_value;

} // namespace lumo
