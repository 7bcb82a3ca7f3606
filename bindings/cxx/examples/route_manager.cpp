// Lists the routes of a router instance, IPv4 and IPv6, adds and deletes them, and asks which one a destination takes.
//
//     route_manager INSTANCE list | get ADDRESS | add|delete PREFIX GATEWAY [LIF]
//
// PREFIX is ADDRESS/LENGTH. Exits 0 on success, 1 when something fails, 2 on wrong usage.
#include <iostream>
#include <lumozeph.hpp>

namespace {

void print(const lumozeph::route_info& route)
{
    std::cout << lumozeph::ipv4_prefix(lumozeph::ipv4(route.routeDest), lumozeph::ipv4_mask(route.routeMask));
    for (const auto& hop : lumozeph::next_hops(route)) {
        if (hop.nextHopAddr != 0)
            std::cout << " via " << lumozeph::ipv4(hop.nextHopAddr);
        if (const auto lif = lumozeph::text(hop.nextHopLifName); !lif.empty())
            std::cout << " dev " << lif;
    }
    std::cout << '\n';
}

void list(lumozeph::instance_argument instance)
{
    const lumozeph::route_list routes = lumozeph::get_routes(instance);
    for (const auto& route : routes)
        print(route);
    // What an IPv6 route looks like is the module's.
    const auto routes6 = lumozeph::get_routes_v6(instance);
    std::cout << "IPv6 routes: " << routes6.reported() << '\n';
    if (routes.truncated())
        std::cout << "and perhaps more\n";
}

void add(lumozeph::instance_argument instance, const std::string& net, const std::string& gateway, const char* lif)
{
    if (const auto dest = lumozeph::ipv6_prefix::parse(net))
        lumozeph::set_route_v6({.dest = *dest, .gateway = lumozeph::ipv6(gateway), .lif = lif, .instance = instance});
    else
        lumozeph::set_route(
            {.dest = lumozeph::ipv4_prefix(net), .gateway = lumozeph::ipv4(gateway), .lif = lif, .instance = instance});
}

void remove(lumozeph::instance_argument instance, const std::string& net, const std::string& gateway, const char* lif)
{
    if (const auto dest = lumozeph::ipv6_prefix::parse(net))
        lumozeph::del_route_v6({.dest = *dest, .gateway = lumozeph::ipv6(gateway), .lif = lif, .instance = instance});
    else
        lumozeph::del_route(
            {.dest = lumozeph::ipv4_prefix(net), .gateway = lumozeph::ipv4(gateway), .lif = lif, .instance = instance});
}

int usage()
{
    std::cerr << "usage: route_manager INSTANCE list | get ADDRESS | add|delete PREFIX GATEWAY [LIF]\n";
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string_view command = argc > 2 ? argv[2] : "";
    try {
        if (command == "list" && argc == 3)
            list(argv[1]);
        else if (command == "get" && argc == 4)
            print(*lumozeph::get_resolve_route(
                {.instance = argv[1], .dest = lumozeph::ipv4(argv[3]), .mask = lumozeph::ipv4_mask::of_length(32)}));
        else if (command == "add" && (argc == 5 || argc == 6))
            add(argv[1], argv[3], argv[4], argv[5]);
        else if (command == "delete" && (argc == 5 || argc == 6))
            remove(argv[1], argv[3], argv[4], argv[5]);
        else
            return usage();
        if (!std::cout.flush())
            throw std::system_error(errno, std::generic_category(), "standard output");
        return 0;
    } catch (const std::invalid_argument& error) {
        std::cerr << "route_manager: " << error.what() << '\n';
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "route_manager: " << error.what() << '\n';
        return 1;
    }
}
