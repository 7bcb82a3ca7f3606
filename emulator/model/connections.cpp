// Port connections.
#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

namespace emulator {

namespace {

std::string name_of(const Exchange& exchange)
{
    return exchange.request.text(64, 64);
}

int plumb(Exchange& exchange)
{
    const auto sent = exchange.request.from(64, 152);
    return plumb({name_of(exchange), {sent.begin(), sent.end()}}, exchange.state.connections);
}

int unplumb(Exchange& exchange)
{
    return unplumb(name_of(exchange), exchange.state.connections);
}

int get_all(Exchange& exchange)
{
    for (const Connection& connection : exchange.state.connections)
        write(connection, exchange);
    return 0;
}

int get_one(Exchange& exchange)
{
    const Connection* connection = find_connection(name_of(exchange), exchange.state.connections);
    if (connection == nullptr)
        return ENOENT;
    write(*connection, exchange);
    return 0;
}

// A locally administered address, made of the name.
int get_virtual_mac(Exchange& exchange)
{
    std::uint32_t hash = 2166136261u;
    for (const char character : name_of(exchange))
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619u;
    Record(exchange.reply, 6).u8(0, 0x02).u32(2, hash);
    return 0;
}

// No deletion is ever outstanding: the model deletes at once.
int check_deletion(Exchange& exchange)
{
    Record(exchange.reply, 4);
    return 0;
}

constexpr Handler answers[] = {
    {15, request_record, plumb},
    {16, request_record, unplumb},
    {17, request_record, get_all},
    {18, request_record, get_one},
    {85, 0, check_deletion},
    {149, request_record, get_virtual_mac},
};

} // namespace

const std::span<const Handler> handlers::connections = answers;

} // namespace emulator
