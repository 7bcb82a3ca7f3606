// Request fields of policies and policy tables.
#pragma once

#include "channel/fields.h"
#include "lumozeph.h"

namespace lumo {

inline constexpr Number<64, uint32_t> policy_key1;
inline constexpr Number<68, uint32_t> policy_key2;
inline constexpr Number<212, uint32_t> policy_value;
inline constexpr Number<220, uint32_t> policy_table_id;
inline constexpr Text<224, 64> policy_table_name;

// References of a LIF, which is named by lif_name.
inline constexpr Number<288, uint16_t> ref_count;
inline constexpr CountedBytes<292, sizeof(LumoLifPolicyTableRef::refs)> ref_entries;

// An instance key that reads as empty, for the request that is not cleared.
inline constexpr Fixed<0, uint32_t {0}> empty_instance_key;

} // namespace lumo
