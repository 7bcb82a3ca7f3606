#include "emulator/model/route_record.h"

#include "emulator/protocol/routes.h"

namespace emulator {

using namespace protocol;

void write_route(const Route& route, RouteOrigin origin, Exchange& exchange)
{
    namespace to = routes::record;
    const Record record = exchange.add(to::layout);
    record[to::dest] = route.dest;
    record[to::mask] = route.mask;
    record[to::param] = route.param;
    record[to::flags] = static_cast<std::uint8_t>(origin);
    record[to::next_hop_count] = static_cast<std::uint8_t>(route.next_hops.size());
    for (std::size_t i = 0; i < route.next_hops.size(); ++i) {
        const Record next_hop = record[to::next_hops][i];
        next_hop[routes::next_hop::gateway] = route.next_hops[i].gateway;
        next_hop[routes::next_hop::lif] = route.next_hops[i].lif;
    }
}

} // namespace emulator
