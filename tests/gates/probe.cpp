// So many calls of one kind of operation, and nothing else: for counting what they do.
// usage: probe KIND CALLS
#include "operations/envelope.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <lumozeph.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

char reply[32768 * 146];
std::uint32_t reply_length;

} // namespace

// The device is /dev/null: the system calls are real. What it answers is in the reply.
extern "C" {

int open64(const char*, int flags, ...)
{
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, "/dev/null", flags));
}

int ioctl(int descriptor, unsigned long number, ...) noexcept
{
    __builtin_va_list arguments;
    __builtin_va_start(arguments, number);
    void* const envelope = __builtin_va_arg(arguments, void*);
    __builtin_va_end(arguments);
    syscall(SYS_ioctl, descriptor, number, envelope);
    if (reply_length > 0)
        std::memcpy(operations::read_envelope(envelope).out, reply, reply_length);
    operations::report_length(envelope, reply_length);
    return 0;
}

} // extern "C"

namespace {

constexpr char instance[] = "0000002a-51b3-4f0e-9c1d-00005e00532a";
constexpr char lif[] = "lif-0000-17";

struct Kind
{
    const char* name;
    std::uint32_t reply_length;
    std::int32_t (*call)();
};

template <class List>
std::int32_t read(std::int32_t (*get)(List**), std::int32_t (*release)(List*))
{
    List* list = nullptr;
    return get(&list) == 0 ? release(list) : -1;
}

std::int32_t read_networks()
{
    return read<LumoBridgeNetworkList>(
        [](auto** out) { return LUMOZEPH_GetBridgeNetworks(instance, instance, out); }, LUMOZEPH_ReleaseBridgeNetworks);
}

std::int32_t read_policies()
{
    return read<LumoPolicyList>([](auto** out) { return LUMOZEPH_GetPolicy(1, out); }, LUMOZEPH_ReleaseAllPolicy);
}

std::int32_t read_policy_tables()
{
    return read<LumoPolicyTableList>(LUMOZEPH_GetPolicyTable, LUMOZEPH_ReleaseAllPolicyTable);
}

std::int32_t read_routes()
{
    return read<LumoRouteList>([](auto** out) { return LUMOZEPH_GetRoutes(instance, out); }, LUMOZEPH_ReleaseRoutes);
}

constexpr Kind kinds[] = {
    {"set", 0, [] { return LUMOZEPH_DelPolicyTable(7, nullptr); }},
    {"set-with-texts", 0, [] { return LUMOZEPH_ClearArp(instance, lif); }},
    {"get-value", 4,
        [] {
            std::uint32_t level = 0;
            return LUMOZEPH_GetLogLevel(&level);
        }},
    {"get-record", 256,
        [] {
            LumoInstanceInfo* record = nullptr;
            return LUMOZEPH_GetInstance(instance, &record) == 0 ? LUMOZEPH_ReleaseInstance(record) : -1;
        }},
    {"empty-list", 0, read_policies},
    {"1000-plain-records", 1000 * 28, read_policies},
    {"1000-records-with-texts", 1000 * 72, read_policy_tables},
    {"1000-records-with-gaps", 1000 * 133, read_networks},
    {"1000-routes", 1000 * 668, read_routes},
};

} // namespace

int main(int argc, char** argv)
{
    for (const Kind& kind : kinds)
        if (argc == 3 && std::strcmp(argv[1], kind.name) == 0) {
            reply_length = kind.reply_length;
            // Routes with two next hops. The texts of every kind are empty.
            for (std::size_t at = 0; at < sizeof reply; at += 668)
                reply[at + 17] = kind.call == read_routes ? 2 : 0;
            for (int calls = std::atoi(argv[2]); calls > 0; --calls)
                if (kind.call() != 0)
                    return 1;
            return 0;
        }
    std::fprintf(stderr, "usage: probe KIND CALLS\n");
    return 2;
}
