// Interface policies: route-shaped entries under a kind.
#include "emulator/protocol/lif_policies.h"

#include "emulator/model/addresses.h"
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/lif_users.h"
#include "emulator/model/route_record.h"

namespace emulator {

using namespace protocol;

namespace {

constexpr std::int32_t kind_with_text = 4;

LifPolicy policy_of(const Exchange& exchange)
{
    const Input& request = exchange.request;
    return {request[lif_policies::kind], request[lif_policies::text], request[lif_policies::dest],
        request[lif_policies::mask], request[lif_policies::param],
        {request[lif_policies::gateway], request[lif_policies::lif]}};
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const LifPolicy policy = policy_of(exchange);
    if (exchange.state.is_strict()) {
        if (!policy.next_hop.lif.empty() && instance->lifs.find(policy.next_hop.lif) == nullptr)
            return ENOENT;
        if (!is_contiguous(policy.mask) || (policy.dest & ~policy.mask) != 0)
            return EINVAL;
    }
    if (LifPolicy* existing = instance->lif_policies.find(policy.identity())) {
        existing->param = policy.param;
        return done(exchange);
    }
    if (instance->lif_policies.size() == lif_policies::most)
        return ENOSPC;
    use_lif<&Lif::policies>(*instance, policy.next_hop.lif, instance->lif_policies.add(policy));
    return done(exchange);
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const LifPolicy* policy = instance->lif_policies.find(policy_of(exchange).identity());
    if (policy == nullptr)
        return ESRCH;
    leave_lif<&Lif::policies>(*instance, policy->next_hop.lif, *policy);
    instance->lif_policies.remove(*policy);
    return done(exchange);
}

// Of the kind asked for, and of kind 4 those for the same text.
int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const std::int32_t kind = exchange.request[lif_policies::kind];
    const std::string text = exchange.request[lif_policies::text];
    for (const LifPolicy& policy : instance->lif_policies)
        if (policy.kind == kind && (kind != kind_with_text || policy.text == text))
            write_route({policy.dest, policy.mask, policy.param, {policy.next_hop}}, RouteOrigin::Policy, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {"GetLifPolicies", get_all},
    {"SetLifPolicy", set},
    {"DelLifPolicy", remove},
};

} // namespace

const Handlers handlers::lif_policies(lif_policies::commands, answers);

} // namespace emulator
