#include "tool/state/applying.h"

#include "tool/carrying_out.h"

namespace tool {
namespace {

// What goes with something else is found gone after the first; more follow from nothing that is known.
constexpr unsigned rounds = 4;

std::vector<Path> paths_of(const Value& state, const Value& document)
{
    const Value part = part_spoken_of(state, document);
    std::vector<Path> paths;
    for (const Difference& one : differences(part, document))
        paths.push_back(one.path);
    return paths;
}

// Up to the first that fails. Throws its Failure.
void call_all(Module& module, const std::vector<Call>& calls, Outcome& outcome)
{
    for (auto call = calls.begin(); call != calls.end(); ++call) {
        try {
            module.call(*call);
        } catch (const Failure&) {
            outcome.not_done.assign(call, calls.end());
            throw;
        }
        outcome.done.push_back(*call);
    }
}

void call_each(Module& module, const std::vector<Call>& calls)
{
    for (const Call& call : calls) {
        try {
            module.call(call);
        } catch (const Failure&) {
            // What is left is said in the end.
            continue;
        }
    }
}

} // namespace

Value HostModule::read(const Scope& scope)
{
    return read_state(scope, _order);
}

void HostModule::call(const Call& call)
{
    answer_of(*call.operation, arguments_of(*call.operation, call.given, Completeness::OrElseNothing, _order),
        [&] { return words_of(call); });
}

Outcome carry_out(Module& module, const Plan& plan, const Value& document, AddressOrder order)
{
    Scope scope = scope_of(document);
    scope.statistics = Statistics::LeftOut;
    Outcome outcome;
    try {
        std::vector<Call> calls = plan.calls;
        for (unsigned round = 0; round < rounds && !calls.empty(); ++round) {
            call_all(module, calls, outcome);
            calls = plan_of(module.read(scope), document, order).calls;
        }
        outcome.not_settable = paths_of(module.read(scope), document);
    } catch (const Failure& failure) {
        outcome.why_not = failure;
    }
    return outcome;
}

Remains roll_back(Module& module, const Value& before, const Scope& scope, AddressOrder order)
{
    Remains remains;
    for (unsigned round = 0; round <= rounds; ++round) {
        try {
            const Value state = module.read(scope);
            remains.left = paths_of(state, before);
            remains.why_unknown.reset();
            const Plan plan = plan_of(state, before, order);
            if (plan.calls.empty() || round == rounds)
                break;
            call_each(module, plan.calls);
            remains.losses.insert(plan.losses.begin(), plan.losses.end());
        } catch (const Failure& failure) {
            // The next read may succeed.
            remains.left.clear();
            remains.why_unknown = failure;
        }
    }
    return remains;
}

} // namespace tool
