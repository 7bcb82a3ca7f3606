// Policies in policy tables.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::policies {

inline constexpr std::size_t most = 1000; // of one table

inline constexpr U32 key1 {"key1", 64};
inline constexpr U32 key2 {"key2", 68};
inline constexpr U32 value {"value", 212};
inline constexpr U32 table {"table", 220};

namespace record {
inline constexpr U32 table {"value1", 0};
inline constexpr U32 key1 {"value2", 4};
inline constexpr U32 key2 {"value3", 8};
inline constexpr U32 value {"value4", 12};
inline constexpr U32 value5 {"value5", 16};
inline constexpr U64 value6 {"value6", 20};
inline constexpr Layout layout = fields_in<28, table, key1, key2, value, value5, value6>;
} // namespace record

inline constexpr U32 count {"count", 0};

inline constexpr Command commands[] = {
    {119, "GetPolicy", request<table>, list(record::layout, most)},
    {120, "SetPolicy", request<key1, key2, value, table>, result_if_asked},
    {121, "DelPolicy", request<key1, key2, table>, result_if_asked},
    // Whatever else this request holds: its other bytes are not cleared.
    {122, "GetPolicyCount", request<table>, one(bare<count>)},
};

} // namespace emulator::protocol::policies
