// Bridge endpoints.
#include "emulator/model/handlers.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_endpoints = 28672;

std::string key_of(const Exchange& exchange)
{
    return exchange.request.text(192, 64);
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
        if (all.size() == most_endpoints)
            return ENOSPC;
        endpoint = all.insert(endpoint, Endpoint {});
    }
    const Request& request = exchange.request;
    *endpoint = {key_of(exchange), request.text(128, 64), request.u32(352), request.u32(356), request.u16(528),
        request.u8(594), request.u8(595)};
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
    Record(exchange.reply, 235)
        .text(64, 64, endpoint.key)
        .u16(128, endpoint.value3)
        .u8(130, endpoint.flag1)
        .u32(131, endpoint.value1)
        .u32(135, endpoint.value2)
        .text(139, 64, endpoint.name)
        .u8(203, endpoint.flag2);
}

// Endpoints belong to the module as a whole, whatever bridge is named.
int get_all(Exchange& exchange)
{
    for (const Endpoint& endpoint : exchange.state.endpoints)
        write(endpoint, exchange);
    return 0;
}

// Statistics and status have no counters, only the endpoint's key.
template <std::size_t Size>
int get_key(Exchange& exchange)
{
    if (find(exchange) == exchange.state.endpoints.end())
        return ENOENT;
    Record(exchange.reply, Size).text(0, 64, key_of(exchange));
    return 0;
}

constexpr Handler answers[] = {
    {45, request_record, add},
    {46, request_record, remove},
    {47, request_record, flush},
    {48, request_record, flush},
    {50, request_record, get_key<146>},
    {51, request_record, get_key<229>},
    {52, request_record, get_all},
    {95, request_record, get_all},
};

} // namespace

const std::span<const Handler> handlers::endpoints = answers;

} // namespace emulator
