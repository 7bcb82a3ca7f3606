// The DHCP servers that LIFs relay to.
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

namespace {

int set_dhcp_relay(Exchange& exchange)
{
    return on_lif(exchange, [&](Lif& lif) {
        lif.dhcp_relay = exchange.request.bytes<164>(364);
        return 0;
    });
}

constexpr Handler answers[] = {
    {33, request_record, set_dhcp_relay},
};

} // namespace

const std::span<const Handler> handlers::dhcp_relay = answers;

} // namespace emulator
