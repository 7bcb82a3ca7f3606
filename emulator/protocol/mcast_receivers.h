// Multicast domain and receivers.
#pragma once

#include "emulator/protocol/command.h"

namespace emulator::protocol::mcast_receivers {

inline constexpr std::size_t most_local = 512;   // of one instance
inline constexpr std::size_t most_remote = 2048; // of one instance

using addressed::instance;

inline constexpr U32 value {"value", 64};

inline constexpr Text text {"text", 80, 64};

inline constexpr U32 value1 {"value1", 80};
inline constexpr U32 key {"key", 84};
inline constexpr Mac hw_addr {"hwAddr", 88};
inline constexpr U32 value2 {"value2", 96};

namespace domain_record {
inline constexpr Text name {"text1", 0, 64};
inline constexpr Text text2 {"text2", 64, 48};
inline constexpr U64 value1 {"value1", 112};
inline constexpr U64 value2 {"value2", 120};
inline constexpr U64 value3 {"value3", 128};
inline constexpr U64 value4 {"value4", 136};
inline constexpr U32 value5 {"value5", 144};
inline constexpr Layout layout = fields_in<148, name, text2, value1, value2, value3, value4, value5>;
} // namespace domain_record

namespace local_record {
inline constexpr Text text {"text1", 0, 64};
inline constexpr U32 value {"value1", 64};
inline constexpr U32 value2 {"value2", 68};
inline constexpr U64 value3 {"value3", 72};
inline constexpr U64 value4 {"value4", 80};
inline constexpr Layout layout = fields_in<88, text, value, value2, value3, value4>;
} // namespace local_record

inline constexpr U32 count {"count", 0};

namespace remote_record {
inline constexpr U32 key {"key", 0};
inline constexpr Mac hw_addr {"hwAddr", 4};
inline constexpr U32 value1 {"value1", 12};
inline constexpr U32 value2 {"value2", 16};
inline constexpr Layout layout = fields_in<68, key, hw_addr, value1, value2>;
} // namespace remote_record

inline constexpr Command commands[] = {
    {128, "GetMRoutingLocalRcvrs", request<instance, value>, list(local_record::layout, most_local)},
    {129, "GetMRoutingRemoteRcvrs", request<instance, value>,
        counted_list(bare<count>, remote_record::layout, most_remote)},
    {130, "GetMRoutingDomain", request<instance>, one(domain_record::layout)},
    {131, "AddMRoutingRemoteRcvrs", request<instance, value, value1, key, hw_addr, value2>, no_reply},
    // Whatever else this request holds: its other bytes are not cleared.
    {132, "DelMRoutingRemoteRcvrs", request<instance, value, key>, no_reply},
    {133, "AddMRoutingLocalRcvrs", request<instance, value, text>, no_reply},
    {134, "DelMRoutingLocalRcvrs", request<instance, value, text>, no_reply},
};

} // namespace emulator::protocol::mcast_receivers
