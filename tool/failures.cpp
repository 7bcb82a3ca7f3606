#include "tool/failures.h"

#include "lumozeph.h"
#include "tool/patience.h"

#include <cerrno>
#include <cstring>
#include <fmt/format.h>
#include <memory>
#include <optional>
#include <utility>

namespace tool {
namespace {

bool is_absence(int error)
{
    return error == ENOENT || error == ENODEV || error == ENXIO;
}

bool is_refusal(int error)
{
    return error == EACCES || error == EPERM;
}

// The errno of an operation that needs nothing but the module. Nothing if that gives no answer.
std::optional<int> error_without_an_object()
{
    const auto level = std::make_shared<std::uint32_t>(0);
    const std::optional<Called> called = make_call([level] { return LUMOZEPH_GetLogLevel(level.get()); });
    if (!called)
        return std::nullopt;
    return called->result == 0 ? 0 : called->error;
}

std::string_view advice(int error)
{
    const bool may_be_the_device = is_absence(error) || is_refusal(error);
    const std::optional<int> without_an_object = may_be_the_device ? error_without_an_object() : 0;
    if (!without_an_object)
        return "the module does not say whether it knows anything else";
    const bool is_the_device = may_be_the_device && *without_an_object == error;
    if (is_the_device && is_absence(error))
        return "the device of the module is not there: is the module loaded on this host?";
    if (is_the_device)
        return "this user may not open the device of the module";
    if (is_absence(error))
        return "the module is there, and knows no such object";
    switch (error) {
    case EINVAL:
        return "the values make no sense to the library or to the module";
    case EEXIST:
        return "it is there already";
    case EBUSY:
        return "something still uses it";
    case EBADMSG:
        return "the reply of the module is malformed: do its version and that of the library fit?";
    case ENOTTY:
        return "the module does not know this command: do its version and that of the library fit?";
    case ESRCH:
        return "there is no such entry: the list shows those that there are";
    case EADDRNOTAVAIL:
        return "the LIF has not this address with this mask or prefix length: lif show tells what it has";
    case ENETDOWN:
        return "the LIF is disabled: lif set INSTANCE LIF up enables it";
    case ENETUNREACH:
        return "no route leads there, or the gateway is on no network of a LIF that is enabled";
    case ENOSPC:
        return "the module has as many as it can have";
    case ENOBUFS:
        return "the reply is larger than the room that there is for it";
    case ENOMEM:
        return "there is too little memory here or in the module; a read of IPv6 routes says so whatever fails";
    case EMFILE:
        return "ulimit -n says how many";
    default:
        return "the log of the kernel may say why";
    }
}

} // namespace

std::optional<int> error_of_call(
    const std::function<std::string()>& attempt, std::string_view operation, std::function<int()> function)
{
    if (!can_make_calls())
        throw NoAnswer(
            fmt::format("{}: not tried, as {} calls that were given up still hang", attempt(), calls_given_up()),
            std::string(operation), ETIMEDOUT, "the module hangs");
    const std::optional<Called> called = make_call(std::move(function));
    if (!called)
        throw NoAnswer(fmt::format("{}: no answer within {} seconds", attempt(), Patience::time().count()),
            std::string(operation), ETIMEDOUT, "the module hangs, or is not done yet");
    return called->result == 0 ? std::nullopt : std::optional(called->error);
}

void call(const std::function<std::string()>& attempt, std::string_view operation, std::function<int()> function)
{
    if (const std::optional<int> error = error_of_call(attempt, operation, std::move(function)))
        throw failure(attempt(), operation, *error);
}

std::string name_of(int error)
{
    const char* const name = strerrorname_np(error);
    return name ? name : fmt::format("{}", error);
}

Failure failure(const std::string& attempt, std::string_view operation, int error)
{
    const std::string reason =
        error == 0 ? "the library gives no reason" : fmt::format("{} ({})", strerrordesc_np(error), name_of(error));
    return {fmt::format("{}: {}", attempt, reason), std::string(operation), error, std::string(advice(error))};
}

} // namespace tool
