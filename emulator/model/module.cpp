#include "emulator/model/module.h"

#include "emulator/model/handlers.h"
#include "emulator/protocol/commands.h"

namespace emulator {

namespace {

using Table = std::array<const Handler*, protocol::last_command + 1>;

Table all_handlers()
{
    Table table {};
    for (const std::span<const Handler> chapter :
        {handlers::instances, handlers::levels, handlers::stats, handlers::control_plane, handlers::connections,
            handlers::housekeeping, handlers::lifs, handlers::lif_options, handlers::dhcp_relay, handlers::routes,
            handlers::routes6, handlers::neighbours, handlers::lif_policies, handlers::policies,
            handlers::policy_tables, handlers::bridges, handlers::networks, handlers::fdb, handlers::clusters,
            handlers::endpoints, handlers::bfd, handlers::mcast_receivers, handlers::mcast_groups, handlers::rss})
        for (const Handler& handler : chapter)
            table[handler.number] = &handler;
    return table;
}

} // namespace

Module::Module() : state_(std::make_unique<State>()) {}
Module::~Module() = default;

Answer Module::answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room)
{
    static const Table table = all_handlers();
    if (number > protocol::last_command || table[number] == nullptr)
        return {ENOTTY, {}};
    if (input.size() != table[number]->input)
        return {EINVAL, {}};

    Exchange exchange {*state_, Request(input), room, {}};
    if (const int error = table[number]->answer(exchange); error != 0)
        return {error, {}};
    if (exchange.reply.size() > room)
        return {ENOBUFS, {}};
    return {0, std::move(exchange.reply)};
}

} // namespace emulator
