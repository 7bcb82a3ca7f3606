// What answers the commands of each chapter.
#pragma once

#include "emulator/model/exchange.h"

#include <span>

namespace emulator {

inline constexpr std::size_t request_record = 776;

struct Handler
{
    std::uint32_t number;
    std::size_t input; // the length of the input that the command demands
    int (*answer)(Exchange& exchange);
};

// By rising number.
namespace handlers {
extern const std::span<const Handler> instances;
extern const std::span<const Handler> levels;
extern const std::span<const Handler> stats;
extern const std::span<const Handler> control_plane;
extern const std::span<const Handler> connections;
extern const std::span<const Handler> housekeeping;
extern const std::span<const Handler> lifs;
extern const std::span<const Handler> lif_options;
extern const std::span<const Handler> dhcp_relay;
extern const std::span<const Handler> routes;
extern const std::span<const Handler> routes6;
extern const std::span<const Handler> neighbours;
extern const std::span<const Handler> lif_policies;
extern const std::span<const Handler> policies;
extern const std::span<const Handler> policy_tables;
extern const std::span<const Handler> bridges;
extern const std::span<const Handler> networks;
extern const std::span<const Handler> fdb;
extern const std::span<const Handler> clusters;
extern const std::span<const Handler> endpoints;
extern const std::span<const Handler> bfd;
extern const std::span<const Handler> mcast_receivers;
extern const std::span<const Handler> mcast_groups;
extern const std::span<const Handler> rss;
} // namespace handlers

} // namespace emulator
