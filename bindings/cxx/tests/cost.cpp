// So many calls of one kind of operation, in C or in C++, and nothing else: for counting what they do.
// usage: cost KIND c|cxx|tried CALLS
#include "fields.h"
#include "operations/envelope.h"

#include <cstdio>
#include <fcntl.h>
#include <lumozeph.hpp>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr std::size_t lifs = 1000;
char reply[lifs * 576];
std::uint32_t reply_length;

} // namespace

// The device is /dev/null. What it answers is in the reply.
extern "C" {

int open64(const char*, int flags, ...)
{
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, "/dev/null", flags));
}

int ioctl(int, unsigned long, ...) noexcept;

int ioctl(int, unsigned long number, ...) noexcept
{
    __builtin_va_list arguments;
    __builtin_va_start(arguments, number);
    void* const envelope = __builtin_va_arg(arguments, void*);
    __builtin_va_end(arguments);
    if (reply_length > 0)
        std::memcpy(operations::read_envelope(envelope).out, reply, reply_length);
    operations::report_length(envelope, reply_length);
    return 0;
}

} // extern "C"

namespace {

constexpr char instance[] = "0000002a-51b3-4f0e-9c1d-00005e00532a";
constexpr char lif[] = "lif-0000-17";
constexpr std::uint32_t network = 0x000200c0;
constexpr std::uint32_t mask = 0x00ffffff;
constexpr std::uint32_t gateway = 0x016433c6;

// What is read goes here, so that it is read.
volatile std::uint64_t sink;

[[gnu::cold, gnu::noinline]] void failed()
{
    std::perror("cost");
    std::exit(1);
}

// A kind of operation: what programs write for it. A program in C looks at the result of each call.
struct Kind
{
    const char* name;
    std::uint32_t reply_length;
    void (*in_c)();
    void (*in_cxx)();
    void (*tried)();
};

constexpr Kind kinds[] {
    {"set", 0,
        [] {
            if (LUMOZEPH_SetLogLevel(7) != 0)
                failed();
        },
        [] { lumozeph::set_log_level(7); },
        [] {
            if (lumozeph::try_set_log_level(7))
                failed();
        }},
    {"set-with-texts", 0,
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
    {"get-value", 4,
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
    {"get-record", 576,
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
    {"get-list", lifs * 576,
        [] {
            LumoLifList* list = nullptr;
            if (LUMOZEPH_GetLifs(instance, &list) != 0)
                failed();
            std::uint64_t sum = 0;
            for (std::int32_t i = 0; i < list->count; ++i) {
                const LumoLifInfo* const record = &list->records[i];
                sum += fields::sum_of(*record);
                const std::uint32_t addresses = lumozeph_ipv6_addrs(record);
                for (std::uint32_t k = 0; k < addresses; ++k)
                    sum += fields::sum_of(record->ipv6Addrs[k]);
                const std::uint32_t servers = lumozeph_relay_servers(&record->dhcpRelay);
                for (std::uint32_t k = 0; k < servers; ++k)
                    sum += fields::sum_of(record->dhcpRelay.servers[k]);
            }
            sink = sum;
            LUMOZEPH_ReleaseLifs(list);
        },
        [] {
            std::uint64_t sum = 0;
            for (const auto& record : lumozeph::get_lifs(instance)) {
                sum += fields::sum_of(record);
                for (const auto& address : lumozeph::ipv6_addrs(record))
                    sum += fields::sum_of(address);
                for (const auto& server : lumozeph::servers(record.dhcpRelay))
                    sum += fields::sum_of(server);
            }
            sink = sum;
        },
        [] {
            lumozeph::lif_list list;
            if (lumozeph::try_get_lifs(instance, list))
                failed();
            std::uint64_t sum = 0;
            for (const auto& record : list) {
                sum += fields::sum_of(record);
                for (const auto& address : lumozeph::ipv6_addrs(record))
                    sum += fields::sum_of(address);
                for (const auto& server : lumozeph::servers(record.dhcpRelay))
                    sum += fields::sum_of(server);
            }
            sink = sum;
        }},
    {"get-raw", 16,
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

} // namespace

int main(int argc, char** argv)
{
    for (const Kind& kind : kinds)
        if (argc == 4 && std::strcmp(argv[1], kind.name) == 0) {
            const std::string_view form = argv[2];
            reply_length = kind.reply_length;
            // Records of which some fields are set: three IPv6 addresses, two DHCP servers, names.
            for (std::size_t at = 0; at + 576 <= reply_length; at += 576) {
                std::memcpy(reply + at, "uplink", 6);
                std::memset(reply + at + 128, 1, 30);
                reply[at + 162] = 2;
                reply[at + 566] = 3;
            }
            void (*const call)() = form == "c" ? kind.in_c : form == "cxx" ? kind.in_cxx : kind.tried;
            for (int calls = std::atoi(argv[3]); calls > 0; --calls)
                call();
            return 0;
        }
    std::fprintf(stderr, "usage: cost KIND c|cxx|tried CALLS\n");
    return 2;
}
