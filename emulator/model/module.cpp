#include "emulator/model/module.h"

#include "emulator/model/ageing.h"
#include "emulator/model/find.h"
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

// What sets something counts, but for what sets the counters.
bool counts(const protocol::Command& command)
{
    using protocol::number_of;
    switch (command.number) {
    case number_of("ResetLumoInstanceCPStats"):
    case number_of("ResetLifStats"):
    case number_of("ResetLumoDiStats"):
    case number_of("SoftRSSStatsReset"):
    case number_of("DumpFLTable"):
    case number_of("PreUnload"):
        return false;
    default:
        return command.reply.shape == protocol::Shape::Nothing || command.reply.shape == protocol::Shape::Result;
    }
}

// Where programs find what the module has done, in all and for an instance. The library passes the counter before it on for
// instances only.
constexpr std::uint32_t done_place = 1;

// The module has done what it was told.
void count(const protocol::Command& command, Exchange& exchange)
{
    if (!counts(command))
        return;
    exchange.state.counters.add_one(done_place);
    const auto& fields = command.input.fields;
    if (fields.empty() || fields.front() != &protocol::addressed::instance)
        return;
    if (Instance* instance = instance_of(exchange))
        instance->control_plane_counters.add_one(done_place);
}

} // namespace

Module::Module(Settings settings) : state_(std::make_unique<State>(settings)) {}

Module::~Module() = default;

State& Module::state()
{
    forget_what_has_aged(*state_);
    return *state_;
}

void Module::replace(std::unique_ptr<State> state)
{
    state_ = std::move(state);
}

bool Module::advance(Time by)
{
    return state_->stopwatch.advance(by);
}

Answer Module::answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room)
{
    static const Table table = all_commands();
    if (number > protocol::last_command || table[number].command == nullptr)
        return {ENOTTY, {}};
    const auto& [command, answer] = table[number];
    if (input.size() != command->input.size)
        return {EINVAL, {}};

    forget_what_has_aged(*state_);
    Exchange exchange {*state_, protocol::Input(input), room};
    if (const int error = answer(exchange); error != 0)
        return {error, {}};
    if (exchange.reply.size() > room)
        return {ENOBUFS, {}};
    count(*command, exchange);
    return {0, std::move(exchange.reply)};
}

} // namespace emulator
