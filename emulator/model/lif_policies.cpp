// Interface policies: route-shaped entries under a kind.
#include "emulator/model/answers.h"
#include "emulator/model/find.h"
#include "emulator/model/handlers.h"
#include "emulator/model/route_record.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t most_policies = 8000;
constexpr std::uint32_t kind_with_text = 4;

LifPolicy policy_of(const Exchange& exchange)
{
    const Request& request = exchange.request;
    return {request.u32(216), request.text(148, 64), request.u32(64), request.u32(68), request.u32(80),
        {request.u32(76), request.text(84, 64)}};
}

bool same(const LifPolicy& left, const LifPolicy& right)
{
    return left.kind == right.kind && left.text == right.text && left.dest == right.dest && left.mask == right.mask &&
           left.next_hop == right.next_hop;
}

int set(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const LifPolicy policy = policy_of(exchange);
    const auto existing = std::find_if(instance->lif_policies.begin(), instance->lif_policies.end(),
        [&](const LifPolicy& candidate) { return same(candidate, policy); });
    if (existing != instance->lif_policies.end()) {
        existing->param = policy.param;
        return done(exchange);
    }
    if (instance->lif_policies.size() == most_policies)
        return ENOSPC;
    instance->lif_policies.push_back(policy);
    return done(exchange);
}

int remove(Exchange& exchange)
{
    Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const LifPolicy policy = policy_of(exchange);
    const auto removed =
        std::erase_if(instance->lif_policies, [&](const LifPolicy& candidate) { return same(candidate, policy); });
    return removed > 0 ? done(exchange) : ESRCH;
}

// Of the kind asked for, and of kind 4 those for the same text.
int get_all(Exchange& exchange)
{
    const Instance* instance = instance_of(exchange);
    if (instance == nullptr)
        return ENOENT;
    const LifPolicy asked = policy_of(exchange);
    for (const LifPolicy& policy : instance->lif_policies)
        if (policy.kind == asked.kind && (policy.kind != kind_with_text || policy.text == asked.text))
            write_route({policy.dest, policy.mask, policy.param, {policy.next_hop}}, RouteOrigin::Policy, exchange);
    return 0;
}

constexpr Handler answers[] = {
    {140, request_record, get_all},
    {141, request_record, set},
    {142, request_record, remove},
};

} // namespace

const std::span<const Handler> handlers::lif_policies = answers;

} // namespace emulator
