#include "tool/carrying_out.h"

#include "tool/failures.h"
#include "tool/mistakes.h"
#include "tool/reply.h"

#include <cerrno>
#include <fmt/format.h>
#include <vector>

namespace tool {
namespace {

Completeness completeness_of(const Step& step)
{
    return step.verb ? Completeness::OrElseNothing : Completeness::Demanded;
}

std::string described(const Step& step)
{
    std::string words(step.verb ? step.verb->words : step.operation->name);
    for (const Given& given : step.given)
        words += fmt::format(" {}={}", given.name, given.value);
    return words;
}

Reply call(const Step& step, Arguments& arguments)
{
    Reply reply;
    errno = 0;
    if (step.operation->call(arguments, reply) != 0)
        throw failure(described(step), step.operation->name, errno);
    return reply;
}

} // namespace

void carry_out(std::span<const Step> steps, const Manner& manner, Output& output)
{
    // Of several, none answers: as JSON, they are one.
    refuse_unknown_fields(*steps.back().operation, manner);
    std::vector<Arguments> arguments;
    for (const Step& step : steps)
        arguments.push_back(arguments_of(*step.operation, step.given, completeness_of(step), manner.order));
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Reply reply = call(steps[i], arguments[i]);
        if (i + 1 == steps.size())
            print(output, *steps[i].operation, reply, manner, steps[i].verb ? steps[i].verb->fields : "");
    }
    output.flush();
}

Reply answer_of(const Step& step, AddressOrder order)
{
    Arguments arguments = arguments_of(*step.operation, step.given, completeness_of(step), order);
    return call(step, arguments);
}

} // namespace tool
