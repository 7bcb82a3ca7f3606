// All operations, chapter by chapter.
#pragma once

#include "operations/operation.h"

namespace operations {

struct Chapter
{
    const char* name;
    std::span<const Operation> rows;
};

extern const Chapter instances;
extern const Chapter levels;
extern const Chapter stats;
extern const Chapter control_plane;
extern const Chapter connections;
extern const Chapter housekeeping;
extern const Chapter lifs;
extern const Chapter lif_options;
extern const Chapter dhcp_relay;
extern const Chapter routes;
extern const Chapter routes6;
extern const Chapter neighbours;
extern const Chapter lif_policies;
extern const Chapter policies;
extern const Chapter policy_tables;
extern const Chapter bridges;
extern const Chapter networks;
extern const Chapter fdb;
extern const Chapter clusters;
extern const Chapter endpoints;
extern const Chapter bfd;
extern const Chapter mcast_receivers;
extern const Chapter mcast_groups;
extern const Chapter rss;

inline constexpr const Chapter* chapters[] {&instances, &levels, &stats, &control_plane, &connections, &housekeeping,
    &lifs, &lif_options, &dhcp_relay, &routes, &routes6, &neighbours, &lif_policies, &policies, &policy_tables,
    &bridges, &networks, &fdb, &clusters, &endpoints, &bfd, &mcast_receivers, &mcast_groups, &rss};

// The functions that no row names: they send nothing, and release nothing that another function hands out.
inline constexpr const char* without_row[] {"LUMOZEPHIoctl", "LUMOZEPHGetUuidOrName", "LUMOZEPH_ReleaseBridgeNetwork"};

template <class Visit>
void for_each_operation(Visit visit)
{
    for (const Chapter* chapter : chapters)
        for (const Operation& operation : chapter->rows)
            visit(*chapter, operation);
}

template <class Visit>
void for_each_case(Visit visit)
{
    for_each_operation([&](const Chapter&, const Operation& operation) {
        for (const Case& one : operation.cases)
            visit(operation, one);
    });
}

} // namespace operations
