// Bridges and their forwarding tables.
#include "emulator/model/state.h"

#include <algorithm>
#include <cstdio>

namespace emulator {

namespace {

constexpr std::size_t most_bridges = 4096;
constexpr std::size_t most_fdb_entries = 4096;
constexpr std::size_t most_pmacs = 131072 / 10;

Bridge* bridge_of(Exchange& exchange)
{
    auto& all = exchange.state.bridges;
    const auto found = std::find_if(all.begin(), all.end(),
        [key = exchange.request.text(0, 64)](const Bridge& bridge) { return bridge.key == key; });
    return found == all.end() ? nullptr : &*found;
}

template <class Change>
int on_bridge(Exchange& exchange, Change change)
{
    Bridge* bridge = bridge_of(exchange);
    return bridge == nullptr ? ENOENT : change(*bridge);
}

int add(Exchange& exchange)
{
    const std::string key = exchange.request.text(0, 64);
    if (key.empty())
        return EINVAL;
    Bridge* bridge = bridge_of(exchange);
    if (bridge == nullptr) {
        if (exchange.state.bridges.size() == most_bridges)
            return ENOSPC;
        bridge = &exchange.state.bridges.emplace_back();
        bridge->key = key;
    }
    bridge->value = exchange.request.u32(64);
    return 0;
}

int remove(Exchange& exchange)
{
    return on_bridge(exchange, [&](const Bridge& bridge) {
        auto& all = exchange.state.bridges;
        all.erase(all.begin() + (&bridge - all.data()));
        return 0;
    });
}

template <bool Value>
int enable(Exchange& exchange)
{
    return on_bridge(exchange, [](Bridge& bridge) {
        bridge.enabled = Value;
        return 0;
    });
}

template <std::uint32_t Bridge::*Member, std::size_t Offset>
int set_number(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        bridge.*Member = exchange.request.u32(Offset);
        return 0;
    });
}

void write(const Bridge& bridge, Exchange& exchange)
{
    Record(exchange.reply, 393)
        .u32(8, bridge.value)
        .text(12, 64, bridge.key)
        .u32(76, bridge.enabled)
        .u32(80, bridge.ha_state)
        .u32(305, bridge.replication_mode)
        .u32(309, static_cast<std::uint32_t>(bridge.fdb.size()));
}

int get_one(Exchange& exchange)
{
    return on_bridge(exchange, [&](const Bridge& bridge) {
        write(bridge, exchange);
        return 0;
    });
}

int get_all(Exchange& exchange)
{
    for (const Bridge& bridge : exchange.state.bridges)
        write(bridge, exchange);
    return 0;
}

// The model's bridges have no networks and no ports.
int get_none(Exchange& exchange)
{
    return on_bridge(exchange, [](const Bridge&) { return 0; });
}

std::array<std::uint32_t, 2> selectors_of(const Exchange& exchange)
{
    return {exchange.request.u32(68), exchange.request.u32(72)};
}

int set_fdb_entry(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        FdbEntry entry {
            selectors_of(exchange), exchange.request.text(84, 18), exchange.request.u32(80), exchange.request.u8(102)};
        const auto existing = std::find_if(bridge.fdb.begin(), bridge.fdb.end(), [&](const FdbEntry& candidate) {
            return candidate.selectors == entry.selectors && candidate.mac == entry.mac;
        });
        if (existing != bridge.fdb.end())
            *existing = entry;
        else if (bridge.fdb.size() == most_fdb_entries)
            return ENOSPC;
        else
            bridge.fdb.push_back(entry);
        return 0;
    });
}

int clear_fdb(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        std::erase_if(bridge.fdb, [&](const FdbEntry& entry) { return entry.selectors == selectors_of(exchange); });
        return 0;
    });
}

// The six bytes of a MAC address in text form; zeros if it is none.
std::array<std::byte, 6> parse_mac(const std::string& text)
{
    std::array<unsigned, 6> digits {};
    std::array<std::byte, 6> mac {};
    // NOLINTNEXTLINE(cert-err34-c): two digits at a time do not overflow
    if (std::sscanf(text.c_str(), "%2x:%2x:%2x:%2x:%2x:%2x", &digits[0], &digits[1], &digits[2], &digits[3], &digits[4],
            &digits[5]) == 6)
        std::transform(digits.begin(), digits.end(), mac.begin(), [](unsigned digit) { return std::byte(digit); });
    return mac;
}

int get_fdb(Exchange& exchange)
{
    return on_bridge(exchange, [&](const Bridge& bridge) {
        for (const FdbEntry& entry : bridge.fdb)
            if (entry.selectors == selectors_of(exchange))
                Record(exchange.reply, 20)
                    .bytes(0, parse_mac(entry.mac))
                    .u16(6, static_cast<std::uint16_t>(entry.selectors[0]))
                    .u32(8, entry.selectors[1] & 0xffffff)
                    .u8(11, entry.flags)
                    .u32(12, entry.value);
        return 0;
    });
}

// The model keeps no FL table.
int dump_fl_table(Exchange&)
{
    return 0;
}

int add_pmac(Exchange& exchange)
{
    if (exchange.state.pmacs.size() == most_pmacs)
        return ENOSPC;
    exchange.state.pmacs[exchange.request.bytes<6>(68)] = exchange.request.u32(64);
    return 0;
}

int remove_pmac(Exchange& exchange)
{
    return exchange.state.pmacs.erase(exchange.request.bytes<6>(68)) == 1 ? 0 : ENOENT;
}

// Ten bytes for each: the address and its value.
int get_pmacs(Exchange& exchange)
{
    for (const auto& [mac, value] : exchange.state.pmacs)
        Record(exchange.reply, 10).bytes(0, mac).u32(6, value);
    return 0;
}

constexpr Command commands[] = {
    {49, request_record, set_number<&Bridge::replication_mode, 108>},
    {53, request_record, add},
    {54, request_record, remove},
    {55, request_record, enable<true>},
    {56, request_record, enable<false>},
    {61, request_record, get_all},
    {62, request_record, get_one},
    {63, request_record, get_none},
    {64, request_record, get_none},
    {65, request_record, get_fdb},
    {66, request_record, set_fdb_entry},
    {67, request_record, clear_fdb},
    {72, request_record, dump_fl_table},
    {73, request_record, get_pmacs},
    {74, request_record, add_pmac},
    {75, request_record, remove_pmac},
    {118, request_record, set_number<&Bridge::ha_state, 64>},
};

} // namespace

std::span<const Command> bridge_commands()
{
    return commands;
}

} // namespace emulator
