#include "emulator/model/lif_users.h"

#include "emulator/model/subnets.h"

namespace emulator {

void remove_lif(Instance& instance, Lif& lif)
{
    for (Route* route : lif.routes) {
        std::erase_if(route->next_hops, [&](const NextHop& hop) { return hop.lif == lif.name; });
        if (route->next_hops.empty()) {
            discount_mask(instance, route->mask);
            instance.routes.remove(*route);
        }
    }
    for (const Route6* route : lif.routes6)
        instance.routes6.remove(*route);
    for (const LifPolicy* policy : lif.policies)
        instance.lif_policies.remove(*policy);
    for (const Neighbour* neighbour : lif.neighbours)
        instance.neighbours.remove(*neighbour);
    leave_subnet(instance, lif);
    instance.lifs.remove(lif);
}

} // namespace emulator
