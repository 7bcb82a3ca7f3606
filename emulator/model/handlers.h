// What answers the commands of each chapter.
#pragma once

#include "emulator/model/exchange.h"
#include "emulator/protocol/command.h"

namespace emulator {

struct Handler
{
    std::string_view command;
    int (*answer)(Exchange& exchange);
};

// Called only while handlers are compiled, where it stops the compiler: it has no body.
void handlers_are_not_those_of_the_commands();

// The commands of a chapter, and what answers each of them.
struct Handlers
{
    std::span<const protocol::Command> commands;
    std::span<const Handler> answers;

    template <std::size_t Count>
    consteval Handlers(const protocol::Command (&described)[Count], const Handler (&answered)[Count]) noexcept
        : commands(described), answers(answered)
    {
        for (std::size_t i = 0; i < Count; ++i)
            if (commands[i].name != answers[i].command)
                handlers_are_not_those_of_the_commands();
    }
};

namespace handlers {
extern const Handlers instances;
extern const Handlers levels;
extern const Handlers stats;
extern const Handlers control_plane;
extern const Handlers connections;
extern const Handlers housekeeping;
extern const Handlers lifs;
extern const Handlers lif_options;
extern const Handlers dhcp_relay;
extern const Handlers routes;
extern const Handlers routes6;
extern const Handlers neighbours;
extern const Handlers lif_policies;
extern const Handlers policies;
extern const Handlers policy_tables;
extern const Handlers bridges;
extern const Handlers networks;
extern const Handlers fdb;
extern const Handlers clusters;
extern const Handlers endpoints;
extern const Handlers bfd;
extern const Handlers mcast_receivers;
extern const Handlers mcast_groups;
extern const Handlers rss;
} // namespace handlers

} // namespace emulator
