// Forwarding tables of bridges, the FL table and PMACs. The model keeps no FL table.
#include "emulator/protocol/fdb.h"

#include "emulator/model/addresses.h"
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"

namespace emulator {

using namespace protocol;

namespace {

std::array<std::uint32_t, 2> selectors_of(const Exchange& exchange)
{
    return {exchange.request[fdb::selector1], exchange.request[fdb::selector2]};
}

int set_fdb_entry(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        const std::string mac = exchange.request[fdb::mac];
        if (exchange.state.is_strict() && !parse_mac(mac))
            return EINVAL;
        const FdbEntry entry {
            selectors_of(exchange), in_lower_case(mac), exchange.request[fdb::value], exchange.request[fdb::flags]};
        if (FdbEntry* existing = bridge.fdb.find(entry.identity()))
            *existing = entry;
        else if (bridge.fdb.size() == fdb::most)
            return ENOSPC;
        else
            bridge.fdb.add(entry);
        return 0;
    });
}

int clear_fdb(Exchange& exchange)
{
    return on_bridge(exchange, [&](Bridge& bridge) {
        bridge.fdb.remove_all([&](const FdbEntry& entry) { return entry.selectors == selectors_of(exchange); });
        return 0;
    });
}

void write(const FdbEntry& entry, Exchange& exchange)
{
    namespace to = fdb::record;
    const Record record = exchange.add(to::layout);
    record[to::mac] = parse_mac(entry.mac).value_or(MacAddress {});
    record[to::selector1] = static_cast<std::uint16_t>(entry.selectors[0]);
    record[to::selector2] = entry.selectors[1];
    record[to::flags] = entry.flags;
    record[to::value] = entry.value;
    if (entry.learned)
        record[to::value5] = static_cast<std::uint32_t>(
            std::chrono::floor<std::chrono::seconds>(exchange.state.stopwatch.now() - *entry.learned).count());
}

int get_fdb(Exchange& exchange)
{
    const std::array selectors {exchange.request[fdb::value16], exchange.request[fdb::value32]};
    return on_bridge(exchange, [&](const Bridge& bridge) {
        for (const FdbEntry& entry : bridge.fdb)
            if (entry.selectors == selectors)
                write(entry, exchange);
        return 0;
    });
}

int add_pmac(Exchange& exchange)
{
    if (exchange.state.pmacs.size() == fdb::most_pmacs && !exchange.state.pmacs.contains(exchange.request[fdb::pmac]))
        return ENOSPC;
    exchange.state.pmacs[exchange.request[fdb::pmac]] = exchange.request[fdb::pmac_value];
    return 0;
}

int remove_pmac(Exchange& exchange)
{
    return exchange.state.pmacs.erase(exchange.request[fdb::pmac]) == 1 ? 0 : ENOENT;
}

int get_pmacs(Exchange& exchange)
{
    for (const auto& [mac, value] : exchange.state.pmacs) {
        const Record record = exchange.add(fdb::pmac_record::layout);
        record[fdb::pmac_record::mac] = mac;
        record[fdb::pmac_record::value] = value;
    }
    return 0;
}

constexpr Handler answers[] = {
    {"GetBridgeFdbEntries", get_fdb},
    {"BridgeSetFdbEntry", set_fdb_entry},
    {"BridgeClearFdbTable", clear_fdb},
    {"DumpFLTable", accepted},
    {"GetPmac", get_pmacs},
    {"AddPmac", add_pmac},
    {"DelPmac", remove_pmac},
};

} // namespace

const Handlers handlers::fdb(fdb::commands, answers);

} // namespace emulator
