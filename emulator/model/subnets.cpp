#include "emulator/model/subnets.h"

#include "emulator/model/addresses.h"
#include "emulator/protocol/routes.h"

#include <algorithm>

namespace emulator {

bool has_room_for_a_subnet(const Instance& instance)
{
    return instance.routes.size() + instance.lifs_on_subnets < protocol::routes::most;
}

bool has_room_for_subnets6(const Instance& instance, std::size_t addresses)
{
    return instance.routes6.size() + instance.addresses_on_subnets6 + addresses <= protocol::routes6::most;
}

bool is_on_a_subnet(const Lif& lif)
{
    return lif.enabled && lif.address != 0;
}

void join_subnet(Instance& instance, Lif& lif)
{
    if (lif.enabled) {
        instance.addresses_on_subnets6 += lif.ipv6.size();
        for (const LifIpv6& ipv6 : lif.ipv6)
            ++instance.subnets6[ipv6.prefix_length][network_of(ipv6.address, ipv6.prefix_length)];
    }
    if (!is_on_a_subnet(lif))
        return;
    ++instance.lifs_on_subnets;
    Subnet named {lif.address & lif.mask, lif.mask, {}};
    Subnet* subnet = instance.subnets.find(named.identity());
    if (subnet == nullptr)
        subnet = &instance.subnets.add(std::move(named));
    subnet->lifs[lif.created] = &lif;
    count_mask(instance, lif.mask);
}

void leave_subnet(Instance& instance, const Lif& lif)
{
    if (lif.enabled) {
        instance.addresses_on_subnets6 -= lif.ipv6.size();
        for (const LifIpv6& ipv6 : lif.ipv6) {
            const auto of_length = instance.subnets6.find(ipv6.prefix_length);
            const auto counted = of_length->second.find(network_of(ipv6.address, ipv6.prefix_length));
            if (--counted->second == 0)
                of_length->second.erase(counted);
            if (of_length->second.empty())
                instance.subnets6.erase(of_length);
        }
    }
    if (!is_on_a_subnet(lif))
        return;
    --instance.lifs_on_subnets;
    Subnet* subnet = instance.subnets.find(std::tuple(lif.address & lif.mask, lif.mask));
    subnet->lifs.erase(lif.created);
    if (subnet->lifs.empty())
        instance.subnets.remove(*subnet);
    discount_mask(instance, lif.mask);
}

const Lif* lif_on_subnet(Instance& instance, std::uint32_t dest, std::uint32_t mask)
{
    const Subnet* subnet = instance.subnets.find(std::tuple(dest, mask));
    return subnet == nullptr ? nullptr : subnet->lifs.begin()->second;
}

bool is_on_any_subnet(Instance& instance, std::uint32_t address)
{
    return std::any_of(instance.masks.begin(), instance.masks.end(), [&](const auto& mask_and_count) {
        const std::uint32_t mask = mask_and_count.first;
        return lif_on_subnet(instance, address & mask, mask) != nullptr;
    });
}

bool is_on_any_subnet(const Instance& instance, const Ipv6Address& address)
{
    return std::any_of(instance.subnets6.begin(), instance.subnets6.end(), [&](const auto& length_and_networks) {
        const auto& [length, networks] = length_and_networks;
        return networks.contains(network_of(address, length));
    });
}

void count_mask(Instance& instance, std::uint32_t mask)
{
    ++instance.masks[mask];
}

void discount_mask(Instance& instance, std::uint32_t mask)
{
    const auto counted = instance.masks.find(mask);
    if (--counted->second == 0)
        instance.masks.erase(counted);
}

} // namespace emulator
