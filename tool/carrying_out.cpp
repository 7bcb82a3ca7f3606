#include "tool/carrying_out.h"

#include "tool/failures.h"
#include "tool/mistakes.h"
#include "tool/reply.h"

#include <cerrno>
#include <fmt/format.h>
#include <memory>
#include <utility>
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

struct Exchange
{
    explicit Exchange(Arguments what) : arguments(std::move(what)) {}

    Arguments arguments;
    Reply reply;
};

} // namespace

void carry_out(std::span<const Step> steps, const Manner& manner, Output& output)
{
    // Of several, none answers: as JSON, they are one.
    refuse_bytes_of_others(*steps.back().operation, manner);
    refuse_unknown_fields(*steps.back().operation, manner);
    std::vector<Arguments> arguments;
    for (const Step& step : steps)
        arguments.push_back(arguments_of(*step.operation, step.given, completeness_of(step), manner.order));
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const Reply reply =
            answer_of(*steps[i].operation, std::move(arguments[i]), [&] { return described(steps[i]); });
        if (i + 1 == steps.size())
            print(output, *steps[i].operation, reply, manner, steps[i].verb ? steps[i].verb->fields : "");
    }
    output.flush();
}

std::optional<Reply> answer_if_there(
    const Operation& operation, Arguments arguments, const std::function<std::string()>& attempt)
{
    const auto exchange = std::make_shared<Exchange>(std::move(arguments));
    const std::optional<int> error = error_of_call(attempt, operation.name,
        [&operation, exchange] { return operation.call(exchange->arguments, exchange->reply); });
    if (!error)
        return std::move(exchange->reply);
    if (*error != ENOENT)
        throw failure(attempt(), operation.name, *error);
    return std::nullopt;
}

Reply answer_of(const Operation& operation, Arguments arguments, const std::function<std::string()>& attempt)
{
    std::optional<Reply> reply = answer_if_there(operation, std::move(arguments), attempt);
    if (!reply)
        throw failure(attempt(), operation.name, ENOENT);
    return *std::move(reply);
}

Reply answer_of(const Step& step, AddressOrder order)
{
    return answer_of(*step.operation, arguments_of(*step.operation, step.given, completeness_of(step), order),
        [&] { return described(step); });
}

} // namespace tool
