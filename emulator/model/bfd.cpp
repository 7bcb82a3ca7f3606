// BFD sessions and port connections. There is a session between every port that is plumbed for BFD and every node of a
// cluster.
#include "emulator/protocol/bfd.h"

#include "emulator/model/handlers.h"
#include "emulator/model/plumbing.h"

#include <algorithm>

namespace emulator {

using namespace protocol;

namespace {

enum class SessionState : std::uint8_t
{
    Down = 1,
    Beginning = 2,
    Up = 3
};

constexpr std::chrono::seconds until_it_begins {1};
constexpr std::chrono::seconds until_it_is_up {2};

std::string port_of(const Exchange& exchange)
{
    return exchange.request[bfd::port];
}

int plumb(Exchange& exchange)
{
    State& state = exchange.state;
    std::size_t nodes = 0;
    for (const Cluster& cluster : state.clusters)
        nodes += cluster.nodes.size();
    if (state.bfd_connections.find(port_of(exchange)) == nullptr && !has_room_for_sessions(state, nodes))
        return ENOSPC;
    return plumb<BfdConnection>({port_of(exchange), exchange.request[bfd::text], exchange.request[bfd::mac],
                                    LinkState::Up, exchange.state.stopwatch.now()},
        exchange.state.bfd_connections);
}

int unplumb(Exchange& exchange)
{
    return exchange.state.bfd_connections.remove_if_found(port_of(exchange)) ? 0 : ENOENT;
}

int get_connections(Exchange& exchange)
{
    namespace to = bfd::record;
    for (const BfdConnection& connection : exchange.state.bfd_connections) {
        const Record record = exchange.add(to::layout);
        record[to::port] = connection.name;
        record[to::text] = connection.text;
        record[to::mac] = connection.mac;
    }
    return 0;
}

void write_session(const BfdConnection& port, const Cluster& cluster, const ClusterNode& node, Exchange& exchange)
{
    const Time begun = std::max(port.since, node.since);
    const Time passed = exchange.state.stopwatch.now() - begun;
    const bool can_begin = port.link == LinkState::Up && node.link == LinkState::Up && passed >= until_it_begins;
    const SessionState state = !can_begin                ? SessionState::Down
                               : passed < until_it_is_up ? SessionState::Beginning
                                                         : SessionState::Up;
    namespace to = bfd::session_record;
    const Record record = exchange.add(to::layout);
    record[to::addr1] = port.mac;
    record[to::addr2] = node.mac;
    record[to::value3] = static_cast<std::uint8_t>(state);
    record[to::value4] = cluster.profile_value1;
    record[to::value5] = static_cast<std::uint64_t>(std::chrono::floor<std::chrono::seconds>(passed).count());
}

void step(MacAddress& address, std::uint64_t by)
{
    for (std::size_t i = address.size(); i-- > 0 && by != 0; by >>= 8) {
        by += std::to_integer<std::uint64_t>(address[i]);
        address[i] = static_cast<std::byte>(by & 0xff);
    }
}

void write_sessions(const BfdSessions& sessions, Exchange& exchange)
{
    namespace to = bfd::session_record;
    MacAddress addr1 = sessions.addr1;
    MacAddress addr2 = sessions.addr2;
    for (std::uint32_t i = 0; i < sessions.count; ++i) {
        const Record record = exchange.add(to::layout);
        record[to::value1] = sessions.value1;
        record[to::addr1] = addr1;
        record[to::addr2] = addr2;
        record[to::value2] = sessions.value2;
        record[to::value3] = sessions.value3;
        record[to::value4] = sessions.value4;
        record[to::value5] = sessions.value5;
        record[to::value6] = sessions.value6;
        step(addr1, sessions.addr1_step);
        step(addr2, sessions.addr2_step);
    }
}

// The key is that of a cluster or of other sessions, or none for all.
int get_sessions(Exchange& exchange)
{
    const std::string key = exchange.request[bfd::key];
    for (const Cluster& cluster : exchange.state.clusters)
        if (key.empty() || key == cluster.key)
            for (const BfdConnection& port : exchange.state.bfd_connections)
                for (const ClusterNode& node : cluster.nodes)
                    write_session(port, cluster, node, exchange);
    for (const BfdSessions& sessions : exchange.state.bfd_sessions)
        if (key.empty() || key == sessions.key)
            write_sessions(sessions, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"GetBridgeBFDSessions", get_sessions},
    {"PlumbBFDPortConnection", plumb},
    {"UnPlumbBFDPortConnection", unplumb},
    {"GetBFDPortConnections", get_connections},
};

} // namespace

const Handlers handlers::bfd(bfd::commands, answers);

} // namespace emulator
