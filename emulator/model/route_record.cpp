#include "emulator/model/route_record.h"

namespace emulator {

void write_route(const Route& route, RouteOrigin origin, Exchange& exchange)
{
    Record record(exchange.reply, 668);
    record.u32(0, route.dest).u32(4, route.mask).u32(8, route.param);
    record.u8(16, static_cast<std::uint8_t>(origin)).u8(17, static_cast<std::uint8_t>(route.next_hops.size()));
    for (std::size_t i = 0; i < route.next_hops.size(); ++i)
        record.u32(28 + 80 * i + 4, route.next_hops[i].gateway).text(28 + 80 * i + 8, 64, route.next_hops[i].lif);
}

} // namespace emulator
