// Lists the logical interfaces (LIFs) of router instances with their addresses.
//
//     interfaces [INSTANCE...]
//
// Without an argument, those of all instances. Exits 0 on success, 1 when something fails.
#include <iostream>
#include <lumozeph.hpp>

namespace {

void print(const lumozeph::lif_info& lif)
{
    std::cout << "  " << lumozeph::text(lif.lifName) << ' ' << lumozeph::mac(lif.lifMac);
    if (lif.ipAddr != 0)
        std::cout << ' ' << lumozeph::ipv4_prefix(lumozeph::ipv4(lif.ipAddr), lumozeph::ipv4_mask(lif.ipMask));
    for (const auto& address : lumozeph::ipv6_addrs(lif))
        std::cout << ' ' << lumozeph::ipv6_prefix(lumozeph::ipv6(address.address), address.prefixLen);
    std::cout << '\n';
}

void list(lumozeph::instance_argument instance)
{
    std::cout << instance.c_str() << '\n';
    const lumozeph::lif_list routed = lumozeph::get_lifs(instance);
    for (const auto& lif : routed)
        print(lif);
    const lumozeph::lif_list bridged = lumozeph::get_bridge_lifs(instance);
    for (const auto& lif : bridged)
        print(lif);
    if (routed.truncated() || bridged.truncated())
        std::cout << "  and perhaps more\n";
}

} // namespace

int main(int argc, char** argv)
{
    try {
        for (int i = 1; i < argc; ++i)
            list(argv[i]);
        if (argc == 1)
            for (const auto& instance : lumozeph::get_instances())
                list(instance.instanceKey);
        if (!std::cout.flush())
            throw std::system_error(errno, std::generic_category(), "standard output");
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "interfaces: " << error.what() << '\n';
        return 1;
    }
}
