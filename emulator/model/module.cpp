#include "emulator/model/module.h"

#include "emulator/model/handlers.h"
#include "emulator/protocol/commands.h"

namespace emulator {

namespace {

struct Answered
{
    const protocol::Command* command = nullptr; // null where no command has the number
    int (*answer)(Exchange& exchange) = nullptr;
};

using Table = std::array<Answered, protocol::last_command + 1>;

Table all_commands()
{
    Table table;
    for (const Handlers& chapter : {handlers::instances, handlers::levels, handlers::stats, handlers::control_plane,
             handlers::connections, handlers::housekeeping, handlers::lifs, handlers::lif_options, handlers::dhcp_relay,
             handlers::routes, handlers::routes6, handlers::neighbours, handlers::lif_policies, handlers::policies,
             handlers::policy_tables, handlers::bridges, handlers::networks, handlers::fdb, handlers::clusters,
             handlers::endpoints, handlers::bfd, handlers::mcast_receivers, handlers::mcast_groups, handlers::rss})
        for (std::size_t i = 0; i < chapter.commands.size(); ++i)
            table[chapter.commands[i].number] = {&chapter.commands[i], chapter.answers[i].answer};
    return table;
}

} // namespace

Module::Module(Strictness strictness) : state_(std::make_unique<State>())
{
    state_->strictness = strictness;
}

Module::~Module() = default;

Answer Module::answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room)
{
    static const Table table = all_commands();
    if (number > protocol::last_command || table[number].command == nullptr)
        return {ENOTTY, {}};
    const auto& [command, answer] = table[number];
    if (input.size() != command->input.size)
        return {EINVAL, {}};

    Exchange exchange {*state_, protocol::Input(input), room};
    if (const int error = answer(exchange); error != 0)
        return {error, {}};
    if (exchange.reply.size() > room)
        return {ENOBUFS, {}};
    return {0, std::move(exchange.reply)};
}

} // namespace emulator
