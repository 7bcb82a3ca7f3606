// Port connections, the module's own housekeeping, and the full-sync save.
#include "emulator/model/state.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t table_size = 131072;
constexpr std::size_t record_size = 152;
constexpr std::size_t most_connections = table_size / record_size;

std::string name_of(const Exchange& exchange)
{
    return exchange.request.text(64, 64);
}

template <auto Connections>
auto find(Exchange& exchange)
{
    auto& all = exchange.state.*Connections;
    return std::find_if(all.begin(), all.end(),
        [name = name_of(exchange)](const Connection& connection) { return connection.name == name; });
}

// A connection is reported as it was sent, from its name on, as far as there is room.
void write(const Connection& connection, Exchange& exchange)
{
    Record(exchange.reply, record_size).bytes(0, connection.sent);
}

template <auto Connections>
int plumb(Exchange& exchange)
{
    auto& all = exchange.state.*Connections;
    if (name_of(exchange).empty())
        return EINVAL;
    auto connection = find<Connections>(exchange);
    if (connection == all.end()) {
        if (all.size() == most_connections)
            return ENOSPC;
        connection = all.insert(connection, Connection {name_of(exchange), {}});
    }
    const auto sent = exchange.request.from(64, record_size);
    connection->sent.assign(sent.begin(), sent.end());
    return 0;
}

template <auto Connections>
int unplumb(Exchange& exchange)
{
    const auto connection = find<Connections>(exchange);
    if (connection == (exchange.state.*Connections).end())
        return ENOENT;
    (exchange.state.*Connections).erase(connection);
    return 0;
}

template <auto Connections>
int get_all(Exchange& exchange)
{
    for (const Connection& connection : exchange.state.*Connections)
        write(connection, exchange);
    return 0;
}

int get_one(Exchange& exchange)
{
    const auto connection = find<&State::connections>(exchange);
    if (connection == exchange.state.connections.end())
        return ENOENT;
    write(*connection, exchange);
    return 0;
}

// A locally administered address, made of the name.
int get_virtual_mac(Exchange& exchange)
{
    std::uint32_t hash = 2166136261u;
    for (const char character : name_of(exchange))
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619u;
    Record(exchange.reply, 6).u8(0, 0x02).u32(2, hash);
    return 0;
}

// No deletion is ever outstanding: the model deletes at once.
int check_deletion(Exchange& exchange)
{
    Record(exchange.reply, 4);
    return 0;
}

int save(Exchange& exchange)
{
    Record(exchange.reply, 4).u32(0, ++exchange.state.saves);
    return 0;
}

int save_status(Exchange& exchange)
{
    Record(exchange.reply, 4).u32(0, exchange.state.saves);
    return 0;
}

constexpr Command commands[] = {
    {15, request_record, plumb<&State::connections>},
    {16, request_record, unplumb<&State::connections>},
    {17, request_record, get_all<&State::connections>},
    {18, request_record, get_one},
    {42, 0, accepted},
    {80, request_record, accepted},
    {85, 0, check_deletion},
    {97, request_record, plumb<&State::bfd_connections>},
    {98, request_record, unplumb<&State::bfd_connections>},
    {99, request_record, get_all<&State::bfd_connections>},
    {123, request_record, save},
    {124, request_record, save_status},
    {149, request_record, get_virtual_mac},
};

} // namespace

std::span<const Command> housekeeping_commands()
{
    return commands;
}

} // namespace emulator
