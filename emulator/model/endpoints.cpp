// Bridge endpoints.
#include "emulator/protocol/endpoints.h"

#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

std::string key_of(const Exchange& exchange)
{
    return exchange.request[endpoints::key];
}

// The bridge that the first text names; null if it names none.
Bridge* bridge_with(Exchange& exchange, const Endpoint& endpoint)
{
    return exchange.state.bridges.find(endpoint.bridge);
}

void leave_bridge(Exchange& exchange, const Endpoint& endpoint)
{
    if (Bridge* bridge = bridge_with(exchange, endpoint))
        bridge->endpoints.erase(&endpoint);
}

int add(Exchange& exchange)
{
    if (key_of(exchange).empty())
        return EINVAL;
    const Input& request = exchange.request;
    const Endpoint endpoint {key_of(exchange), request[endpoints::text1], request[endpoints::name],
        request[endpoints::value1], request[endpoints::value2], request[endpoints::value3], request[endpoints::flag1],
        request[endpoints::flag2], {}, {}};
    if (exchange.state.is_strict() && !endpoint.bridge.empty() && bridge_with(exchange, endpoint) == nullptr)
        return ENOENT;
    auto& all = exchange.state.endpoints;
    Endpoint* existing = all.find(endpoint.key);
    if (existing == nullptr && all.size() == endpoints::most)
        return ENOSPC;
    if (existing == nullptr) {
        existing = &all.add(endpoint);
    } else {
        leave_bridge(exchange, *existing);
        *existing = endpoint;
    }
    if (Bridge* bridge = bridge_with(exchange, *existing))
        bridge->endpoints.insert(existing);
    return 0;
}

int remove(Exchange& exchange)
{
    const Endpoint* endpoint = exchange.state.endpoints.find(key_of(exchange));
    if (endpoint == nullptr)
        return ENOENT;
    leave_bridge(exchange, *endpoint);
    exchange.state.endpoints.remove(*endpoint);
    return 0;
}

int flush(Exchange& exchange)
{
    for (Bridge& bridge : exchange.state.bridges)
        bridge.endpoints.clear();
    exchange.state.endpoints.clear();
    return 0;
}

void write(const Endpoint& endpoint, Exchange& exchange)
{
    namespace to = endpoints::record;
    const Record record = exchange.add(to::layout);
    record[to::key] = endpoint.key;
    record[to::value3] = endpoint.value3;
    record[to::flag1] = endpoint.flag1;
    record[to::value1] = endpoint.value1;
    record[to::value2] = endpoint.value2;
    record[to::name] = endpoint.name;
    record[to::flag2] = endpoint.flag2;
}

// All are listed, whatever bridge is named.
int get_all(Exchange& exchange)
{
    for (const Endpoint& endpoint : exchange.state.endpoints)
        write(endpoint, exchange);
    return 0;
}

int get_stats(Exchange& exchange)
{
    const Endpoint* endpoint = exchange.state.endpoints.find(key_of(exchange));
    if (endpoint == nullptr)
        return ENOENT;
    const Record record = exchange.add(endpoints::stats_record::layout);
    record[endpoints::stats_record::key] = endpoint->key;
    record[endpoints::stats_record::rest] = endpoint->statistics;
    return 0;
}

int get_status(Exchange& exchange)
{
    const Endpoint* endpoint = exchange.state.endpoints.find(key_of(exchange));
    if (endpoint == nullptr)
        return ENOENT;
    const Record record = exchange.add(endpoints::status_record::layout);
    record[endpoints::status_record::key] = endpoint->key;
    record[endpoints::status_record::rest] = endpoint->status;
    return 0;
}

constexpr Handler answers[] = {
    {"AddBridgeEndpoint", add},
    {"DelBridgeEndpoint", remove},
    {"FlushBridgeEndpointOn", flush},
    {"FlushBridgeEndpointOff", flush},
    {"GetBeStats", get_stats},
    {"GetBeStatus", get_status},
    {"GetBeAll", get_all},
    {"GetBridgeEndpoints", get_all},
};

} // namespace

const Handlers handlers::endpoints(endpoints::commands, answers);

} // namespace emulator
