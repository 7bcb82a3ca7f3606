// Reply layouts of bridges, and the shapes of their lists.
#pragma once

#include "channel/read.h"
#include "lumozeph.h"

namespace lumo {

// clang-format off
template <>
inline constexpr auto layout<LumoBridgeInstanceInfo> = describe<LumoBridgeInstanceInfo>(
    copy(0, AT(LumoBridgeInstanceInfo, value1)),
    copy(8, AT(LumoBridgeInstanceInfo, value2)),
    text(12, AT(LumoBridgeInstanceInfo, name)),
    copy(76, AT(LumoBridgeInstanceInfo, value3)),
    copy(80, AT(LumoBridgeInstanceInfo, value4)),
    text(84, AT(LumoBridgeInstanceInfo, text1)),
    text(212, AT(LumoBridgeInstanceInfo, text2)),
    skip(293, AT(LumoBridgeInstanceInfo, uncopied)), // Kept: zero in every decoded record.
    copy(305, AT(LumoBridgeInstanceInfo, value5)),
    copy(309, AT(LumoBridgeInstanceInfo, value6)),
    copy(313, AT(LumoBridgeInstanceInfo, data)));

template <>
inline constexpr auto layout<LumoBridgeNetworkInfo> = describe<LumoBridgeNetworkInfo>(
    copy(0, AT(LumoBridgeNetworkInfo, value1)),
    copy(8, AT(LumoBridgeNetworkInfo, value2)),
    copy(12, AT(LumoBridgeNetworkInfo, value3)),
    copy(14, AT(LumoBridgeNetworkInfo, value4)),
    copy(18, AT(LumoBridgeNetworkInfo, value5)),
    copy(20, AT(LumoBridgeNetworkInfo, value6)),
    copy(24, AT(LumoBridgeNetworkInfo, value7)),
    copy(28, AT(LumoBridgeNetworkInfo, value8)),
    copy(29, AT(LumoBridgeNetworkInfo, data)),
    skip(125, AT(LumoBridgeNetworkInfo, uncopied))); // Kept: zero in every decoded record.

template <>
inline constexpr auto layout<LumoBridgePortInfo> = describe<LumoBridgePortInfo>(
    copy(0, AT(LumoBridgePortInfo, value1)),
    copy(8, AT(LumoBridgePortInfo, value2)),
    copy(12, AT(LumoBridgePortInfo, value3)),
    copy(14, AT(LumoBridgePortInfo, value4)),
    copy(18, AT(LumoBridgePortInfo, data)));

// A bit-field has no address: value2 and value3 are the word between their neighbours.
inline constexpr Member fdb_word {offsetof(LumoBridgeFdbEntry, value1) + sizeof(uint16_t), sizeof(uint32_t)};

template <>
inline constexpr auto layout<LumoBridgeFdbEntry> = describe<LumoBridgeFdbEntry>(
    copy(0, AT(LumoBridgeFdbEntry, mac)),
    copy(6, AT(LumoBridgeFdbEntry, value1)),
    copy(8, fdb_word),
    copy(12, AT(LumoBridgeFdbEntry, value4)),
    copy(16, AT(LumoBridgeFdbEntry, value5)));

template <>
inline constexpr auto layout<LumoBridgeClusterInfo> = describe<LumoBridgeClusterInfo>(
    copy(0, AT(LumoBridgeClusterInfo, ident)), // Kept: no NUL is forced.
    skip(64, AT(LumoBridgeClusterInfo, uncopied)), // Kept: zero in every decoded record.
    copy(72, AT(LumoBridgeClusterInfo, value1)),
    copy(76, AT(LumoBridgeClusterInfo, block)),
    copy(172, AT(LumoBridgeClusterInfo, value2)),
    copy(174, AT(LumoBridgeClusterInfo, value3)),
    copy(176, AT(LumoBridgeClusterInfo, value4)),
    copy(178, AT(LumoBridgeClusterInfo, value5)),
    copy(179, AT(LumoBridgeClusterInfo, value6)));

template <>
inline constexpr auto layout<LumoBridgeClusterNodeInfo> = describe<LumoBridgeClusterNodeInfo>(
    copy(0, AT(LumoBridgeClusterNodeInfo, ident)), // Kept: no NUL is forced.
    copy(64, AT(LumoBridgeClusterNodeInfo, value1)),
    copy(68, AT(LumoBridgeClusterNodeInfo, value2)),
    copy(70, AT(LumoBridgeClusterNodeInfo, value3)));

template <>
inline constexpr auto layout<LumoBridgeEndpointInfo> = describe<LumoBridgeEndpointInfo>(
    skip(0, AT(LumoBridgeEndpointInfo, uncopied)), // Kept: zero in every decoded record.
    copy(64, AT(LumoBridgeEndpointInfo, ident)), // Kept: no NUL is forced.
    copy(128, AT(LumoBridgeEndpointInfo, value1)),
    copy(130, AT(LumoBridgeEndpointInfo, value2)),
    copy(131, AT(LumoBridgeEndpointInfo, value3)),
    copy(135, AT(LumoBridgeEndpointInfo, value4)),
    copy(139, AT(LumoBridgeEndpointInfo, block)));

template <>
inline constexpr auto layout<LumoBridgeBfdSessionInfo> = describe<LumoBridgeBfdSessionInfo>(
    copy(0, AT(LumoBridgeBfdSessionInfo, value1)),
    copy(2, AT(LumoBridgeBfdSessionInfo, addr1)),
    copy(8, AT(LumoBridgeBfdSessionInfo, addr2)),
    copy(14, AT(LumoBridgeBfdSessionInfo, value2)),
    copy(18, AT(LumoBridgeBfdSessionInfo, value3)),
    copy(19, AT(LumoBridgeBfdSessionInfo, value4)),
    copy(23, AT(LumoBridgeBfdSessionInfo, value5)),
    copy(31, AT(LumoBridgeBfdSessionInfo, value6)));
// clang-format on

// Kept: the holder of a bridge list stays allocated when the device call fails.
inline constexpr ListShape bridge_instances {.cap = 4096, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape bridge_networks {.cap = 32768, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape bridge_ports {.cap = 32768, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape fdb_entries {.cap = 4096, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape clusters {.cap = 10, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape cluster_nodes {.cap = 100, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape endpoints {.cap = 28672, .on_device_error = Holder::LeftAllocated};
inline constexpr ListShape bfd_sessions {.cap = 2867200, .on_device_error = Holder::LeftAllocated};

} // namespace lumo
