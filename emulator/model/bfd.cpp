// BFD sessions and port connections. The model has no sessions.
#include "emulator/model/answers.h"
#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

namespace emulator {

namespace {

std::string port_of(const Exchange& exchange)
{
    return exchange.request.text(64, 64);
}

int plumb(Exchange& exchange)
{
    const auto sent = exchange.request.from(64, 152);
    return plumb({port_of(exchange), {sent.begin(), sent.end()}}, exchange.state.bfd_connections);
}

int unplumb(Exchange& exchange)
{
    return unplumb(port_of(exchange), exchange.state.bfd_connections);
}

int get_connections(Exchange& exchange)
{
    for (const Connection& connection : exchange.state.bfd_connections)
        write(connection, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {96, request_record, accepted},
    {97, request_record, plumb},
    {98, request_record, unplumb},
    {99, request_record, get_connections},
};

} // namespace

const std::span<const Handler> handlers::bfd = answers;

} // namespace emulator
