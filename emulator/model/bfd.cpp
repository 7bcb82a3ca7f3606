// BFD sessions and port connections. The model has no sessions.
#include "emulator/protocol/bfd.h"

#include "emulator/model/answers.h"
#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

namespace emulator {

using namespace protocol;

namespace {

std::string port_of(const Exchange& exchange)
{
    return exchange.request[bfd::port];
}

int plumb(Exchange& exchange)
{
    return plumb({port_of(exchange), exchange.request[bfd::sent]}, exchange.state.bfd_connections);
}

int unplumb(Exchange& exchange)
{
    return unplumb(port_of(exchange), exchange.state.bfd_connections);
}

int get_connections(Exchange& exchange)
{
    for (const Connection& connection : exchange.state.bfd_connections)
        exchange.add(bfd::record::layout).begin_with(connection.sent);
    return 0;
}

constexpr Handler answers[] = {
    {"GetBridgeBFDSessions", accepted},
    {"PlumbBFDPortConnection", plumb},
    {"UnPlumbBFDPortConnection", unplumb},
    {"GetBFDPortConnections", get_connections},
};

} // namespace

const Handlers handlers::bfd(bfd::commands, answers);

} // namespace emulator
