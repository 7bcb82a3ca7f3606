// Request fields that several families send.
#pragma once

#include "channel/request.h"

namespace lumo {

// The instance addressed, in the first field of every request that addresses one.
inline constexpr Text<0, 64> instance_key;
inline constexpr RawText<0, 64> unterminated_instance_key;

// The LIF addressed.
inline constexpr Text<192, 64> lif_name;
inline constexpr RawText<192, 64> unterminated_lif_name;

} // namespace lumo
