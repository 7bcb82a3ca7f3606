// Software receive-side scaling.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::rss {

inline constexpr std::size_t table_size = 128;
inline constexpr std::size_t most_queues = 16;

inline constexpr Text target {"target", 64, 64};

inline constexpr U64 tunables_value {"value1", 128};

inline constexpr Bytes<table_size> entries {"entries", 128};
inline constexpr I32 size {"size", 256};

namespace stats_record {
inline constexpr U32 queues {"rssEntryCount", 4};
inline constexpr Table word {"rssWord", 8, elements<U32>, most_queues};
inline constexpr Table counter1 {"rssCounter1", 76, elements<U64>, most_queues};
inline constexpr Table counter2 {"rssCounter2", 204, elements<U64>, most_queues};
inline constexpr Table counter3 {"rssCounter3", 332, elements<U64>, most_queues};
inline constexpr Layout layout = fields_in<804, queues, word, counter1, counter2, counter3>;
} // namespace stats_record

namespace tunables_record {
inline constexpr U64 value1 {"value1", 0};
inline constexpr U32 value2 {"value2", 8};
inline constexpr Layout layout = fields_in<12, value1, value2>;
} // namespace tunables_record

inline constexpr Bytes<table_size> table {"entries", 0};

inline constexpr Command commands[] = {
    {153, "SoftRSSGetStats", request<target>, one(stats_record::layout)},
    {154, "SoftRSSStatsReset", request<target>, no_reply},
    {155, "SoftRSSGetTunables", request<target>, one(tunables_record::layout)},
    {156, "SoftRSSSetTunables", request<target, tunables_value>, no_reply},
    {157, "SoftRSSGetIndTable", request<target>, one(bare<table>)},
    {158, "SoftRSSTableSet", request<target, entries, size>, no_reply},
};

} // namespace emulator::protocol::rss
