// Brings the state to what a document says.
#pragma once

#include "tool/mistakes.h"
#include "tool/state/document.h"
#include "tool/state/plan.h"
#include "tool/state/reading.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tool {

// What is read and called.
class Module
{
public:
    Module() = default;
    virtual ~Module() = default;
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    // Both throw Failure.
    virtual Value read(const Scope& scope) = 0;
    virtual void call(const Call& call) = 0;
};

// The one of this host.
class HostModule : public Module
{
public:
    explicit HostModule(AddressOrder order) : _order(order) {}
    Value read(const Scope& scope) override;
    void call(const Call& call) override;

private:
    AddressOrder _order;
};

struct Outcome
{
    std::vector<Call> done;
    std::vector<Call> not_done;
    std::optional<Failure> why_not; // of the first of them, or of a read after all that was done
    std::vector<Path> not_settable; // what still differs, if all was done
};

// Carries out the plan. What was taken away with something else is then added again.
Outcome carry_out(Module& module, const Plan& plan, const Value& document, AddressOrder order);

// What is not as it was.
struct Remains
{
    std::vector<Path> left;
    std::set<std::string> losses;       // of what was added again
    std::optional<Failure> why_unknown; // why the state could not be read, and what is left is not known
};

// Back to what was read before. As far as it goes: what fails does not keep the rest from being done.
Remains roll_back(Module& module, const Value& before, const Scope& scope, AddressOrder order);

} // namespace tool
