// What the module keeps.
#pragma once

#include "emulator/model/collection.h"
#include "emulator/model/module.h"
#include "emulator/model/time.h"
#include "emulator/protocol/clusters.h"
#include "emulator/protocol/connections.h"
#include "emulator/protocol/dhcp_relay.h"
#include "emulator/protocol/endpoints.h"
#include "emulator/protocol/policy_tables.h"
#include "emulator/protocol/routes6.h"
#include "emulator/protocol/rss.h"

#include <array>
#include <bit>
#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace emulator {

using Ipv6Address = protocol::Ipv6::Value;
using MacAddress = protocol::Mac::Value;

struct LifIpv6
{
    Ipv6Address address {};
    std::uint8_t prefix_length = 0;
};

struct DhcpServer
{
    protocol::ValueOf<protocol::dhcp_relay::server::address> address {};
    std::uint32_t family = 0;
};

// As it was sent: the count may say anything.
struct DhcpRelay
{
    std::uint32_t count = 0;
    std::array<DhcpServer, protocol::dhcp_relay::most_servers> servers;
};

// Begins with the number of the table.
using PolicyTableRef = protocol::ValueOf<protocol::policy_tables::ref::bytes>;

struct Route;
struct Route6;
struct LifPolicy;
struct Neighbour;

enum class LifKind
{
    Routed,
    Bridge
};

struct Lif
{
    std::uint64_t created = 0; // how many there were before
    LifKind kind = LifKind::Routed;
    std::string name;
    std::string aux_name;
    std::uint32_t address = 0;
    std::uint32_t mask = 0;
    std::uint32_t di_address = 0;
    MacAddress mac {};
    std::uint32_t param_a = 0;
    std::uint32_t param_b = 0;
    std::uint32_t param_c = 0;
    std::uint32_t vxlan_multicast = 0;
    std::uint32_t ra_mtu = 0;
    bool enabled = false;
    bool vxlan_control_plane = false;
    bool multicast_routing = false;
    DhcpRelay dhcp_relay;
    std::vector<LifIpv6> ipv6;
    std::vector<PolicyTableRef> policy_table_refs;
    Counters counters;

    // What is over it or on it, and goes when it goes.
    std::unordered_set<Route*> routes;
    std::unordered_set<const Route6*> routes6;
    std::unordered_set<const LifPolicy*> policies;
    std::unordered_set<const Neighbour*> neighbours;

    const std::string& identity() const { return name; }
};

// A network that enabled LIFs are on, in the order of their creation.
struct Subnet
{
    std::uint32_t dest = 0;
    std::uint32_t mask = 0;
    std::map<std::uint64_t, Lif*> lifs;

    auto identity() const { return std::tie(dest, mask); }
};

struct LongestFirst
{
    bool operator()(std::uint32_t left, std::uint32_t right) const
    {
        const int difference = std::popcount(left) - std::popcount(right);
        return difference != 0 ? difference > 0 : left < right;
    }
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

    auto identity() const { return std::tie(dest, mask); }
};

// To a gateway, or to the LIF's network itself if that is zero.
struct Route6
{
    Ipv6Address dest {};
    std::uint8_t prefix_length = 0;
    Ipv6Address gateway {};
    std::string lif; // or none

    auto identity() const { return std::tie(dest, prefix_length, gateway, lif); }
};

struct LifPolicy
{
    std::int32_t kind = 0;
    std::string text;
    std::uint32_t dest = 0;
    std::uint32_t mask = 0;
    std::uint32_t param = 0;
    NextHop next_hop;

    auto identity() const { return std::tie(kind, text, dest, mask, next_hop.gateway, next_hop.lif); }
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
    std::uint32_t ipv4_address = 0;
    Ipv6Address ipv6_address {};
    std::string lif;
    std::string mac;
    std::optional<Time> learned {}; // when it was seen, if it was not set

    auto identity() const { return std::tie(family, entry, ipv4_address, ipv6_address, lif); }
};

struct MulticastSettings
{
    std::string name;
    std::uint32_t value1 = 0;
    std::uint32_t value2 = 0;
    std::uint16_t value3 = 0;
    std::uint8_t value4 = 0;
};

struct RemoteReceiver
{
    std::uint32_t value = 0;
    std::uint32_t key = 0;
    std::uint32_t value1 = 0;
    std::uint32_t value2 = 0;
    MacAddress hw_address {};

    auto identity() const { return std::tie(value, key); }
};

struct LocalReceiver
{
    std::uint32_t value = 0;
    std::string text;

    auto identity() const { return std::tie(value, text); }
};

struct MulticastRouter
{
    bool present = false;
    std::uint32_t value = 0;
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

    Collection<Lif> lifs;
    std::uint64_t lifs_created = 0;
    Collection<Route> routes;
    Collection<Subnet> subnets;
    std::map<std::uint32_t, std::size_t, LongestFirst> masks; // of how many routes, and LIFs on subnets
    std::size_t lifs_on_subnets = 0;
    // How many enabled LIFs are on each IPv6 network, by the lengths of their prefixes.
    std::map<std::uint8_t, std::map<Ipv6Address, std::size_t>> subnets6;
    std::size_t addresses_on_subnets6 = 0;
    Collection<Route6> routes6;
    Collection<LifPolicy> lif_policies;
    Collection<Neighbour> neighbours;
    std::chrono::seconds neighbour_ageing {1200};
    MulticastSettings multicast;
    Collection<LocalReceiver> local_receivers;
    Collection<RemoteReceiver> remote_receivers;
    MulticastRouter multicast_router;
    std::uint32_t control_plane_address = 0;
    std::uint32_t sync_state = 0;
    Counters control_plane_counters;

    const std::string& identity() const { return name; }
};

struct Policy
{
    std::uint32_t key1 = 0;
    std::uint32_t key2 = 0;
    std::uint32_t value = 0;

    auto identity() const { return std::tie(key1, key2); }
};

struct PolicyTable
{
    std::uint32_t id = 0;
    std::string name;
    Collection<Policy> policies;
    std::unordered_set<Lif*> referring; // the LIFs that do

    std::uint32_t identity() const { return id; }
};

struct Endpoint;

// The MAC address is kept as text, in lower case.
struct FdbEntry
{
    std::array<std::uint32_t, 2> selectors {};
    std::string mac;
    std::uint32_t value = 0;
    std::uint8_t flags = 0;
    std::optional<Time> learned {}; // when it was seen, if it was not set

    auto identity() const { return std::tie(selectors[0], selectors[1], mac); }
};

// What the module has found out. Programs only read it.
struct BridgeNetwork
{
    static constexpr std::size_t counters = 12;

    std::uint16_t selector1 = 0;
    std::uint32_t selector2 = 0;
    std::uint64_t value1 = 0;
    std::uint32_t value2 = 0;
    std::uint16_t value5 = 0;
    std::uint32_t value6 = 0;
    std::uint32_t value7 = 0;
    std::uint8_t value8 = 0;
    Counters data;

    auto identity() const { return std::tie(selector1, selector2); }
};

struct BridgePort
{
    static constexpr std::size_t counters = 16;

    std::uint64_t value1 = 0;
    std::uint32_t value2 = 0;
    std::uint16_t selector1 = 0;
    std::uint32_t selector2 = 0;
    Counters data;

    std::uint64_t identity() const { return value1; }
};

struct Bridge
{
    std::string key;
    std::uint32_t value = 0;
    bool enabled = false;
    std::uint32_t ha_state = 0;
    std::uint32_t replication_mode = 0;
    Collection<FdbEntry> fdb;
    std::chrono::seconds fdb_ageing {300};
    Collection<BridgeNetwork> networks;
    Collection<BridgePort> ports;
    std::unordered_set<const Endpoint*> endpoints;
    std::unordered_map<Lif*, Instance*> lifs;

    const std::string& identity() const { return key; }
};

// Whether what is at the other end can be reached.
enum class LinkState
{
    Up,
    Down
};

struct ClusterNode
{
    std::string name;
    MacAddress mac {};
    LinkState link = LinkState::Up;
    Time since {}; // when it was set
};

struct Cluster
{
    std::string key;
    std::uint8_t debug_level = 0;
    std::uint8_t profile_flag = 0;
    std::uint32_t profile_value1 = 0;
    std::uint32_t profile_value2 = 0;
    std::vector<ClusterNode> nodes;
};

struct Endpoint
{
    std::string key;
    std::string bridge; // or none
    std::string name;
    std::uint32_t value1 = 0;
    std::uint32_t value2 = 0;
    std::uint16_t value3 = 0;
    std::uint8_t flag1 = 0;
    std::uint8_t flag2 = 0;
    // What the module reports of it behind its key.
    std::array<std::byte, protocol::endpoints::stats_record::rest.width> statistics {};
    std::array<std::byte, protocol::endpoints::status_record::rest.width> status {};

    const std::string& identity() const { return key; }
};

struct Connection
{
    std::string name;
    std::array<std::string, 4> texts;
    LinkState link = LinkState::Up;
    Time since {}; // when it was plumbed

    const std::string& identity() const { return name; }
};

struct BfdConnection
{
    std::string name;
    std::string text;
    MacAddress mac {};
    LinkState link = LinkState::Up;
    Time since {}; // when it was plumbed

    const std::string& identity() const { return name; }
};

struct RssTarget
{
    std::uint64_t tunables = 0;
    protocol::ValueOf<protocol::rss::entries> table {};
    std::array<std::uint32_t, protocol::rss::most_queues> words {};
    Counters counters; // the first of each queue, then the second and the third ones
};

// BFD sessions beside those of the ports that are plumbed, as many as there may be: each has addresses so much further than
// the one before.
struct BfdSessions
{
    std::string name;
    std::uint32_t count = 1;
    std::string key; // under which they are listed alone
    std::uint16_t value1 = 0;
    MacAddress addr1 {};
    std::uint32_t addr1_step = 0;
    MacAddress addr2 {};
    std::uint32_t addr2_step = 0;
    std::uint32_t value2 = 0;
    std::uint8_t value3 = 0;
    std::uint32_t value4 = 0;
    std::uint64_t value5 = 0;
    std::uint64_t value6 = 0;
};

// The local transport node.
struct TransportNode
{
    std::array<std::string, 3> texts;
    std::uint32_t value = 0;
    protocol::ValueOf<protocol::clusters::transport::block> block {};
};

struct State
{
    explicit State(Settings chosen) : settings(chosen), stopwatch(chosen.clock) {}

    Settings settings;
    Stopwatch stopwatch;
    Time next_ageing = Time::max(); // when something that was learned is to be forgotten

    std::uint32_t log_level = 4;
    std::uint32_t extended_log_level = 0;
    std::uint32_t stats_level = 1;
    std::uint32_t tx_disp_queue_size = 1024;

    Collection<Instance> instances;
    std::unordered_map<std::string, Instance*> instances_by_uuid;
    std::uint64_t instances_created = 0;

    Collection<PolicyTable> policy_tables;

    Collection<Bridge> bridges;
    std::vector<Cluster> clusters;
    Collection<Endpoint> endpoints;
    std::optional<TransportNode> local_transport_node;
    std::map<MacAddress, std::uint32_t> pmacs;

    Collection<Connection> connections;
    std::chrono::seconds deletion_time {0}; // how long a connection takes to go
    std::vector<Time> deletions;            // when those will have gone that are going
    Collection<BfdConnection> bfd_connections;
    std::vector<BfdSessions> bfd_sessions;
    std::map<std::string, RssTarget> rss_targets;

    std::uint32_t control_plane_active = 0;
    std::uint32_t saves = 0; // full-sync saves performed
    Counters counters;

    bool is_strict() const { return settings.strictness == Strictness::Strict; }

    // By name or by UUID text; null if there is none.
    Instance* find_instance(const std::string& key);
};

// Whether a text is a UUID's: who is created under one has it.
bool is_uuid_text(const std::string& text);

// The same instances created in the same order have the same UUIDs in every run.
std::string next_uuid(State& state);

// Whether so many BFD sessions more can be listed.
bool has_room_for_sessions(const State& state, std::uint64_t more);

} // namespace emulator
