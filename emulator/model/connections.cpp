// Port connections.
#include "emulator/protocol/connections.h"

#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

std::string name_of(const Exchange& exchange)
{
    return exchange.request[connections::name];
}

int plumb(Exchange& exchange)
{
    const Input& request = exchange.request;
    return plumb<Connection>({name_of(exchange),
                                 {request[connections::text1], request[connections::text2], request[connections::text3],
                                     request[connections::text4]},
                                 LinkState::Up, exchange.state.stopwatch.now()},
        exchange.state.connections);
}

int unplumb(Exchange& exchange)
{
    State& state = exchange.state;
    if (!state.connections.remove_if_found(name_of(exchange)))
        return ENOENT;
    if (state.deletion_time > Time(0))
        state.deletions.push_back(state.stopwatch.now() + state.deletion_time);
    return 0;
}

void write(const Connection& connection, Exchange& exchange)
{
    namespace to = connections::record;
    const Record record = exchange.add(to::layout);
    record[to::name] = connection.name;
    record[to::text1] = connection.texts[0];
    record[to::text2] = connection.texts[1];
    record[to::text3] = connection.texts[2];
    record[to::text4] = connection.texts[3];
}

int get_all(Exchange& exchange)
{
    for (const Connection& connection : exchange.state.connections)
        write(connection, exchange);
    return 0;
}

int get_one(Exchange& exchange)
{
    const Connection* connection = exchange.state.connections.find(name_of(exchange));
    if (connection == nullptr)
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
    Mac::Value mac {std::byte {0x02}};
    std::memcpy(&mac[mac.size() - sizeof hash], &hash, sizeof hash);
    exchange.add<connections::mac>(mac);
    return 0;
}

// How many connections are still going.
int check_deletion(Exchange& exchange)
{
    const auto& deletions = exchange.state.deletions;
    exchange.add<connections::value>(static_cast<std::uint32_t>(std::count_if(
        deletions.begin(), deletions.end(), [now = exchange.state.stopwatch.now()](Time end) { return end > now; })));
    return 0;
}

constexpr Handler answers[] = {
    {"PlumbLumoConnection", plumb},
    {"UnPlumbLumoConnection", unplumb},
    {"GetConnections", get_all},
    {"GetConnection", get_one},
    {"LUMODevCheckConnDeletion", check_deletion},
    {"GetVMAC", get_virtual_mac},
};

} // namespace

const Handlers handlers::connections(connections::commands, answers);

} // namespace emulator
