// Compiled with the warnings of strict programs, for each standard: what such programs write.
#include <lumozeph.hpp>

#include <iostream>
#include <unordered_map>

namespace {

std::uint64_t sum_of_addresses(const char* instance)
{
    std::uint64_t sum = 0;
    for (auto& l : lumozeph::get_lifs(instance))
        sum += l.ipAddr;
    const lumozeph::lif_list lifs = lumozeph::get_lifs("blue");
    for (const lumozeph::lif_info& lif : lifs)
        for (const auto& address : lumozeph::ipv6_addrs(lif))
            std::cout << lumozeph::ipv6(address.address) << '/' << address.prefixLen << '\n';
    return lifs.truncated() ? 0 : sum;
}

void configure(const std::string& instance)
{
    const lumozeph::ipv4_prefix net("192.0.2.0/24");
    const lumozeph::ipv4 gateway("198.51.100.1");
#if __cplusplus >= 202002L
    lumozeph::set_route({.dest = net, .gateway = gateway, .lif = "uplink", .instance = instance});
    lumozeph::set_lif({.lif = "uplink", .aux_name = "", .address = net, .di_address {}, .instance = instance});
#else
    lumozeph::set_route({net, gateway, "uplink", instance, 0});
    lumozeph::set_lif({"uplink", "", net, 0, 0, {}, 0, instance, {}});
#endif
    lumozeph::set_lif_mcast_routing(instance, "uplink", lumozeph::switched::on);
    lumozeph::cmd_result answer;
    lumozeph::del_policy_table(7, &answer);
    const auto text = lumozeph::mac("00:11:22:33:44:55").text();
    lumozeph::set_arp({gateway, text, "uplink", instance});
}

std::size_t read(const lumozeph::instance_key& key)
{
    std::unordered_map<lumozeph::instance_key, lumozeph::instance_list> known;
    lumozeph::instance_list& list = known[key];
    if (const std::error_code code = lumozeph::try_get_instances(list))
        return static_cast<std::size_t>(code.value());
    std::size_t bytes = 0;
    const auto routes = lumozeph::get_routes_v6(key);
    for (const auto entry : routes)
        bytes += entry.size();
    const auto arps = lumozeph::get_arps(key);
    return bytes + arps.size() + lumozeph::bridge_get_local_transport_node(0).size();
}

} // namespace

// Finds no module.
int main()
{
    int failures = 0;
    const auto expect_failure = [&failures](auto work) {
        try {
            work();
        } catch (const lumozeph::error& error) {
            if (error.code() == std::errc::no_such_file_or_directory)
                ++failures;
        }
    };
    expect_failure([] { sum_of_addresses("blue"); });
    expect_failure([] { configure("blue"); });
    if (read(lumozeph::instance_key("blue")) != ENOENT)
        return 1;
    return failures == 2 ? 0 : 2;
}
