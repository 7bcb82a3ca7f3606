// The DHCP servers that LIFs relay to.
#include "emulator/protocol/dhcp_relay.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

int set_dhcp_relay(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.dhcp_relay.count = exchange.request[dhcp_relay::relay_count];
        for (std::size_t i = 0; i < lif.dhcp_relay.servers.size(); ++i) {
            const Input server = exchange.request[dhcp_relay::servers][i];
            lif.dhcp_relay.servers[i] = {server[dhcp_relay::server::address], server[dhcp_relay::server::family]};
        }
        return 0;
    });
}

constexpr Handler answers[] = {
    {"ConfigureLifDhcpRelay", set_dhcp_relay},
};

} // namespace

const Handlers handlers::dhcp_relay(dhcp_relay::commands, answers);

} // namespace emulator
