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
    std::vector<Call> calls = plan.calls;
    for (unsigned round = 0; round < rounds && !calls.empty(); ++round) {
        for (auto call = calls.begin(); call != calls.end(); ++call) {
            try {
                module.call(*call);
            } catch (const Failure& failure) {
                outcome.why_not = failure;
                outcome.not_done.assign(call, calls.end());
                return outcome;
            }
            outcome.done.push_back(*call);
        }
        calls = plan_of(module.read(scope), document, order).calls;
    }
    outcome.not_settable = paths_of(module.read(scope), document);
    return outcome;
}

std::vector<Path> roll_back(Module& module, const Value& before, const Scope& scope, AddressOrder order)
{
    for (unsigned round = 0; round < rounds; ++round) {
        const std::vector<Call> calls = plan_of(module.read(scope), before, order).calls;
        if (calls.empty())
            return {};
        for (const Call& call : calls) {
            try {
                module.call(call);
            } catch (const Failure&) {
                // What is left is said in the end.
                continue;
            }
        }
    }
    if (plan_of(module.read(scope), before, order).calls.empty())
        return {};
    return paths_of(module.read(scope), before);
}

} // namespace tool
