// Replies as a module in use gives them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <lumozeph.h>
#include <random>
#include <vector>

namespace bench {

// Texts of 36 bytes, and of 8 to 14.
template <std::size_t Width>
void put_uuid(char (&field)[Width], std::size_t index)
{
    static_assert(Width > 36);
    std::memset(field, 0, Width);
    std::snprintf(field, Width, "%08zx-51b3-4f0e-9c1d-00005e0053%02zx", index, index % 256);
}

template <std::size_t Width>
void put_name(char (&field)[Width], std::size_t index)
{
    std::memset(field, 0, Width);
    std::snprintf(field, Width, index % 3 == 0 ? "uplink-%zu" : "lif-0000-%zu", index % 10000);
}

// What the records hold beside counts and texts is arbitrary.
inline void complete(LumoInstanceInfo& record, std::size_t index)
{
    put_uuid(record.instanceKey, index);
    put_uuid(record.text2, index);
}

inline void complete(LumoLifInfo& record, std::size_t index)
{
    put_name(record.lifName, index);
    put_uuid(record.lifSecondName, index);
    record.ipv6Count = static_cast<uint32_t>(index % 3);
}

inline void complete_route(LumoRouteInfo& record, std::size_t index, std::size_t next_hops)
{
    std::memset(record.nextHops, 0, sizeof record.nextHops);
    record.nextHopCount = static_cast<uint8_t>(next_hops);
    for (std::size_t i = 0; i < next_hops; ++i)
        put_name(record.nextHops[i].nextHopLifName, index + i);
}

inline void complete(LumoRouteInfo& record, std::size_t index)
{
    complete_route(record, index, 1 + index % 2);
}

inline void complete(LumoPolicyTableInfo& record, std::size_t index)
{
    put_name(record.policyTableName, index);
}

inline void complete(LumoBridgeInstanceInfo& record, std::size_t index)
{
    put_name(record.name, index);
    put_uuid(record.text1, index);
    put_uuid(record.text2, index);
}

inline void complete(LumoLocalRcvrInfo& record, std::size_t index)
{
    put_uuid(record.text1, index);
}

inline void complete(LumoLifPolicyTableRef& record, std::size_t index)
{
    put_name(record.text1, index);
    record.refCount = 4;
}

inline void complete(LumoMcastDomainInfo& record, std::size_t index)
{
    put_uuid(record.text1, index);
    put_name(record.text2, index);
}

inline void complete(LumoStats& record, std::size_t)
{
    record.statsKind = 1;
}

template <class Record>
inline void complete(Record&, std::size_t)
{}

template <class Record, class Complete>
std::vector<Record> reply_of(std::size_t count, Complete complete_record)
{
    std::mt19937_64 random(1);
    std::vector<Record> records(count);
    char* const bytes = reinterpret_cast<char*>(records.data());
    for (std::size_t at = 0; at < count * sizeof(Record); at += sizeof(std::uint64_t)) {
        const std::uint64_t word = random();
        std::memcpy(bytes + at, &word, std::min(sizeof word, count * sizeof(Record) - at));
    }
    for (std::size_t i = 0; i < count; ++i)
        complete_record(records[i], i);
    return records;
}

template <class Record>
std::vector<Record> reply_of(std::size_t count)
{
    return reply_of<Record>(count, [](Record& record, std::size_t index) { complete(record, index); });
}

} // namespace bench
