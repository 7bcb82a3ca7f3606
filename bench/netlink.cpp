// IPv4 routes decoded from memory: by this library out of a reply of the module, and by two libraries out of a netlink
// dump of as many routes with as many next hops. Everybody fills the same structs. The library's read is all decoding
// here: the reply is in its buffer already, and the list's array is there.
#include "compare.h"
#include "kernel.h"
#include "replies.h"

#include <arpa/inet.h>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <libmnl/libmnl.h>
#include <linux/rtnetlink.h>
#include <lumozeph.h>
#include <net/if.h>
#include <netlink/netlink.h>
#include <netlink/route/nexthop.h>
#include <netlink/route/route.h>
#include <random>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace bench;

void expect(bool holds)
{
    if (!holds)
        std::abort();
}

// --- the netlink dump

// A route to 10.x.y.0/24 as the kernel understands and prints it.
nlmsghdr* put_route(char* buffer, std::size_t index, std::size_t next_hops)
{
    nlmsghdr* const message = mnl_nlmsg_put_header(buffer);
    message->nlmsg_type = RTM_NEWROUTE;
    auto* const route = static_cast<rtmsg*>(mnl_nlmsg_put_extra_header(message, sizeof(rtmsg)));
    route->rtm_family = AF_INET;
    route->rtm_dst_len = 24;
    route->rtm_table = RT_TABLE_MAIN;
    route->rtm_protocol = RTPROT_STATIC;
    route->rtm_scope = RT_SCOPE_UNIVERSE;
    route->rtm_type = RTN_UNICAST;
    mnl_attr_put_u32(message, RTA_TABLE, RT_TABLE_MAIN);
    mnl_attr_put_u32(message, RTA_DST, htonl(0x0a000000 + static_cast<std::uint32_t>(index << 8)));
    mnl_attr_put_u32(message, RTA_PRIORITY, 100);
    const auto gateway = [index](std::size_t hop) {
        return htonl(0xc0a80001 + static_cast<std::uint32_t>((index % 250) << 8 | hop));
    };
    const std::uint32_t loopback = 1;
    if (next_hops == 1) {
        route->rtm_flags = RTNH_F_ONLINK;
        mnl_attr_put_u32(message, RTA_GATEWAY, gateway(0));
        mnl_attr_put_u32(message, RTA_OIF, loopback);
        return message;
    }
    nlattr* const multipath = mnl_attr_nest_start(message, RTA_MULTIPATH);
    for (std::size_t hop = 0; hop < next_hops; ++hop) {
        auto* const entry = static_cast<rtnexthop*>(mnl_nlmsg_get_payload_tail(message));
        *entry = {};
        entry->rtnh_flags = RTNH_F_ONLINK;
        entry->rtnh_ifindex = static_cast<int>(loopback);
        message->nlmsg_len += MNL_ALIGN(sizeof(rtnexthop));
        mnl_attr_put_u32(message, RTA_GATEWAY, gateway(hop));
        entry->rtnh_len = static_cast<unsigned short>(
            static_cast<char*>(mnl_nlmsg_get_payload_tail(message)) - reinterpret_cast<char*>(entry));
    }
    mnl_attr_nest_end(message, multipath);
    return message;
}

std::string generated_dump(std::size_t route_count, std::size_t next_hops)
{
    std::string dump;
    std::vector<char> buffer(MNL_SOCKET_BUFFER_SIZE);
    for (std::size_t i = 0; i < route_count; ++i) {
        nlmsghdr* const message = put_route(buffer.data(), i, next_hops);
        message->nlmsg_flags = NLM_F_MULTI;
        dump.append(buffer.data(), message->nlmsg_len);
    }
    return dump;
}

bool bring_loopback_up()
{
    ifreq request {};
    std::memcpy(request.ifr_name, "lo", sizeof "lo");
    request.ifr_flags = IFF_UP;
    const int descriptor = socket(AF_INET, SOCK_DGRAM, 0);
    const bool up = ioctl(descriptor, SIOCSIFFLAGS, &request) == 0;
    close(descriptor);
    return up;
}

bool send_all_routes(mnl_socket* netlink, std::size_t route_count, std::size_t next_hops)
{
    std::vector<char> buffer(MNL_SOCKET_BUFFER_SIZE);
    for (std::size_t i = 0; i < route_count; ++i) {
        nlmsghdr* const message = put_route(buffer.data(), i, next_hops);
        message->nlmsg_flags = NLM_F_REQUEST | NLM_F_CREATE | NLM_F_ACK;
        if (mnl_socket_sendto(netlink, message, message->nlmsg_len) < 0)
            return false;
        const ssize_t length = mnl_socket_recvfrom(netlink, buffer.data(), buffer.size());
        if (length < 0 || mnl_cb_run(buffer.data(), static_cast<std::size_t>(length), 0, 0, nullptr, nullptr) < 0)
            return false;
    }
    return true;
}

bool receive_dump(mnl_socket* netlink, std::string& dump)
{
    std::vector<char> buffer(1 << 17);
    nlmsghdr* const request = mnl_nlmsg_put_header(buffer.data());
    request->nlmsg_type = RTM_GETROUTE;
    request->nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    static_cast<rtmsg*>(mnl_nlmsg_put_extra_header(request, sizeof(rtmsg)))->rtm_family = AF_INET;
    if (mnl_socket_sendto(netlink, request, request->nlmsg_len) < 0)
        return false;
    for (;;) {
        int left = static_cast<int>(mnl_socket_recvfrom(netlink, buffer.data(), buffer.size()));
        if (left < 0)
            return false;
        for (const auto* message = reinterpret_cast<nlmsghdr*>(buffer.data()); mnl_nlmsg_ok(message, left);
             message = mnl_nlmsg_next(message, &left)) {
            if (message->nlmsg_type == NLMSG_DONE)
                return true;
            const auto* route = static_cast<const rtmsg*>(mnl_nlmsg_get_payload(message));
            if (message->nlmsg_type == RTM_NEWROUTE && route->rtm_table == RT_TABLE_MAIN)
                dump.append(reinterpret_cast<const char*>(message), message->nlmsg_len);
        }
    }
}

// What the kernel of this machine prints of these routes, in a network namespace of a child's own. Empty where that is
// not allowed.
std::string captured_dump(std::size_t route_count, std::size_t next_hops)
{
    constexpr std::size_t room = 64 << 20;
    void* const shared = mmap(nullptr, room, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    expect(shared != MAP_FAILED);
    const pid_t child = fork();
    if (child == 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0 || !bring_loopback_up())
            _exit(1);
        mnl_socket* const netlink = mnl_socket_open(NETLINK_ROUTE);
        std::string dump;
        if (netlink == nullptr || mnl_socket_bind(netlink, 0, MNL_SOCKET_AUTOPID) < 0 ||
            !send_all_routes(netlink, route_count, next_hops) || !receive_dump(netlink, dump) ||
            dump.size() + sizeof(std::size_t) > room)
            _exit(1);
        const std::size_t size = dump.size();
        std::memcpy(shared, &size, sizeof size);
        std::memcpy(static_cast<char*>(shared) + sizeof size, dump.data(), size);
        _exit(0);
    }
    std::string dump;
    int status = 0;
    if (waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        std::size_t size;
        std::memcpy(&size, shared, sizeof size);
        dump.assign(static_cast<const char*>(shared) + sizeof size, size);
    }
    munmap(shared, room);
    return dump;
}

// --- the ways to decode

using Routes = std::vector<LumoRouteInfo>;

constexpr std::size_t cap = 8000;
constexpr std::size_t list_size = cap * sizeof(LumoRouteInfo);

// What the library gets when it allocates the reply and the array of a list of routes.
void* reply_block = nullptr;
void* array_block = nullptr;

bool is_given(const void* block)
{
    return block != nullptr && (block == reply_block || block == array_block);
}

void by_lumozeph(Routes& reply, Routes& routes, std::size_t count)
{
    reply_block = reply.data();
    array_block = routes.data();
    answer_calls(Kernel::Instant, {nullptr, static_cast<std::uint32_t>(count * sizeof(LumoRouteInfo))});
    LumoRouteList* list = nullptr;
    expect(LUMOZEPH_GetRoutes("blue", &list) == 0 && list->records == routes.data());
    expect(list->count == static_cast<std::int32_t>(count));
    LUMOZEPH_ReleaseRoutes(list);
    answer_calls(Kernel::Real);
    reply_block = nullptr;
    array_block = nullptr;
}

void by_memcpy(const Routes& reply, Routes& routes, std::size_t count)
{
    std::size_t size = sizeof(LumoRouteInfo);
    asm("" : "+r"(size)); // The compiler would put something slower in the place of the call.
    for (std::size_t i = 0; i < count; ++i)
        std::memcpy(&routes[i], &reply[i], size);
}

std::uint32_t mask_of(unsigned length)
{
    return length == 0 ? 0 : htonl(~0u << (32 - length));
}

void put_interface(LumoNextHop& hop, std::uint32_t index)
{
    std::memcpy(hop.nextHopValue, &index, sizeof index);
}

LumoNextHop& next_slot(LumoRouteInfo& route)
{
    return route.nextHops[route.nextHopCount++];
}

int mnl_hop_attribute(const nlattr* attribute, void* data)
{
    if (mnl_attr_get_type(attribute) == RTA_GATEWAY)
        static_cast<LumoNextHop*>(data)->nextHopAddr = mnl_attr_get_u32(attribute);
    return MNL_CB_OK;
}

int mnl_route_attribute(const nlattr* attribute, void* data)
{
    auto& route = *static_cast<LumoRouteInfo*>(data);
    switch (mnl_attr_get_type(attribute)) {
    case RTA_DST:
        route.routeDest = mnl_attr_get_u32(attribute);
        break;
    case RTA_PRIORITY:
        route.routeValue1 = mnl_attr_get_u32(attribute);
        break;
    case RTA_TABLE:
        route.routeValue2 = mnl_attr_get_u32(attribute);
        break;
    case RTA_GATEWAY:
        next_slot(route).nextHopAddr = mnl_attr_get_u32(attribute);
        break;
    case RTA_OIF:
        put_interface(route.nextHops[0], mnl_attr_get_u32(attribute));
        break;
    case RTA_MULTIPATH: {
        auto* hop = static_cast<const rtnexthop*>(mnl_attr_get_payload(attribute));
        int left = mnl_attr_get_payload_len(attribute);
        while (RTNH_OK(hop, left)) {
            LumoNextHop& slot = next_slot(route);
            put_interface(slot, static_cast<std::uint32_t>(hop->rtnh_ifindex));
            mnl_attr_parse_payload(RTNH_DATA(hop), hop->rtnh_len - RTNH_LENGTH(0), mnl_hop_attribute, &slot);
            left -= RTNH_ALIGN(hop->rtnh_len);
            hop = RTNH_NEXT(hop);
        }
        break;
    }
    default:
        break;
    }
    return MNL_CB_OK;
}

struct MnlTarget
{
    LumoRouteInfo* next;
};

int mnl_route(const nlmsghdr* message, void* data)
{
    LumoRouteInfo& route = *static_cast<MnlTarget*>(data)->next++;
    const auto* const header = static_cast<const rtmsg*>(mnl_nlmsg_get_payload(message));
    route.routeMask = mask_of(header->rtm_dst_len);
    route.routeFlags = static_cast<std::uint8_t>(header->rtm_flags);
    route.nextHopCount = 0;
    return mnl_attr_parse(message, sizeof(rtmsg), mnl_route_attribute, &route);
}

void by_libmnl(const std::string& dump, Routes& routes, std::size_t count)
{
    MnlTarget target {routes.data()};
    expect(mnl_cb_run(dump.data(), dump.size(), 0, 0, mnl_route, &target) >= 0);
    expect(target.next == routes.data() + count);
}

void nl_hop(rtnl_nexthop* hop, void* data)
{
    LumoNextHop& slot = next_slot(*static_cast<LumoRouteInfo*>(data));
    put_interface(slot, static_cast<std::uint32_t>(rtnl_route_nh_get_ifindex(hop)));
    if (nl_addr* const gateway = rtnl_route_nh_get_gateway(hop))
        std::memcpy(&slot.nextHopAddr, nl_addr_get_binary_addr(gateway), sizeof slot.nextHopAddr);
}

void by_libnl(const std::string& dump, Routes& routes, std::size_t count)
{
    std::size_t index = 0;
    for (std::size_t at = 0; at < dump.size();) {
        auto* const message = reinterpret_cast<nlmsghdr*>(const_cast<char*>(dump.data() + at));
        rtnl_route* parsed = nullptr;
        expect(rtnl_route_parse(message, &parsed) == 0);
        LumoRouteInfo& route = routes[index++];
        nl_addr* const destination = rtnl_route_get_dst(parsed);
        std::memcpy(&route.routeDest, nl_addr_get_binary_addr(destination), sizeof route.routeDest);
        route.routeMask = mask_of(nl_addr_get_prefixlen(destination));
        route.routeValue1 = rtnl_route_get_priority(parsed);
        route.routeValue2 = rtnl_route_get_table(parsed);
        route.routeFlags = static_cast<std::uint8_t>(rtnl_route_get_flags(parsed));
        route.nextHopCount = 0;
        rtnl_route_foreach_nexthop(parsed, nl_hop, &route);
        rtnl_route_put(parsed);
        at += MNL_ALIGN(message->nlmsg_len);
    }
    expect(index == count);
}

// --- all of them in turns, in random order

struct Contender
{
    std::string name;
    std::function<void()> decode;
    std::vector<double> times {};
};

void expect_same_routes(const Routes& left, const Routes& right, std::size_t count, std::size_t next_hops)
{
    // A dump is in the kernel's order, and in that of the addresses when generated: both are this one.
    for (std::size_t i = 0; i < count; ++i) {
        expect(left[i].routeDest == right[i].routeDest && left[i].nextHopCount == next_hops);
        for (std::size_t hop = 0; hop < next_hops; ++hop)
            expect(left[i].nextHops[hop].nextHopAddr == right[i].nextHops[hop].nextHopAddr);
    }
}

void compare_decoders(benchmark::State& state)
{
    const auto next_hops = static_cast<std::size_t>(state.range(0));
    const auto route_count = static_cast<std::size_t>(state.range(1));
    std::string dump = captured_dump(route_count, next_hops);
    state.SetLabel(dump.empty() ? "generated dump" : "dump of this machine's kernel");
    if (dump.empty())
        dump = generated_dump(route_count, next_hops);
    // All of the size of a full list.
    Routes reply(cap);
    Routes of_lumozeph(cap);
    Routes of_memcpy(cap);
    Routes of_libmnl(cap);
    Routes of_libnl(cap);
    // The module's reply has the same routes.
    by_libmnl(dump, reply, route_count);
    for (std::size_t i = 0; i < route_count; ++i)
        for (std::size_t hop = 0; hop < next_hops; ++hop)
            put_text(reply[i].nextHops[hop].nextHopLifName, sizeof(LumoNextHop::nextHopLifName),
                operations::Usually::AName, i + hop);
    std::vector<Contender> contenders;
    contenders.push_back({"lumozeph", [&] { by_lumozeph(reply, of_lumozeph, route_count); }});
    contenders.push_back({"memcpy", [&] { by_memcpy(reply, of_memcpy, route_count); }});
    contenders.push_back({"libmnl", [&] { by_libmnl(dump, of_libmnl, route_count); }});
    contenders.push_back({"libnl-route", [&] { by_libnl(dump, of_libnl, route_count); }});

    std::mt19937 random(1);
    std::vector<std::size_t> order {0, 1, 2, 3};
    for (auto _ : state) {
        std::shuffle(order.begin(), order.end(), random);
        for (const std::size_t i : order)
            contenders[i].times.push_back(seconds(1, contenders[i].decode));
        state.SetIterationTime(contenders[0].times.back());
    }
    expect_same_routes(of_lumozeph, of_libmnl, route_count, next_hops);
    expect_same_routes(of_libnl, of_libmnl, route_count, next_hops);
    for (const Contender& contender : contenders) {
        state.counters[contender.name + "_routes_per_second"] =
            static_cast<double>(route_count) / median(contender.times);
        std::vector<double> ratios;
        for (std::size_t i = 0; i < contender.times.size(); ++i)
            ratios.push_back(contender.times[i] / contenders[0].times[i]);
        state.counters[contender.name + "_time_ratio"] = median(ratios);
    }
}
// As many as a list holds, and as many as stay in a processor's own cache.
BENCHMARK(compare_decoders)
    ->Name("decoded_from_memory")
    ->ArgNames({"next_hops", "routes"})
    ->ArgsProduct({{1, 8}, {500, 8000}})
    ->UseManualTime()
    ->MinTime(0.5);

} // namespace

// These stand before libc's, which has them by other names, too.
extern "C" {

void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t size)
{
    return size == list_size && reply_block != nullptr ? reply_block : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    return count * size == list_size && array_block != nullptr ? array_block : __libc_calloc(count, size);
}

void free(void* block)
{
    if (!is_given(block))
        __libc_free(block);
}

} // extern "C"

BENCHMARK_MAIN();
