// Request fields of receive-side scaling.
#pragma once

#include "channel/fields.h"
#include "lumozeph.h"

namespace lumo {

inline constexpr Text<64, 64> rss_target_name;
inline constexpr Bytes<128, sizeof(LumoRssTunables::value1)> rss_tunables;
inline constexpr CountedBytes<128, sizeof(LumoRssIndTable::entries)> rss_ind_table;
inline constexpr Number<256, int32_t> rss_ind_table_size;

} // namespace lumo
