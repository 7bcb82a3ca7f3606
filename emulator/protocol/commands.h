// All commands, chapter by chapter in the order of the public header.
#pragma once

#include "emulator/protocol/bfd.h"
#include "emulator/protocol/bridges.h"
#include "emulator/protocol/clusters.h"
#include "emulator/protocol/connections.h"
#include "emulator/protocol/control_plane.h"
#include "emulator/protocol/dhcp_relay.h"
#include "emulator/protocol/endpoints.h"
#include "emulator/protocol/fdb.h"
#include "emulator/protocol/housekeeping.h"
#include "emulator/protocol/instances.h"
#include "emulator/protocol/levels.h"
#include "emulator/protocol/lif_options.h"
#include "emulator/protocol/lif_policies.h"
#include "emulator/protocol/lifs.h"
#include "emulator/protocol/mcast_groups.h"
#include "emulator/protocol/mcast_receivers.h"
#include "emulator/protocol/neighbours.h"
#include "emulator/protocol/networks.h"
#include "emulator/protocol/policies.h"
#include "emulator/protocol/policy_tables.h"
#include "emulator/protocol/routes.h"
#include "emulator/protocol/routes6.h"
#include "emulator/protocol/rss.h"
#include "emulator/protocol/stats.h"

namespace emulator::protocol {

struct Chapter
{
    std::string_view name;
    std::span<const Command> commands;
};

inline constexpr Chapter chapters[] = {
    {"instances", instances::commands},
    {"levels", levels::commands},
    {"stats", stats::commands},
    {"control_plane", control_plane::commands},
    {"connections", connections::commands},
    {"housekeeping", housekeeping::commands},
    {"lifs", lifs::commands},
    {"lif_options", lif_options::commands},
    {"dhcp_relay", dhcp_relay::commands},
    {"routes", routes::commands},
    {"routes6", routes6::commands},
    {"neighbours", neighbours::commands},
    {"lif_policies", lif_policies::commands},
    {"policies", policies::commands},
    {"policy_tables", policy_tables::commands},
    {"bridges", bridges::commands},
    {"networks", networks::commands},
    {"fdb", fdb::commands},
    {"clusters", clusters::commands},
    {"endpoints", endpoints::commands},
    {"bfd", bfd::commands},
    {"mcast_receivers", mcast_receivers::commands},
    {"mcast_groups", mcast_groups::commands},
    {"rss", rss::commands},
};

// The module's commands are the ioctl requests from 0 to this.
inline constexpr std::uint32_t last_command = 160;

// Called only while something is compiled, where it stops the compiler: none has a body.
void two_commands_have_one_number();
void two_commands_have_one_name();
void no_command_has_this_name();

// Pointers are not compared in here: with its sanitizers, g++ 12 takes no such comparison for constant.
consteval std::array<const Command*, last_command + 1> by_number()
{
    std::array<const Command*, last_command + 1> table {};
    std::array<bool, last_command + 1> taken {};
    for (const Chapter& chapter : chapters)
        for (const Command& command : chapter.commands) {
            if (taken[command.number])
                two_commands_have_one_number();
            for (const Chapter& other_chapter : chapters)
                for (const Command& other : other_chapter.commands)
                    if (other.number != command.number && other.name == command.name)
                        two_commands_have_one_name();
            table[command.number] = &command;
            taken[command.number] = true;
        }
    return table;
}

// Null where no command has the number.
inline constexpr auto commands_by_number = by_number();

consteval std::uint32_t number_of(std::string_view name)
{
    for (const Chapter& chapter : chapters)
        for (const Command& command : chapter.commands)
            if (command.name == name)
                return command.number;
    no_command_has_this_name();
    return 0;
}

} // namespace emulator::protocol
