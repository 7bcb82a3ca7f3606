// Forwarding tables of bridges, the FL table and PMACs. The model keeps no FL table.
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

#include <algorithm>
#include <cstdio>

namespace emulator {

namespace {

constexpr std::size_t most_entries = 4096; // of one bridge
constexpr std::size_t most_pmacs = 131072 / 10;

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
        else if (bridge.fdb.size() == most_entries)
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

constexpr Handler answers[] = {
    {65, request_record, get_fdb},
    {66, request_record, set_fdb_entry},
    {67, request_record, clear_fdb},
    {72, request_record, accepted},
    {73, request_record, get_pmacs},
    {74, request_record, add_pmac},
    {75, request_record, remove_pmac},
};

} // namespace

const std::span<const Handler> handlers::fdb = answers;

} // namespace emulator
