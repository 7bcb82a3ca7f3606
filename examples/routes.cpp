// Configures logical interfaces and IPv4 routes of a router instance, and asks which route a destination takes.
//
//     routes INSTANCE lif add NAME ADDRESS/LENGTH    routes INSTANCE route add DEST/LENGTH GATEWAY [LIF]
//     routes INSTANCE lif up|down NAME               routes INSTANCE route delete DEST/LENGTH GATEWAY [LIF]
//     routes INSTANCE lif delete NAME                routes INSTANCE route list
//     routes INSTANCE lif list                       routes INSTANCE route get ADDRESS
//
// Exits 0 on success, 1 when the module refuses, 2 on wrong usage.
#include <arpa/inet.h>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <lumozeph.h>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace {

// Addresses and masks in network byte order, as the module keeps them.
struct Network
{
    std::uint32_t address;
    std::uint32_t mask;
};

std::optional<std::uint32_t> parse_address(const std::string& text)
{
    in_addr address {};
    if (inet_pton(AF_INET, text.c_str(), &address) != 1)
        return std::nullopt;
    return address.s_addr;
}

std::optional<Network> parse_network(const std::string& text)
{
    const std::size_t slash = text.find('/');
    if (slash == std::string::npos)
        return std::nullopt;
    const auto address = parse_address(text.substr(0, slash));
    unsigned length = 0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data() + slash + 1, end, length);
    if (!address || parsed.ec != std::errc {} || parsed.ptr != end || length > 32)
        return std::nullopt;
    return Network {*address, htonl(length == 0 ? 0 : ~std::uint32_t {0} << (32 - length))};
}

std::string text_of(std::uint32_t address)
{
    char text[INET_ADDRSTRLEN];
    return inet_ntop(AF_INET, &address, text, sizeof text);
}

std::string text_of(const Network& network)
{
    return text_of(network.address) + '/' + std::to_string(std::popcount(network.mask));
}

// What the library hands out is given back by the function that goes with it.
template <auto Release>
struct Releaser
{
    template <class Type>
    void operator()(Type* result) const
    {
        Release(result);
    }
};
using Lifs = std::unique_ptr<LumoLifList, Releaser<LUMOZEPH_ReleaseLifs>>;
using Routes = std::unique_ptr<LumoRouteList, Releaser<LUMOZEPH_ReleaseRoutes>>;
using Route = std::unique_ptr<LumoRouteInfo, Releaser<LUMOZEPH_ReleaseRoute>>;

int failed(const std::string& what)
{
    std::cerr << "routes: " << what << ": " << std::generic_category().message(errno) << '\n';
    return 1;
}

int ended(std::int32_t result, const std::string& what)
{
    return result == 0 ? 0 : failed(what);
}

int usage()
{
    std::cerr << "usage: routes INSTANCE lif add NAME ADDRESS/LENGTH | up NAME | down NAME | delete NAME | list\n"
                 "       routes INSTANCE route add|delete DEST/LENGTH GATEWAY [LIF] | list | get ADDRESS\n";
    return 2;
}

int list_lifs(const char* instance)
{
    LumoLifList* list = nullptr;
    if (LUMOZEPH_GetLifs(instance, &list) != 0)
        return failed("lif list");
    const Lifs owner(list);
    for (std::int32_t i = 0; i < list->count; ++i) {
        const LumoLifInfo& lif = list->records[i];
        std::cout << std::left << std::setw(16) << lif.lifName << text_of(Network {lif.ipAddr, lif.ipMask})
                  << (lif.lifFlags[0] != 0 ? " up" : " down") << '\n';
    }
    return 0;
}

void print(const LumoRouteInfo& route)
{
    std::cout << text_of(Network {route.routeDest, route.routeMask});
    for (int i = 0; i < route.nextHopCount && i < 8; ++i) {
        const LumoNextHop& hop = route.nextHops[i];
        std::cout << (i == 0 ? "" : ",");
        if (hop.nextHopAddr != 0)
            std::cout << " via " << text_of(hop.nextHopAddr);
        if (hop.nextHopLifName[0] != '\0')
            std::cout << " dev " << hop.nextHopLifName;
    }
    std::cout << '\n';
}

int list_routes(const char* instance)
{
    LumoRouteList* list = nullptr;
    if (LUMOZEPH_GetRoutes(instance, &list) != 0)
        return failed("route list");
    const Routes owner(list);
    for (std::int32_t i = 0; i < list->count; ++i)
        print(list->records[i]);
    return 0;
}

int get_route(const char* instance, const std::string& destination)
{
    const auto address = parse_address(destination);
    LumoRouteInfo* route = nullptr;
    if (!address)
        return usage();
    if (LUMOZEPH_GetResolveRoute(instance, *address, ~std::uint32_t {0}, 0, &route) != 0)
        return failed("route get " + destination);
    const Route owner(route);
    print(*route);
    return 0;
}

int change_route(const char* instance, const std::string& verb, const std::vector<std::string>& words)
{
    const auto network = parse_network(words[0]);
    const auto gateway = parse_address(words[1]);
    const char* const lif = words.size() > 2 ? words[2].c_str() : nullptr;
    if (!network || !gateway)
        return usage();
    const std::int32_t result =
        verb == "add" ? LUMOZEPH_SetRoute(network->address, network->mask, *gateway, lif, instance, 0, nullptr)
                      : LUMOZEPH_DelRoute(network->address, network->mask, *gateway, lif, instance, nullptr);
    return ended(result, "route " + verb + " " + words[0]);
}

int lif(const char* instance, const std::string& verb, const std::vector<std::string>& words)
{
    const std::string what = "lif " + verb + (words.empty() ? "" : " " + words[0]);
    if (verb == "list" && words.empty())
        return list_lifs(instance);
    if (verb == "add" && words.size() == 2) {
        const auto network = parse_network(words[1]);
        if (!network)
            return usage();
        if (LUMOZEPH_SetLif(words[0].c_str(), "", 0, 0, 0, 0, 0, 0, instance, nullptr) != 0)
            return failed(what);
        return ended(LUMOZEPH_SetLifIp(instance, words[0].c_str(), network->address, network->mask), what);
    }
    if (verb == "up" && words.size() == 1)
        return ended(LUMOZEPH_EnableLif(instance, words[0].c_str()), what);
    if (verb == "down" && words.size() == 1)
        return ended(LUMOZEPH_DisableLif(instance, words[0].c_str()), what);
    if (verb == "delete" && words.size() == 1)
        return ended(LUMOZEPH_DelLif(words[0].c_str(), "", instance), what);
    return usage();
}

int route(const char* instance, const std::string& verb, const std::vector<std::string>& words)
{
    if (verb == "list" && words.empty())
        return list_routes(instance);
    if (verb == "get" && words.size() == 1)
        return get_route(instance, words[0]);
    if ((verb == "add" || verb == "delete") && (words.size() == 2 || words.size() == 3))
        return change_route(instance, verb, words);
    return usage();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return usage();
    const std::string object = argv[2];
    const std::vector<std::string> words(argv + 4, argv + argc);
    if (object == "lif")
        return lif(argv[1], argv[3], words);
    if (object == "route")
        return route(argv[1], argv[3], words);
    return usage();
}
