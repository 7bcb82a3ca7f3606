// Port connections.
#include "emulator/protocol/connections.h"

#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

namespace emulator {

using namespace protocol;

namespace {

std::string name_of(const Exchange& exchange)
{
    return exchange.request[connections::name];
}

int plumb(Exchange& exchange)
{
    return plumb({name_of(exchange), exchange.request[connections::sent]}, exchange.state.connections);
}

int unplumb(Exchange& exchange)
{
    return unplumb(name_of(exchange), exchange.state.connections);
}

int get_all(Exchange& exchange)
{
    for (const Connection& connection : exchange.state.connections)
        exchange.add(connections::record::layout).begin_with(connection.sent);
    return 0;
}

int get_one(Exchange& exchange)
{
    const Connection* connection = exchange.state.connections.find(name_of(exchange));
    if (connection == nullptr)
        return ENOENT;
    exchange.add(connections::record::layout).begin_with(connection->sent);
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

// No deletion is ever outstanding: the model deletes at once.
int check_deletion(Exchange& exchange)
{
    exchange.add<connections::value>(0);
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
