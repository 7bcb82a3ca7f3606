// Reply layouts of policies and policy tables, and the shapes of their lists.
#pragma once

#include "channel/read.h"
#include "lumozeph.h"

namespace lumo {

// clang-format off
template <>
inline constexpr auto layout<LumoPolicyInfo> = describe<LumoPolicyInfo>(
    copy(0, AT(LumoPolicyInfo, value1)),
    copy(4, AT(LumoPolicyInfo, value2)),
    copy(8, AT(LumoPolicyInfo, value3)),
    copy(12, AT(LumoPolicyInfo, value4)),
    copy(16, AT(LumoPolicyInfo, value5)),
    copy(20, AT(LumoPolicyInfo, value6)));

template <>
inline constexpr auto layout<LumoPolicyTableInfo> = describe<LumoPolicyTableInfo>(
    copy(0, AT(LumoPolicyTableInfo, policyTableId)),
    text(4, AT(LumoPolicyTableInfo, policyTableName)),
    copy(68, AT(LumoPolicyTableInfo, value1)));

template <>
inline constexpr auto layout<LumoPolicyTableRefEntry> = describe<LumoPolicyTableRefEntry>(
    copy(0, AT(LumoPolicyTableRefEntry, bytes)));

template <>
inline constexpr auto layout<LumoLifPolicyTableRef> = describe<LumoLifPolicyTableRef>(
    text(0, AT(LumoLifPolicyTableRef, text1)),
    copy(64, AT(LumoLifPolicyTableRef, refCount)), // Kept: as reported, also beyond the twenty entries.
    table<LumoPolicyTableRefEntry>(66, AT(LumoLifPolicyTableRef, refs), AT(LumoLifPolicyTableRef, refCount)));
// clang-format on

inline constexpr ListShape policies {.cap = 1000};
inline constexpr ListShape policy_tables {.cap = 1000};

} // namespace lumo
