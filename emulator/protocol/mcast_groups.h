// Multicast groups, replication and router addresses.
#pragma once

#include "emulator/protocol/mcast_receivers.h"

namespace emulator::protocol::mcast_groups {

inline constexpr std::size_t most = 4096; // more than the receivers of an instance can make

using addressed::instance;
using mcast_receivers::value;

namespace record {
inline constexpr U32 value {"value1", 0};
inline constexpr U32 local_receivers {"value2", 4};
inline constexpr U32 remote_receivers {"value3", 8};
inline constexpr Layout layout = fields_in<12, value, local_receivers, remote_receivers>;
} // namespace record

inline constexpr Ipv4 address {"address", 0};

inline constexpr Command commands[] = {
    {135, "GetMRoutingAllMcastGroups", request<instance>, list(record::layout, most)},
    {136, "GetMRoutingReplicationIP", request<instance, value>, one(bare<address>)},
    {137, "AddMRoutingMRouter", request<instance, value>, no_reply},
    {138, "DelMRoutingMRouter", request<instance>, no_reply},
    {139, "GetMRoutingMRouterIP", request<instance, value>, one(bare<address>)},
};

} // namespace emulator::protocol::mcast_groups
