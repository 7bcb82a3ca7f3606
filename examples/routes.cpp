// Lists, adds and deletes the IPv4 routes of a router instance, and asks which one a destination takes.
//
//     routes INSTANCE list | get ADDRESS | add|delete NET GATEWAY [LIF]
//
// NET is ADDRESS/LENGTH. Addresses and masks are in network order, as inet_pton stores them.
// Exits 0 on success, 1 when something fails, 2 on wrong usage.
#include <arpa/inet.h>
#include <bitset>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <lumozeph.h>
#include <memory>
#include <string>

static int usage()
{
    std::cerr << "usage: routes INSTANCE list | get ADDRESS | add|delete NET GATEWAY [LIF] (names: up to 63 bytes)\n";
    return 2;
}

// Says what was tried, on what, and why it failed.
static int failed(const char* what, const char* name)
{
    const int error = errno;
    const char* hint = error == ENOENT ? " (no such object, or no module on this host)" : "";
    std::cerr << "routes: " << what << ' ' << name << ": " << std::strerror(error) << hint << '\n';
    return 1;
}

static bool parse_network(const char* text, uint32_t& address, uint32_t& mask)
{
    char host[INET_ADDRSTRLEN], digits[3], rest;
    if (std::sscanf(text, "%15[^/]/%2[0-9]%c", host, digits, &rest) != 2 || std::stoi(digits) > 32)
        return false;
    mask = htonl(static_cast<uint32_t>(0xffffffff00000000U >> std::stoi(digits)));
    return inet_pton(AF_INET, host, &address) == 1;
}

static std::string text_of(uint32_t address)
{
    char text[INET_ADDRSTRLEN];
    return inet_ntop(AF_INET, &address, text, sizeof text);
}

static void print(const LumoRouteInfo& route)
{
    const uint32_t host = ~ntohl(route.routeMask); // ones at its end only, or the mask is no prefix
    std::cout << text_of(route.routeDest) << '/';
    std::cout << ((host & (host + 1)) != 0 ? text_of(route.routeMask)
                                           : std::to_string(32 - std::bitset<32>(host).count()));
    for (int i = 0; i < route.nextHopCount && i < 8; ++i) {
        const LumoNextHop& hop = route.nextHops[i];
        std::cout << (i == 0 ? "" : ",") << (hop.nextHopAddr == 0 ? "" : " via " + text_of(hop.nextHopAddr))
                  << (hop.nextHopLifName[0] == '\0' ? "" : " dev ") << hop.nextHopLifName;
    }
    std::cout << '\n';
}

static int list(const char* instance)
{
    LumoRouteList* routes = nullptr;
    if (LUMOZEPH_GetRoutes(instance, &routes) != 0)
        return failed("list", instance);
    const std::unique_ptr<LumoRouteList, int32_t (*)(LumoRouteList*)> owner(routes, LUMOZEPH_ReleaseRoutes);
    for (int32_t i = 0; i < routes->count; ++i)
        print(routes->records[i]);
    return std::cout.flush() ? 0 : failed("write", "to standard output");
}

static int get(const char* instance, const char* name, uint32_t address)
{
    LumoRouteInfo* route = nullptr;
    if (LUMOZEPH_GetResolveRoute(instance, address, UINT32_MAX, 0, &route) != 0)
        return failed("get", name);
    const std::unique_ptr<LumoRouteInfo, int32_t (*)(LumoRouteInfo*)> owner(route, LUMOZEPH_ReleaseRoute);
    print(*route);
    return std::cout.flush() ? 0 : failed("write", "to standard output");
}

int main(int argc, char** argv)
{
    const std::string verb = argc > 2 ? argv[2] : "";
    uint32_t dest = 0, mask = 0, gateway = 0;
    for (int i = 1; i < argc; ++i)
        if (std::strlen(argv[i]) > 63) // would be cut without an error, and name something else
            return usage();
    if (argc == 3 && verb == "list")
        return list(argv[1]);
    if (argc == 4 && verb == "get" && inet_pton(AF_INET, argv[3], &dest) == 1)
        return get(argv[1], argv[3], dest);
    if (argc < 5 || argc > 6 || (verb != "add" && verb != "delete") || !parse_network(argv[3], dest, mask) ||
        inet_pton(AF_INET, argv[4], &gateway) != 1)
        return usage();
    const int32_t result = verb == "add" ? LUMOZEPH_SetRoute(dest, mask, gateway, argv[5], argv[1], 0, nullptr)
                                         : LUMOZEPH_DelRoute(dest, mask, gateway, argv[5], argv[1], nullptr);
    return result == 0 ? 0 : failed(argv[2], argv[3]);
}
