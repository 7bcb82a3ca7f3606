// What the emulator's model takes for an entry when one of its tables is filled to its cap and emptied, in process, and
// for finding a route when all routes and LIFs are there.
#include "emulator/model/module.h"
#include "emulator/protocol/access.h"
#include "emulator/protocol/commands.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace emulator;
using namespace emulator::protocol;

// The request record of a command, written by its fields.
class Request
{
public:
    Request() : bytes_(request_size) {}

    template <class Typed>
    Request& set(const Typed& field, typename Typed::Written value)
    {
        const Record record {std::span(bytes_)};
        record[field] = value;
        return *this;
    }

    std::span<const std::byte> bytes() const { return bytes_; }

private:
    std::vector<std::byte> bytes_;
};

std::string name_of(std::uint32_t entry)
{
    return "entry-" + std::to_string(entry);
}

// Addresses of the network 10.0.0.0/8, in network order.
std::uint32_t address_of(std::uint32_t entry)
{
    return 10 | (entry >> 16 & 0xff) << 8 | (entry >> 8 & 0xff) << 16 | (entry & 0xff) << 24;
}

constexpr std::uint32_t host_mask = 0xffffffff;
constexpr std::uint32_t network_mask = 0xff;

Ipv6::Value ipv6_address_of(std::uint32_t entry)
{
    Ipv6::Value address {std::byte {0xfd}};
    std::memcpy(&address[12], &entry, sizeof entry);
    return address;
}

Mac::Value mac_of(std::uint32_t entry)
{
    Mac::Value mac {std::byte {0x02}};
    std::memcpy(&mac[2], &entry, sizeof entry);
    return mac;
}

std::string mac_text_of(std::uint32_t entry)
{
    char text[18];
    std::snprintf(text, sizeof text, "02:00:00:%02x:%02x:%02x", entry >> 16 & 0xff, entry >> 8 & 0xff, entry & 0xff);
    return text;
}

// A table: the commands that add and remove an entry, and what both are sent. Where single entries are not removed, they
// are set again.
struct Filled
{
    const char* name;
    std::uint32_t add;
    std::uint32_t remove;
    std::size_t most;
    Request (*request)(std::uint32_t entry);
};

Request in_instance()
{
    return Request().set(addressed::instance, "blue");
}

constexpr Filled tables[] = {
    {"instances", number_of("SetLumoInstance"), number_of("DelLumoInstance"), instances::most,
        [](std::uint32_t entry) { return Request().set(addressed::instance, name_of(entry)); }},
    {"lifs", number_of("SetLif"), number_of("DelLif"), lifs::most - 1,
        [](std::uint32_t entry) {
            return in_instance()
                .set(lifs::lif, name_of(entry))
                .set(lifs::address, address_of(entry))
                .set(lifs::mask, host_mask);
        }},
    {"routes", number_of("SetRoute"), number_of("DelRoute"), routes::most - 1,
        [](std::uint32_t entry) {
            return in_instance()
                .set(routes::dest, address_of(entry))
                .set(routes::mask, host_mask)
                .set(routes::gateway, address_of(1))
                .set(routes::lif, "uplink");
        }},
    {"routes6", number_of("SetRoutev6"), number_of("DelRoutev6"), routes6::most,
        [](std::uint32_t entry) {
            return in_instance()
                .set(routes6::dest, ipv6_address_of(entry))
                .set(routes6::prefix_len, 128)
                .set(routes6::lif, "uplink");
        }},
    {"lif_policies", number_of("SetLifPolicy"), number_of("DelLifPolicy"), lif_policies::most,
        [](std::uint32_t entry) {
            return in_instance()
                .set(routes::dest, address_of(entry))
                .set(routes::mask, host_mask)
                .set(routes::lif, "uplink")
                .set(lif_policies::kind, 3);
        }},
    {"neighbours", number_of("SetArp"), number_of("DelArp"), neighbours::most,
        [](std::uint32_t entry) {
            return in_instance()
                .set(neighbours::arp::address, address_of(entry))
                .set(neighbours::lif, "uplink")
                .set(neighbours::arp::mac, mac_text_of(entry));
        }},
    {"policy_tables", number_of("SetPolicyTable"), number_of("DelPolicyTable"), policy_tables::most - 1,
        [](std::uint32_t entry) { return Request().set(policies::table, entry + 1); }},
    {"policies", number_of("SetPolicy"), number_of("DelPolicy"), policies::most,
        [](std::uint32_t entry) { return Request().set(policies::key1, entry); }},
    {"bridges", number_of("BridgeAdd"), number_of("BridgeDel"), bridges::most - 1,
        [](std::uint32_t entry) { return Request().set(bridges::key, name_of(entry)); }},
    {"fdb", number_of("BridgeSetFdbEntry"), number_of("BridgeSetFdbEntry"), fdb::most,
        [](std::uint32_t entry) { return Request().set(bridges::key, "bridge").set(fdb::mac, mac_text_of(entry)); }},
    {"endpoints", number_of("AddBridgeEndpoint"), number_of("DelBridgeEndpoint"), endpoints::most,
        [](std::uint32_t entry) {
            return Request().set(endpoints::key, name_of(entry)).set(endpoints::name, "bridge");
        }},
    {"pmacs", number_of("AddPmac"), number_of("DelPmac"), fdb::most_pmacs,
        [](std::uint32_t entry) { return Request().set(fdb::pmac, mac_of(entry)); }},
    {"connections", number_of("PlumbLumoConnection"), number_of("UnPlumbLumoConnection"), connections::most,
        [](std::uint32_t entry) { return Request().set(connections::name, name_of(entry)); }},
    {"local_receivers", number_of("AddMRoutingLocalRcvrs"), number_of("DelMRoutingLocalRcvrs"),
        mcast_receivers::most_local,
        [](std::uint32_t entry) { return in_instance().set(mcast_receivers::text, name_of(entry)); }},
    {"remote_receivers", number_of("AddMRoutingRemoteRcvrs"), number_of("DelMRoutingRemoteRcvrs"),
        mcast_receivers::most_remote,
        [](std::uint32_t entry) { return in_instance().set(mcast_receivers::key, entry); }},
};

// Those of the tables above that belong to something need it.
void prepare(Module& module)
{
    const Request uplink =
        in_instance().set(lifs::lif, "uplink").set(lifs::address, address_of(0)).set(lifs::mask, network_mask);
    module.answer(number_of("SetLumoInstance"), in_instance().bytes(), 0);
    module.answer(number_of("SetLif"), uplink.bytes(), 0);
    module.answer(number_of("EnableLif"), uplink.bytes(), 0);
    module.answer(number_of("SetPolicyTable"), Request().bytes(), 0);
    module.answer(number_of("BridgeAdd"), Request().set(bridges::key, "bridge").bytes(), 0);
}

std::vector<Request> requests_for(const Filled& table)
{
    std::vector<Request> requests;
    for (std::uint32_t entry = 0; entry < table.most; ++entry)
        requests.push_back(table.request(entry));
    return requests;
}

void count(benchmark::State& state, std::size_t entries)
{
    state.counters["entries"] = static_cast<double>(entries);
    state.counters["seconds_per_entry"] = benchmark::Counter(
        static_cast<double>(entries), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void fill_and_empty(benchmark::State& state, const Filled& table)
{
    const std::vector<Request> requests = requests_for(table);
    Module module;
    if (table.add != number_of("SetLumoInstance"))
        prepare(module);
    for (auto _ : state) {
        for (const std::uint32_t number : {table.add, table.remove})
            for (const Request& request : requests)
                if (const int error = module.answer(number, request.bytes(), 0).error; error != 0) {
                    state.SkipWithError((std::to_string(number) + " fails: " + std::to_string(error)).c_str());
                    return;
                }
    }
    count(state, requests.size());
}

// Half of the routes are networks of LIFs: both are in one list, which ends at its cap. The others are of all prefix
// lengths from 13 to 32, as many of each, and one to everywhere.
std::uint32_t mask_of(std::uint32_t route)
{
    return __builtin_bswap32(~0u << (19 - route % 20));
}

std::uint32_t destination_of(std::uint32_t route)
{
    return __builtin_bswap32((route / 20 + 1) << (19 - route % 20)) & mask_of(route);
}

Request route_to(std::uint32_t destination, std::uint32_t mask)
{
    return in_instance()
        .set(routes::dest, destination)
        .set(routes::mask, mask)
        .set(routes::gateway, address_of(1))
        .set(routes::lif, "uplink");
}

void resolve(benchmark::State& state)
{
    Module module;
    prepare(module);
    for (std::uint32_t lif = 1; lif < lifs::most; ++lif) {
        const Request request =
            in_instance().set(lifs::lif, name_of(lif)).set(lifs::address, address_of(lif)).set(lifs::mask, host_mask);
        module.answer(number_of("SetLif"), request.bytes(), 0);
        if (lif < routes::most / 2)
            module.answer(number_of("EnableLif"), request.bytes(), 0);
    }
    module.answer(number_of("SetRoute"), route_to(0, 0).bytes(), 0);
    for (std::uint32_t route = 1; route < routes::most / 2; ++route)
        if (module.answer(number_of("SetRoute"), route_to(destination_of(route), mask_of(route)).bytes(), 0).error != 0)
            state.SkipWithError("a route is refused");
    std::vector<Request> requests;
    for (const std::uint32_t sought : {address_of(7), destination_of(3999), destination_of(2000), host_mask})
        requests.push_back(in_instance().set(routes::dest, sought).set(routes::mask, host_mask));
    for (auto _ : state)
        for (const Request& request : requests)
            if (module.answer(number_of("GetResolveRoute"), request.bytes(), routes::record::layout.size).error != 0) {
                state.SkipWithError("no route");
                return;
            }
    count(state, requests.size());
}

} // namespace

int main(int argc, char** argv)
{
    for (const Filled& table : tables)
        benchmark::RegisterBenchmark(table.name, fill_and_empty, table)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("resolution", resolve);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
