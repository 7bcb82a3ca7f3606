// Bridge endpoints.
#include "emulator/protocol/endpoints.h"

#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

std::string key_of(const Exchange& exchange)
{
    return exchange.request[endpoints::key];
}

auto find(Exchange& exchange)
{
    auto& all = exchange.state.endpoints;
    return std::find_if(
        all.begin(), all.end(), [key = key_of(exchange)](const Endpoint& endpoint) { return endpoint.key == key; });
}

int add(Exchange& exchange)
{
    if (key_of(exchange).empty())
        return EINVAL;
    auto& all = exchange.state.endpoints;
    auto endpoint = find(exchange);
    if (endpoint == all.end()) {
        if (all.size() == endpoints::most)
            return ENOSPC;
        endpoint = all.insert(endpoint, Endpoint {});
    }
    const Input& request = exchange.request;
    *endpoint = {key_of(exchange), request[endpoints::name], request[endpoints::value1], request[endpoints::value2],
        request[endpoints::value3], request[endpoints::flag1], request[endpoints::flag2]};
    return 0;
}

int remove(Exchange& exchange)
{
    const auto endpoint = find(exchange);
    if (endpoint == exchange.state.endpoints.end())
        return ENOENT;
    exchange.state.endpoints.erase(endpoint);
    return 0;
}

int flush(Exchange& exchange)
{
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

// Endpoints belong to the module as a whole, whatever bridge is named.
int get_all(Exchange& exchange)
{
    for (const Endpoint& endpoint : exchange.state.endpoints)
        write(endpoint, exchange);
    return 0;
}

// Statistics and status have no counters, only the endpoint's key.
template <const Layout& Reported, const Text& Key>
int get_key(Exchange& exchange)
{
    if (find(exchange) == exchange.state.endpoints.end())
        return ENOENT;
    exchange.add(Reported)[Key] = key_of(exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"AddBridgeEndpoint", add},
    {"DelBridgeEndpoint", remove},
    {"FlushBridgeEndpointOn", flush},
    {"FlushBridgeEndpointOff", flush},
    {"GetBeStats", get_key<endpoints::stats_record::layout, endpoints::stats_record::key>},
    {"GetBeStatus", get_key<endpoints::status_record::layout, endpoints::status_record::key>},
    {"GetBeAll", get_all},
    {"GetBridgeEndpoints", get_all},
};

} // namespace

const Handlers handlers::endpoints(endpoints::commands, answers);

} // namespace emulator
