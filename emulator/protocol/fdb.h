// Forwarding table, FL table and PMACs.
#pragma once

#include "emulator/protocol/networks.h"

namespace emulator::protocol::fdb {

inline constexpr std::size_t most = 4096; // of one bridge

using bridges::key;
using networks::selected;
using networks::value16;
using networks::value32;

inline constexpr U32 selector1 {"selector1", 68};
inline constexpr U32 selector2 {"selector2", 72};
inline constexpr U32 value {"value", 80};
inline constexpr Text mac {"mac", 84, 18};
inline constexpr U8 flags {"flags", 102};
inline constexpr Flag set {"set", 104, 4};

namespace record {
inline constexpr Mac mac {"mac", 0};
inline constexpr U16 selector1 {"value1", 6};
inline constexpr U24 selector2 {"value2", 8};
inline constexpr U8 flags {"value3", 11};
inline constexpr U32 value {"value4", 12};
inline constexpr U32 value5 {"value5", 16};
inline constexpr Layout layout = fields_in<20, mac, selector1, selector2, flags, value, value5>;
} // namespace record

inline constexpr U16 fl_selector {"selector", 64};

inline constexpr U32 pmac_value {"value", 64};
inline constexpr Mac pmac {"mac", 68};

namespace pmac_record {
inline constexpr Mac mac {"mac", 0};
inline constexpr U32 value {"value", 6};
inline constexpr Layout layout = fields_in<10, mac, value>;
} // namespace pmac_record

inline constexpr std::size_t pmac_dump_size = 131072;
inline constexpr std::size_t most_pmacs = pmac_dump_size / pmac_record::layout.size;

inline constexpr Command commands[] = {
    {65, "GetBridgeFdbEntries", request<key, value16, value32, selected>, list(record::layout, most)},
    {66, "BridgeSetFdbEntry", request<key, selector1, selector2, selected, value, mac, flags, set>, no_reply},
    {67, "BridgeClearFdbTable", request<key, selector1, selector2, selected>, no_reply},
    // The model keeps no FL table: there is never anything to dump.
    {72, "DumpFLTable", request<fl_selector>, no_reply},
    {73, "GetPmac", request<>, list(pmac_record::layout, most_pmacs)},
    {74, "AddPmac", request<pmac_value, pmac>, no_reply},
    {75, "DelPmac", request<pmac>, no_reply},
};

} // namespace emulator::protocol::fdb
