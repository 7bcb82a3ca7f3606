// What the module keeps, and how its commands are described.
#pragma once

#include "emulator/model/wire.h"

#include <array>
#include <cerrno>
#include <compare>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace emulator {

using Ipv6Address = std::array<std::byte, 16>;

struct LifIpv6
{
    Ipv6Address address {};
    std::uint8_t prefix_length = 0;
};

enum class LifKind
{
    Routed,
    Bridge
};

struct Lif
{
    LifKind kind = LifKind::Routed;
    std::string name;
    std::string aux_name;
    std::uint32_t address = 0;
    std::uint32_t mask = 0;
    std::uint32_t di_address = 0;
    std::array<std::byte, 6> mac {};
    std::uint32_t param_a = 0;
    std::uint32_t param_b = 0;
    std::uint32_t param_c = 0;
    std::uint32_t vxlan_multicast = 0;
    std::uint32_t ra_mtu = 0;
    bool enabled = false;
    bool vxlan_control_plane = false;
    bool multicast_routing = false;
    std::array<std::byte, 164> dhcp_relay {};
    std::vector<LifIpv6> ipv6;
    std::vector<std::array<std::byte, 24>> policy_table_refs;
};

struct NextHop
{
    std::uint32_t gateway = 0;
    std::string lif;
    auto operator<=>(const NextHop&) const = default;
};

struct Route
{
    std::uint32_t dest = 0;
    std::uint32_t mask = 0;
    std::uint32_t param = 0;
    std::vector<NextHop> next_hops;
};

// Kept and reported as it was sent.
using Route6 = std::array<std::byte, 776>;

struct LifPolicy
{
    std::uint32_t kind = 0;
    std::string text;
    std::uint32_t dest = 0;
    std::uint32_t mask = 0;
    std::uint32_t param = 0;
    NextHop next_hop;
};

enum class Family
{
    Ipv4,
    Ipv6
};
enum class Entry
{
    Plain,
    Proxy
};

// An ARP entry or an IPv6 neighbour.
struct Neighbour
{
    Family family = Family::Ipv4;
    Entry entry = Entry::Plain;
    Ipv6Address address {}; // an IPv4 address in the first four bytes
    std::string lif;
    std::string mac;
};

struct MulticastSettings
{
    std::string name;
    std::uint32_t value1 = 0;
    std::uint32_t value2 = 0;
    std::uint16_t value3 = 0;
    std::uint8_t value4 = 0;
};

struct Instance
{
    std::string name;
    std::string uuid;
    std::uint32_t value1 = 0;
    std::string text;
    std::uint32_t value2 = 0;
    std::string tunables;
    std::uint32_t tunables_value = 0;

    std::vector<Lif> lifs;
    std::vector<Route> routes;
    std::vector<Route6> routes6;
    std::vector<LifPolicy> lif_policies;
    std::vector<Neighbour> neighbours;
    MulticastSettings multicast;

    Lif* find_lif(const std::string& lif_name);
};

struct Policy
{
    std::uint32_t key1 = 0;
    std::uint32_t key2 = 0;
    std::uint32_t value = 0;
};

struct PolicyTable
{
    std::uint32_t id = 0;
    std::string name;
    std::vector<Policy> policies;
};

struct State
{
    std::uint32_t log_level = 4;
    std::uint32_t extended_log_level = 0;
    std::uint32_t stats_level = 1;
    std::uint32_t tx_disp_queue_size = 1024;

    std::vector<Instance> instances; // in the order in which they were created
    std::uint64_t instances_created = 0;

    std::vector<PolicyTable> policy_tables;

    // By name or by UUID text; null if there is none.
    Instance* find_instance(const std::string& key);
};

// One command on its way through the module.
struct Exchange
{
    State& state;
    Request request;
    std::uint32_t room;
    std::vector<std::byte> reply;
};

inline constexpr std::size_t request_record = 776;

struct Command
{
    std::uint32_t number;
    std::size_t input; // the length of the input that the command demands
    int (*answer)(Exchange& exchange);
};

// The instance that the request's first field names; null if there is none.
inline Instance* instance_of(Exchange& exchange)
{
    return exchange.state.find_instance(exchange.request.text(0, 64));
}

// The answer to a set or delete whose caller wants to know more than success: a 32-bit zero and the word.
int done(Exchange& exchange);

// Routes and interface policies are reported as the same record of 668 bytes.
enum class RouteOrigin : std::uint8_t
{
    Static = 1,
    Connected = 2,
    Policy = 4
};
void write_route(const Route& route, RouteOrigin origin, std::vector<std::byte>& reply);

// The commands of each family, by rising number.
std::span<const Command> setting_commands();
std::span<const Command> instance_commands();
std::span<const Command> lif_commands();
std::span<const Command> route_commands();
std::span<const Command> route6_commands();
std::span<const Command> lif_policy_commands();
std::span<const Command> neighbour_commands();
std::span<const Command> policy_commands();

} // namespace emulator
