#include "emulator/model/module.h"

#include "emulator/model/device.h"
#include "emulator/model/state.h"

namespace emulator {

namespace {

using CommandTable = std::array<const Command*, last_command + 1>;

CommandTable all_commands()
{
    CommandTable table {};
    for (const std::span<const Command> family : {setting_commands(), instance_commands(), lif_commands(),
             route_commands(), route6_commands(), lif_policy_commands(), neighbour_commands(), policy_commands(),
             statistics_commands(), control_plane_commands(), housekeeping_commands(), bridge_commands(),
             cluster_commands(), endpoint_commands(), multicast_commands(), rss_commands()})
        for (const Command& command : family)
            table[command.number] = &command;
    return table;
}

} // namespace

int done(Exchange& exchange)
{
    constexpr std::size_t result_size = 88;
    if (exchange.room >= result_size)
        Record(exchange.reply, result_size).u32(0, 0).text(4, 84, "done");
    return 0;
}

Module::Module() : state_(std::make_unique<State>()) {}
Module::~Module() = default;

Answer Module::answer(std::uint32_t number, std::span<const std::byte> input, std::uint32_t room)
{
    static const CommandTable commands = all_commands();
    if (number > last_command || commands[number] == nullptr)
        return {ENOTTY, {}};
    if (input.size() != commands[number]->input)
        return {EINVAL, {}};

    Exchange exchange {*state_, Request(input), room, {}};
    if (const int error = commands[number]->answer(exchange); error != 0)
        return {error, {}};
    if (exchange.reply.size() > room)
        return {ENOBUFS, {}};
    return {0, std::move(exchange.reply)};
}

} // namespace emulator
