// The same calls in C and in C++, as programs write them: what is measured and counted.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <lumozeph.hpp>
#include <lumozeph_inline.h>
#include <vector>

namespace cost {

// Every field of a LIF.
inline std::uint64_t sum_of(const std::uint8_t* bytes, std::size_t size)
{
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < size; ++i)
        sum += bytes[i];
    return sum;
}

inline std::uint64_t sum_of(const LumoLifInfo& lif)
{
    std::uint64_t sum = strnlen(lif.lifName, 64) + strnlen(lif.lifSecondName, 64);
    sum += std::uint64_t {lif.ipAddr} + lif.ipMask + lif.diIp + lif.lifValue1 + lif.lifValue2 + lif.lifValue3;
    sum += sum_of(lif.lifMac, 6) + sum_of(lif.lifFlags, 4);
    return sum + lif.lifState1 + lif.lifState2 + lif.lifValue4;
}

inline std::uint64_t sum_of(const LumoLifIpv6Addr& address)
{
    return sum_of(address.address, 16) + address.prefixLen + address.value;
}

inline std::uint64_t sum_of(const LumoDhcpRelayServer& server)
{
    return sum_of(server.address, 16) + server.family;
}

// Of all of them with what their tables hold, as the layer sees both.
inline std::uint64_t sum_of_all(const lumozeph::lif_list& list)
{
    std::uint64_t sum = 0;
    for (const auto& record : list) {
        sum += sum_of(record);
        for (const auto& address : lumozeph::ipv6_addrs(record))
            sum += sum_of(address);
        for (const auto& server : lumozeph::servers(record.dhcpRelay))
            sum += sum_of(server);
    }
    return sum;
}

inline constexpr char instance[] = "0000002a-51b3-4f0e-9c1d-00005e00532a";
inline constexpr char lif[] = "lif-0000-17";
inline constexpr std::uint32_t network = 0x000200c0;
inline constexpr std::uint32_t mask = 0x00ffffff;
inline constexpr std::uint32_t gateway = 0x016433c6;

// What is read goes here, so that it is read.
inline volatile std::uint64_t sink;

[[gnu::cold, gnu::noinline]] inline void failed()
{
    std::perror("a call");
    std::exit(1);
}

// A kind of operation: what programs write for it. A program in C looks at the result of each call.
struct Kind
{
    const char* name;
    std::uint32_t size; // of a record of the reply
    std::uint32_t most; // such records
    void (*in_c)();
    void (*in_cxx)();
    void (*tried)();
};

inline constexpr Kind kinds[] {
    {"set", 0, 0,
        [] {
            if (LUMOZEPH_SetLogLevel(7) != 0)
                failed();
        },
        [] { lumozeph::set_log_level(7); },
        [] {
            if (lumozeph::try_set_log_level(7))
                failed();
        }},
    {"set-with-texts", 0, 0,
        [] {
            if (LUMOZEPH_SetRoute(network, mask, gateway, lif, instance, 1, nullptr) != 0)
                failed();
        },
        [] {
            lumozeph::set_route({.dest {lumozeph::ipv4(network), lumozeph::ipv4_mask(mask)},
                .gateway = lumozeph::ipv4(gateway),
                .lif = lif,
                .instance = instance,
                .param = 1});
        },
        [] {
            if (lumozeph::try_set_route({.dest {lumozeph::ipv4(network), lumozeph::ipv4_mask(mask)},
                    .gateway = lumozeph::ipv4(gateway),
                    .lif = lif,
                    .instance = instance,
                    .param = 1}))
                failed();
        }},
    {"get-value", 4, 1,
        [] {
            std::uint32_t level = 0;
            if (LUMOZEPH_GetLogLevel(&level) != 0)
                failed();
            sink = level;
        },
        [] { sink = lumozeph::get_log_level(); },
        [] {
            std::uint32_t level = 0;
            if (lumozeph::try_get_log_level(level))
                failed();
            sink = level;
        }},
    {"get-record", 576, 1,
        [] {
            LumoLifInfo* record = nullptr;
            if (LUMOZEPH_GetLif(instance, lif, &record) != 0)
                failed();
            sink = record->ipAddr;
            LUMOZEPH_ReleaseLif(record);
        },
        [] { sink = lumozeph::get_lif(instance, lif)->ipAddr; },
        [] {
            lumozeph::owned_lif_info record;
            if (lumozeph::try_get_lif(instance, lif, record))
                failed();
            sink = record->ipAddr;
        }},
    {"get-list", 576, LUMOZEPH_LIFS_MAX,
        [] {
            LumoLifList* list = nullptr;
            if (LUMOZEPH_GetLifs(instance, &list) != 0)
                failed();
            std::uint64_t sum = 0;
            for (std::int32_t i = 0; i < list->count; ++i) {
                const LumoLifInfo* const record = &list->records[i];
                sum += sum_of(*record);
                const std::uint32_t addresses = lumozeph_ipv6_addrs(record);
                for (std::uint32_t k = 0; k < addresses; ++k)
                    sum += sum_of(record->ipv6Addrs[k]);
                const std::uint32_t servers = lumozeph_relay_servers(&record->dhcpRelay);
                for (std::uint32_t k = 0; k < servers; ++k)
                    sum += sum_of(record->dhcpRelay.servers[k]);
            }
            sink = sum;
            LUMOZEPH_ReleaseLifs(list);
        },
        [] { sink = sum_of_all(lumozeph::get_lifs(instance)); },
        [] {
            lumozeph::lif_list list;
            if (lumozeph::try_get_lifs(instance, list))
                failed();
            sink = sum_of_all(list);
        }},
    {"get-raw", 16, 1,
        [] {
            std::uint8_t bytes[LUMOZEPH_LOCALE_ID_SIZE] = {};
            if (LUMOZEPH_GetLocaleId(bytes) != 0)
                failed();
            sink = bytes[15];
        },
        [] {
            const auto bytes = lumozeph::get_locale_id();
            sink = static_cast<std::uint64_t>(bytes[15]);
        },
        [] {
            lumozeph::raw<LUMOZEPH_LOCALE_ID_SIZE> bytes;
            if (lumozeph::try_get_locale_id(bytes))
                failed();
            sink = static_cast<std::uint64_t>(bytes[15]);
        }},
};

// LIFs of which some fields are set: names, three IPv6 addresses, two DHCP servers. For kinds that read none, they are
// bytes like any others.
inline std::vector<char> lifs(std::uint32_t count)
{
    std::vector<char> records(std::size_t {count} * 576);
    for (std::size_t at = 0; at < records.size(); at += 576) {
        std::memcpy(&records[at], "uplink", 6);
        std::memset(&records[at + 128], 1, 30);
        records[at + 162] = 2;
        records[at + 566] = 3;
    }
    return records;
}

} // namespace cost
