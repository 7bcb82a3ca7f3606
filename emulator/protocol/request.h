// The inputs of commands: the request record for nearly all, bare<...> or nothing for the others.
#pragma once

#include "emulator/protocol/layout.h"

namespace emulator::protocol {

inline constexpr std::size_t request_size = 776;

template <const auto&... Named>
inline constexpr Layout request = fields_in<request_size, Named...>;

inline constexpr Layout no_input {};

// Whom a request addresses.
namespace addressed {
inline constexpr Text instance {"instance", 0, 64};
inline constexpr Text lif {"lif", 192, 64};
} // namespace addressed

} // namespace emulator::protocol
