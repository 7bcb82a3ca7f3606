// Bridge networks and ports: what the module has found out.
#include "emulator/protocol/networks.h"

#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

void write(const Counters& counters, const Table& data, const Record& record, const Exchange& exchange)
{
    for (const auto& [place, counter] : counters)
        record[data][place][element<U64>] = counter.at(exchange.state.stopwatch.now());
}

int get_networks(Exchange& exchange)
{
    namespace to = networks::network_record;
    return on_bridge(exchange, [&](const Bridge& bridge) {
        for (const BridgeNetwork& network : bridge.networks) {
            const Record record = exchange.add(to::layout);
            record[to::value1] = network.value1;
            record[to::value2] = network.value2;
            record[to::value3] = network.selector1;
            record[to::value4] = network.selector2;
            record[to::value5] = network.value5;
            record[to::value6] = network.value6;
            record[to::value7] = network.value7;
            record[to::value8] = network.value8;
            write(network.data, to::data, record, exchange);
        }
        return 0;
    });
}

// All, or those of the network that is selected.
int get_ports(Exchange& exchange)
{
    namespace to = networks::port_record;
    const bool all = !exchange.request[networks::selected];
    return on_bridge(exchange, [&](const Bridge& bridge) {
        for (const BridgePort& port : bridge.ports) {
            const bool is_selected = port.selector1 == exchange.request[networks::value16] &&
                                     port.selector2 == exchange.request[networks::value32];
            if (!all && !is_selected)
                continue;
            const Record record = exchange.add(to::layout);
            record[to::value1] = port.value1;
            record[to::value2] = port.value2;
            record[to::value3] = port.selector1;
            record[to::value4] = port.selector2;
            write(port.data, to::data, record, exchange);
        }
        return 0;
    });
}

constexpr Handler answers[] = {
    {"GetBridgeNetworks", get_networks},
    {"GetBridgePorts", get_ports},
};

} // namespace

const Handlers handlers::networks(networks::commands, answers);

} // namespace emulator
