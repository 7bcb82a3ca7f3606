#include "emulator/model/subnets.h"

namespace emulator {

bool is_on_a_subnet(const Lif& lif)
{
    return lif.enabled && lif.address != 0;
}

void join_subnet(Instance& instance, Lif& lif)
{
    if (!is_on_a_subnet(lif))
        return;
    Subnet named {lif.address & lif.mask, lif.mask, {}};
    Subnet* subnet = instance.subnets.find(named.identity());
    if (subnet == nullptr)
        subnet = &instance.subnets.add(std::move(named));
    subnet->lifs[lif.created] = &lif;
    count_mask(instance, lif.mask);
}

void leave_subnet(Instance& instance, const Lif& lif)
{
    if (!is_on_a_subnet(lif))
        return;
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
